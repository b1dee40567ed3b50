#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/language-server/Server.h"
#include "tools/quor/settings/SettingOptions.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace Veld::Quor::Tools {

Command MakeLanguageServerCommand(CLI::App& application)
{
    CLI::App& command = *application.add_subcommand("language-server",
        "Serves an editor with the Language Server Protocol on standard input and output.");
    command.add_flag_callback(
        "--stdio", [] {}, "Does nothing; for editors that always pass it");
    const auto given = std::make_shared<Settings>(); // settings files are those of the decks
    AddSettingOptions(command, *given, {"syntax", "syntax-folder"});
    command.footer("The editor starts it. It reports findings while decks are written, and answers what the "
                   "editor\n"
                   "asks: descriptions, completions, definitions, names to change, and more.\n\n"
                   "Examples:\n"
                   "  quor language-server");
    return {&command,
        [given](LoadedLanguage& language) {
            return LanguageServer::Serve(language, *given) ? 0 : 1; // as the protocol has it
        },
        [given] { return DocumentsOf(*given); }};
}

} // namespace Veld::Quor::Tools

#include "tools/quor/Version.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/help/Completion.h"
#include "tools/quor/help/ManPage.h"
#include "tools/quor/help/ProgramDescription.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>
#include <string>

namespace Veld::Quor::Tools {

// Both commands describe the application that they belong to, so that what they say is what it understands.

Command MakeManCommand(CLI::App& application)
{
    CLI::App& command = *application.add_subcommand("man", "Prints the manual page of the program, in roff.");
    command.footer("Examples:\n"
                   "  quor man | man -l -");
    Command made{&command, {}};
    made.runAlone = [&application] {
        Print(ManPage(Describe(application), GetVersion()));
        return Success;
    };
    return made;
}

Command MakeCompletionCommand(CLI::App& application)
{
    using Script = std::string (*)(const CommandDescription&);
    static const std::map<std::string, Script> shells = {
        {"bash", BashCompletion}, {"zsh", ZshCompletion}, {"fish", FishCompletion}};
    const auto shell = std::make_shared<std::string>();
    CLI::App& command = *application.add_subcommand(
        "completion", "Prints a script that completes the command line in a shell.");
    command.add_option("SHELL", *shell, "Shell that the script is for")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish"}));
    command.footer("Examples:\n"
                   "  source <(quor completion bash)\n"
                   "  quor completion fish > ~/.config/fish/completions/quor.fish");
    Command made{&command, {}};
    made.runAlone = [&application, shell] {
        Print(shells.at(*shell)(Describe(application)));
        return Success;
    };
    return made;
}

} // namespace Veld::Quor::Tools

#include "tools/quor/Program.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/foundation/service/Log.h"
#include "tools/quor/Version.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace {

/// The subcommand that the command line got to, for a pointer to its help.
std::string NameOfHelp(const CLI::App& application)
{
    const auto asked = application.get_subcommands();
    return asked.empty() ? "quor --help" : fmt::format("quor {} --help", asked.front()->get_name());
}

/// The commands that have the option.
std::vector<std::string> OwnersOf(const std::string& option, const CLI::App& application)
{
    std::vector<std::string> owners;
    for (const CLI::App* const command : application.get_subcommands({})) {
        if (command->get_option_no_throw(option.substr(0, option.find('='))))
            owners.push_back("quor " + command->get_name());
    }
    return owners;
}

/// What the program or its command doesn't know, and what may have been meant.
std::string UnknownText(const CLI::App& application)
{
    const auto asked = application.get_subcommands();
    const CLI::App& command = asked.empty() ? application : *asked.front();
    const std::vector<std::string> rest = application.remaining(true);
    const std::string word = rest.empty() ? std::string() : rest.front();
    const bool isOption = word.starts_with('-');
    std::vector<std::string> known;
    for (const CLI::App* const subcommand : application.get_subcommands({}))
        known.push_back(subcommand->get_name());
    if (isOption) {
        known.clear();
        for (const CLI::Option* const option : command.get_options({}))
            known.push_back(option->get_name());
    }
    const std::string text = isOption ? fmt::format("unknown option '{}'", word)
        : asked.empty()               ? fmt::format("unknown command '{}'", word)
                                      : fmt::format("unexpected argument '{}'", word);
    if (const auto owners = OwnersOf(word, application); isOption && !owners.empty())
        return fmt::format("{}; it is an option of {}", text, fmt::join(owners, ", "));
    const auto nearest =
        isOption || asked.empty() ? Decks::FindNearest(known, word) : std::vector<std::string>();
    return nearest.empty() ? text : fmt::format("{}; did you mean {}?", text, fmt::join(nearest, ", "));
}

int ReportUsageError(const CLI::App& application, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0) { // help or version was asked for
        std::ostringstream text;
        application.exit(error, text, text);
        Print(text.str());
        return Success;
    }
    const auto* const extras = dynamic_cast<const CLI::ExtrasError*>(&error);
    PrintError(extras ? UnknownText(application) : error.what());
    PrintAside(fmt::format("run '{}' for usage\n", NameOfHelp(application)));
    return Failure;
}

/// What a format for programs says of a command that failed: it is never without a text.
void PrintFailures(const CLI::App& command)
{
    const CLI::Option* const format = command.get_option_no_throw("--format");
    const bool isJson = format && !format->empty() && ToLower(format->as<std::string>()) == "json";
    if (!isJson || HasPrinted())
        return;
    auto failures = nlohmann::ordered_json::array();
    for (const std::string& message : GetErrors())
        failures.push_back({{"deck", nullptr}, {"message", message}});
    Print(ToText(WithVersion({{"failures", failures}})));
}

/// Runs it on the language, unless it needs none. What it throws is a failure.
int Run(const Command& command)
{
    int status = Failure;
    try {
        if (command.runAlone) {
            status = command.runAlone();
        } else {
            LoadedLanguage language(command.documents ? command.documents() : std::vector<std::string>());
            status = command.run(language);
        }
    } catch (const std::bad_alloc&) {
        PrintOutOfMemory();
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    if (status == Failure)
        PrintFailures(*command.app);
    return status;
}

/// The JSON library asks for memory in a destructor.
[[noreturn]] void EndAtOnce()
{
    try {
        if (const std::exception_ptr error = std::current_exception())
            std::rethrow_exception(error);
    } catch (const std::bad_alloc&) {
        PrintOutOfMemory();
        std::_Exit(Failure);
    } catch (...) { // NOLINT(bugprone-empty-catch): the process ends with it
    }
    std::abort();
}

/// What the library logs, in its form: it quotes names of files and texts of documents.
void PrintLogged(const char* text, Core::Service::MessageSeverity severity)
{
    constexpr const char* names[] = {"debug", "info", "warning", "error", "fatal"}; // by severity
    PrintAside(fmt::format("{}: {}\n", names[static_cast<int>(severity)], MakePrintable(text)));
}

/// In the order of the help.
std::vector<Command> AddCommands(CLI::App& application)
{
    return {
        MakeCheckCommand(application),
        MakeInfoCommand(application),
        MakeFormatCommand(application),
        MakeGetCommand(application),
        MakeSetCommand(application),
        MakeDumpCommand(application),
        MakeDiffCommand(application),
        MakePortCommand(application),
        MakeReportCommand(application),
        MakeExplainCommand(application),
        MakeShowCommand(application),
        MakeListCommand(application),
        MakeLintCommand(application),
        MakeSyntaxCommand(application),
        MakeSettingsCommand(application),
        MakeLanguageServerCommand(application),
        MakeManualCommand(application),
        MakeManCommand(application),
        MakeCompletionCommand(application),
    };
}

int RunCommand(int argc, char** argv)
{
    CLI::App application(
        "Checks, formats, compares and summarizes reservoir simulator decks, and shows the keywords of\n"
        "their language.");
    application.name("quor");
    application.set_version_flag("--version", fmt::format("quor {}", GetVersion()));
    application.require_subcommand(0, 1);
    application.footer(
        "Environment: The language is built in. QUOR_KEYWORD_SYNTAX_FILE names a document that\n"
        "replaces it, QUOR_KEYWORD_TRUSTED_SYNTAX_DIR a folder of documents with trusted keywords. If\n"
        "NO_COLOR is not empty, text is printed without colours.\n\n"
        "Settings: quor.toml in the folder of a deck, or the nearest above it, has the settings of a "
        "project;\n"
        "'quor settings' prints them.\n\n"
        "Exit status: 0 success, 1 findings, differences, losses or unknown keywords, 2 invalid usage, or "
        "a file\n"
        "can't be read or written, 3 warnings of a check and no errors.");
    const std::vector<Command> commands = AddCommands(application);
    try {
        application.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return ReportUsageError(application, error);
    }
    for (const Command& command : commands) {
        if (command.app->parsed())
            return Run(command);
    }
    PrintAside(application.help());
    return Failure;
}

} // namespace

ExitStatus Worse(ExitStatus a, ExitStatus b)
{
    constexpr int ranks[] = {0, 2, 3, 1}; // by status
    return ranks[a] < ranks[b] ? b : a;
}

int RunProgram(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN); // a reader that goes away is a failed write, reported by the exit status
    std::signal(SIGXFSZ, SIG_IGN); // so is a file that may grow no further
    std::set_terminate(EndAtOnce);
    Core::Service::Log::SetHandler(PrintLogged);
    Decks::SourceText::AllowMapping();
    int status = Failure;
    try {
        status = RunCommand(argc, argv);
    } catch (const std::bad_alloc&) {
        PrintOutOfMemory();
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    return FlushOutput() ? status : static_cast<int>(Failure);
}

} // namespace Veld::Quor::Tools

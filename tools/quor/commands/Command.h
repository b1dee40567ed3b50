#pragma once

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

class LoadedLanguage;

/// What the program says of its work by its exit status.
enum ExitStatus : int {
    Success = 0,
    HasFindings = 1, ///< or differences, or losses, or a keyword is not known
    Failure = 2, ///< wrong usage, or something could not be read or written
    HasWarnings = 3, ///< of a check: warnings and no errors
};

/// What is said of two works: a failure before findings before warnings.
ExitStatus Worse(ExitStatus a, ExitStatus b);

/// One subcommand.
struct Command {
    const CLI::App* app; ///< tells whether it was asked for; owned by the application
    std::function<int(LoadedLanguage&)> run; ///< gives the exit status
    std::function<std::vector<std::string>()> documents = {}; ///< with which the language is loaded; none
    std::function<int()> runAlone = {}; ///< in its place, for one that must not load the language
};

/// Each adds its subcommand to the application.
Command MakeListCommand(CLI::App& application);
Command MakeShowCommand(CLI::App& application);
Command MakeCheckCommand(CLI::App& application);
Command MakeInfoCommand(CLI::App& application);
Command MakeFormatCommand(CLI::App& application);
Command MakeGetCommand(CLI::App& application);
Command MakeSetCommand(CLI::App& application);
Command MakeDumpCommand(CLI::App& application);
Command MakeDiffCommand(CLI::App& application);
Command MakePortCommand(CLI::App& application);
Command MakeReportCommand(CLI::App& application);
Command MakeLintCommand(CLI::App& application);
Command MakeSyntaxCommand(CLI::App& application);
Command MakeExplainCommand(CLI::App& application);
Command MakeSettingsCommand(CLI::App& application);
Command MakeLanguageServerCommand(CLI::App& application);
Command MakeManualCommand(CLI::App& application);
Command MakeManCommand(CLI::App& application);
Command MakeCompletionCommand(CLI::App& application);

} // namespace Veld::Quor::Tools

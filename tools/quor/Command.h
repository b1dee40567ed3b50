#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

class LoadedLanguage;

/// One subcommand.
struct Command {
    const CLI::App* app; ///< tells whether it was asked for; owned by the application
    std::function<int(LoadedLanguage&)> run; ///< gives the exit status
    std::function<int()> runAlone = {}; ///< in its place, for one that must not load the language
};

/// Each adds its subcommand to the application.
Command MakeListCommand(CLI::App& application);
Command MakeShowCommand(CLI::App& application);
Command MakeCheckCommand(CLI::App& application);
Command MakeInfoCommand(CLI::App& application);
Command MakeFormatCommand(CLI::App& application);
Command MakeDiffCommand(CLI::App& application);
Command MakePortCommand(CLI::App& application);
Command MakeLintCommand(CLI::App& application);
Command MakeExplainCommand(CLI::App& application);
Command MakeManCommand(CLI::App& application);
Command MakeCompletionCommand(CLI::App& application);

} // namespace Veld::Quor::Tools

#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

struct OptionDescription {
    std::vector<std::string> names; ///< with their hyphens; empty: it goes by its position
    std::string value; ///< what stands for the value; empty: it has none
    std::vector<std::string> choices; ///< of the value; empty: any
    std::string lister =
        {}; ///< a command of the shell that prints the choices, where they may change; or empty
    std::string help;
    bool isRequired = false;
    bool isRepeated = false; ///< takes several values in a row
};

/// What the command line of a command understands, in plain data.
struct CommandDescription {
    std::string name;
    std::string text; ///< what it is for
    std::vector<OptionDescription> options; ///< those with names, then the others
    std::vector<std::string> notes; ///< paragraphs, in which lines that begin with a blank stay lines
    std::vector<CommandDescription> commands;
};

CommandDescription Describe(const CLI::App& application);

/// The first sentence, without its full stop, on one line.
std::string FirstSentence(const std::string& text);

} // namespace Veld::Quor::Tools

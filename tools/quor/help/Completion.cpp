#include "tools/quor/help/Completion.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>

namespace Veld::Quor::Tools {

namespace {

using Words = std::vector<std::string>;

std::string Replace(const std::string& text, const std::string& marks, const std::string& before)
{
    std::string replaced;
    for (const char c : text) {
        if (marks.find(c) != std::string::npos)
            replaced += before;
        replaced += c;
    }
    return replaced;
}

/// In single quotes, as all shells take it.
std::string Quote(std::string_view text)
{
    std::string quoted;
    for (const char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return fmt::format("'{}'", quoted);
}

/// As a list of words that may hold blanks, for bash.
std::string BashList(const Words& words)
{
    return Quote(fmt::format("{}", fmt::join(words, "|")));
}

/// The same for zsh and fish.
std::string EscapedList(const Words& words)
{
    std::string list;
    for (const std::string& word : words)
        list += fmt::format("{}{}", list.empty() ? "" : " ", Replace(word, " ", "\\"));
    return list;
}

Words CommandNames(const CommandDescription& program)
{
    Words names;
    for (const CommandDescription& command : program.commands)
        names.push_back(command.name);
    return names;
}

Words OptionNames(const CommandDescription& command)
{
    Words names;
    for (const OptionDescription& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

/// The branches for what may follow an option, of `command`.
std::string BashValues(const CommandDescription& command)
{
    std::string text;
    for (const OptionDescription& option : command.options) {
        for (const std::string& name : option.names) {
            if (!option.value.empty())
                text +=
                    fmt::format("        {}:{}) words={} ;;\n", command.name, name, BashList(option.choices));
        }
    }
    return text;
}

/// The branches for the other words of `command`.
std::string BashWords(const CommandDescription& command)
{
    std::string text =
        fmt::format("            {}:-*) words={} ;;\n", command.name, BashList(OptionNames(command)));
    for (const OptionDescription& option : command.options) {
        if (!option.lister.empty())
            text += fmt::format(
                "            {}:*) words=$({} | paste -s -d '|') ;;\n", command.name, option.lister);
        if (option.names.empty() && !option.choices.empty())
            text += fmt::format("            {}:*) words={} ;;\n", command.name, BashList(option.choices));
    }
    return text;
}

/// A part of what _arguments of zsh takes, in which brackets and colons have a meaning.
std::string ZshText(const std::string& text)
{
    return Replace(FirstSentence(text), "[]:\\", "\\");
}

std::string ZshValue(const OptionDescription& option)
{
    if (!option.lister.empty())
        return fmt::format(":{}:{{compadd $({})}}", option.value, option.lister);
    if (option.choices.empty())
        return fmt::format(":{}:_files", option.value);
    return fmt::format(":{}:({})", option.value, EscapedList(option.choices));
}

std::string ZshOptions(const CommandDescription& command)
{
    std::string text = "_arguments";
    const auto add = [&text](const std::string& part) {
        text += fmt::format(" \\\n            {}", Quote(part));
    };
    for (const OptionDescription& option : command.options) {
        const std::string value = option.value.empty() ? "" : ZshValue(option);
        for (const std::string& name : option.names)
            add(fmt::format("{}[{}]{}", name, ZshText(option.help), value));
        if (option.names.empty())
            add(fmt::format("{}{}", option.isRepeated ? "*" : "", value));
    }
    return text;
}

std::string FishOption(const std::string& condition, const OptionDescription& option)
{
    std::string text = condition;
    for (const std::string& name : option.names)
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (!option.lister.empty())
        text += fmt::format(" -f -a \"({})\"", option.lister);
    else if (!option.choices.empty())
        text +=
            fmt::format(" {} -a {}", option.names.empty() ? "-f" : "-x", Quote(EscapedList(option.choices)));
    else if (!option.value.empty())
        text += " -r -F";
    return fmt::format("{} -d {}\n", text, Quote(FirstSentence(option.help)));
}

} // namespace

std::string BashCompletion(const CommandDescription& program)
{
    std::string values;
    std::string words = fmt::format("            :-*) words={} ;;\n            :*) words={} ;;\n",
        BashList(OptionNames(program)), BashList(CommandNames(program)));
    for (const CommandDescription& command : program.commands) {
        values += BashValues(command);
        words += BashWords(command);
    }
    constexpr const char* script = R"(_{0}()
{{
    local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD-1]}} command= words= i
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${{COMP_WORDS[COMP_CWORD-2]}}
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${{COMP_WORDS[i]}} in
            {1}) command=${{COMP_WORDS[i]}}; break ;;
        esac
    done
    case $command:$previous in
{2}        *)
            case $command:$current in
{3}            esac ;;
    esac
    local IFS='|'
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "${{current//\\/}}")
    COMPREPLY=("${{COMPREPLY[@]// /\\ }}")
}}
complete -o default -F _{0} {0}
)";
    return fmt::format(script, program.name, fmt::join(CommandNames(program), "|"), values, words);
}

std::string ZshCompletion(const CommandDescription& program)
{
    std::string commands;
    std::string branches;
    for (const CommandDescription& command : program.commands) {
        commands +=
            fmt::format("        {}\n", Quote(fmt::format("{}:{}", command.name, ZshText(command.text))));
        branches += fmt::format("        {})\n        {}\n        ;;\n", command.name, ZshOptions(command));
    }
    constexpr const char* script = R"(#compdef {0}

_{0}() {{
    local -a commands=(
{1}    )
    if (( CURRENT == 2 )); then
        _describe command commands
        {2}
        return
    fi
    shift words
    (( CURRENT-- ))
    case $words[1] in
{3}    esac
}}

_{0} "$@"
)";
    return fmt::format(script, program.name, commands, ZshOptions(program), branches);
}

std::string FishCompletion(const CommandDescription& program)
{
    const std::string outside = fmt::format("complete -c {} -n __fish_use_subcommand", program.name);
    std::string text;
    for (const OptionDescription& option : program.options)
        text += FishOption(outside, option);
    for (const CommandDescription& command : program.commands) {
        text += fmt::format("{} -f -a {} -d {}\n", outside, command.name, Quote(FirstSentence(command.text)));
        const std::string inside =
            fmt::format("complete -c {} -n '__fish_seen_subcommand_from {}'", program.name, command.name);
        for (const OptionDescription& option : command.options) {
            if (!option.names.empty() || !option.choices.empty() || !option.lister.empty())
                text += FishOption(inside, option);
        }
    }
    return text;
}

} // namespace Veld::Quor::Tools

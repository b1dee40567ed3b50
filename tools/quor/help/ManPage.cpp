#include "tools/quor/help/ManPage.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <sstream>

namespace Veld::Quor::Tools {

namespace {

/// As roff prints it, wherever it is.
std::string Escape(const std::string& text)
{
    std::string escaped;
    for (const char c : text) {
        if (c == '\\')
            escaped += "\\e";
        else if (c == '-')
            escaped += "\\-";
        else if (c == '\'')
            escaped += "\\(aq";
        else
            escaped += c;
    }
    return escaped.starts_with('.') ? "\\&" + escaped : escaped;
}

/// Lines that begin with a blank stay lines; the others flow.
std::string Flow(const std::string& text)
{
    std::string flow;
    bool isLiteral = false;
    std::istringstream lines(text);
    lines.exceptions(std::ios::badbit); // else memory that runs out ends it early
    for (std::string line; std::getline(lines, line);) {
        const bool begins = line.starts_with(' ');
        if (begins != isLiteral)
            flow += begins ? ".nf\n" : ".fi\n";
        isLiteral = begins;
        flow += Escape(line) + '\n';
    }
    return isLiteral ? flow + ".fi\n" : flow;
}

std::string Head(const OptionDescription& option)
{
    std::vector<std::string> names;
    for (const std::string& name : option.names)
        names.push_back(fmt::format("\\fB{}\\fR", Escape(name)));
    std::string head = fmt::format("{}", fmt::join(names, ", "));
    if (!option.value.empty())
        head += fmt::format("{}\\fI{}\\fR", names.empty() ? "" : " ", Escape(option.value));
    return head;
}

std::string OptionText(const OptionDescription& option)
{
    constexpr std::size_t mostChoices = 40; // more of them are no help to a reader
    std::string help = option.help + (option.help.ends_with('.') ? "" : ".");
    if (!option.choices.empty() && option.choices.size() <= mostChoices)
        help += fmt::format("\nOne of: {}.", fmt::join(option.choices, ", "));
    return fmt::format(".TP\n{}\n{}", Head(option), Flow(help));
}

/// "quor check [OPTION]... DECK..."
std::string Synopsis(const std::string& program, const CommandDescription& command)
{
    std::string synopsis = fmt::format("{} {} [OPTION]...", program, command.name);
    for (const OptionDescription& option : command.options) {
        if (!option.names.empty())
            continue;
        const std::string value = option.value + (option.isRepeated ? "..." : "");
        synopsis += option.isRequired ? " " + value : fmt::format(" [{}]", value);
    }
    return Escape(synopsis);
}

std::string CommandText(const std::string& program, const CommandDescription& command)
{
    std::string text = fmt::format(".SS \"{}\"\n{}", Synopsis(program, command), Flow(command.text));
    for (const OptionDescription& option : command.options)
        text += OptionText(option);
    for (const std::string& note : command.notes)
        text += ".PP\n" + Flow(note);
    return text;
}

std::string NoteText(const std::string& note)
{
    const std::size_t colon = note.find(": ");
    if (colon == std::string::npos || colon > note.find('\n'))
        return ".SH NOTES\n" + Flow(note);
    return fmt::format(".SH {}\n{}", Escape(ToUpper(note.substr(0, colon))), Flow(note.substr(colon + 2)));
}

} // namespace

std::string ManPage(const CommandDescription& program, const std::string& version)
{
    std::string page = fmt::format(".TH {} 1 \"\" \"{} {}\"\n.SH NAME\n{} \\- {}\n.SH SYNOPSIS\n.B {}\n",
        ToUpper(program.name), program.name, Escape(version), program.name,
        Escape(FirstSentence(program.text)), program.name);
    page +=
        "\\fICOMMAND\\fR [\\fIOPTION\\fR]... [\\fIARGUMENT\\fR]...\n.SH DESCRIPTION\n" + Flow(program.text);
    page += ".SH COMMANDS\n";
    for (const CommandDescription& command : program.commands)
        page += CommandText(program.name, command);
    page += ".SH OPTIONS\n";
    for (const OptionDescription& option : program.options)
        page += OptionText(option);
    for (const std::string& note : program.notes)
        page += NoteText(note);
    return page;
}

} // namespace Veld::Quor::Tools

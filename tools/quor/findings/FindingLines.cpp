#include "tools/quor/findings/FindingLines.h"

#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Finding;
using Decks::Severity;

namespace {

template <class Line>
std::string ForEachFinding(const FindingSets& sets, Line line)
{
    std::string text;
    for (const FindingSet& set : sets) {
        for (const Finding& finding : *set.findings)
            text += line(finding);
    }
    return text;
}

std::string WithHint(const Finding& finding)
{
    const std::string message = WithMore(finding);
    return finding.hint.empty() ? message : fmt::format("{}; {}", message, finding.hint);
}

/// Other locations in lines of their own, as compilers print them.
std::string GccLines(const Finding& finding)
{
    std::string text = MakePrintable(ToString(finding)) + '\n';
    for (const Decks::RelatedLocation& other : finding.related)
        text += fmt::format("{}:{}:{}: note: {}\n", MakePrintable(other.location.file), other.location.line,
            other.location.column, MakePrintable(other.message));
    return text;
}

/// Other locations in the message: an annotation has one.
std::string WithRelated(const Finding& finding)
{
    std::string message = MakePrintable(WithHint(finding));
    for (const Decks::RelatedLocation& other : finding.related)
        message += '\n'
            + MakePrintable(
                fmt::format("{}:{}: {}", other.location.file, other.location.line, other.message));
    return message;
}

/// `marks` are written as a percent sign and their code.
std::string Escape(const std::string& text, std::string_view marks)
{
    std::string escaped;
    for (const char c : text) {
        if (marks.find(c) == std::string_view::npos)
            escaped += c;
        else
            escaped += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
    return escaped;
}

const char* CommandOf(Severity severity)
{
    return severity == Severity::Note ? "notice" : ToString(severity);
}

} // namespace

std::string GccText(const FindingSets& sets)
{
    return ForEachFinding(sets, GccLines);
}

std::string GitHubText(const FindingSets& sets)
{
    return ForEachFinding(sets, [](const Finding& finding) {
        return fmt::format("::{} file={},line={},col={},title={}::{}\n", CommandOf(finding.severity),
            Escape(MakePrintable(finding.location.file), "%\r\n:,"), finding.location.line,
            finding.location.column, Escape(finding.code, "%\r\n:,"), Escape(WithRelated(finding), "%\r\n"));
    });
}

std::string GitHubFailure(const std::string& message)
{
    return fmt::format("::error::{}\n", Escape(message, "%\r\n"));
}

} // namespace Veld::Quor::Tools

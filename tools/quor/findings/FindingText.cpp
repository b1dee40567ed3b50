#include "tools/quor/findings/FindingText.h"

#include "quor/deck/FindingCodes.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Finding;
using Decks::Severity;

namespace {

/// Terminal sequences around coloured text; empty without colours.
class Colours {
public:
    explicit Colours(bool wanted)
        : wanted_(wanted)
    {
    }

    std::string Paint(const char* code, const std::string& text) const
    {
        return wanted_ ? fmt::format("\x1b[{}m{}\x1b[0m", code, text) : text;
    }
    static const char* CodeOf(Severity severity)
    {
        switch (severity) {
        case Severity::Error:
            return "1;31";
        case Severity::Warning:
            return "1;35";
        case Severity::Note:
            return "1;36";
        }
        return "0";
    }

private:
    bool wanted_;
};

/// The source line and, below it, the mark. Empty if the finding has no line to show.
std::string ExcerptText(const Finding& finding, const Colours& colours)
{
    if (finding.excerpt.empty())
        return "";
    const std::string_view excerpt = finding.excerpt;
    const std::size_t offset = std::min(finding.location.column - finding.excerptColumn, excerpt.size());
    std::string margin;
    for (const char c : MakePrintable(excerpt.substr(0, offset)))
        margin.append(CountCharacters({&c, 1}), c == '\t' ? '\t' : ' ');
    const std::size_t length =
        std::max<std::size_t>(CountCharacters(MakePrintable(excerpt.substr(offset, finding.length))), 1);
    const std::string mark = '^' + std::string(length - 1, '~');
    return fmt::format("    {}\n    {}{}\n", MakePrintable(excerpt), margin, colours.Paint("1;32", mark));
}

/// With the option that helps, which the library can't know.
std::string HintText(const Finding& finding)
{
    const bool isOfVariable = finding.code == InfoOf(Decks::Code::UnknownVariable).name;
    return MakePrintable(finding.hint) + (isOfVariable ? " with --set NAME=VALUE" : "");
}

std::string FindingText(const Finding& finding, const Colours& colours)
{
    const std::string severity = colours.Paint(Colours::CodeOf(finding.severity), ToString(finding.severity));
    std::string text =
        fmt::format("{}:{}:{}: {}: {} [{}]\n", MakePrintable(finding.location.file), finding.location.line,
            finding.location.column, severity, MakePrintable(finding.message), finding.code);
    text += ExcerptText(finding, colours);
    if (!finding.hint.empty())
        text += fmt::format("  hint: {}\n", HintText(finding));
    if (finding.more > 0)
        text += fmt::format("  {}; use --all to show each\n", MoreText(finding));
    for (const Decks::RelatedLocation& other : finding.related)
        text += fmt::format("  see {}:{}:{}: {}\n", MakePrintable(other.location.file), other.location.line,
            other.location.column, MakePrintable(other.message));
    for (const Decks::Location& location : finding.includedFrom)
        text += fmt::format("  included from {}:{}\n", MakePrintable(location.file), location.line);
    return text;
}

} // namespace

std::string FindingsText(const Decks::Findings& findings)
{
    const Colours colours(TakesColour());
    std::string text;
    for (const Finding& finding : findings.GetKept())
        text += FindingText(finding, colours);
    if (const std::size_t omitted = findings.GetOmittedCount(); omitted > 0)
        text += fmt::format("{} not shown; use --max-findings to show more\n", Plural(omitted, "finding"));
    return text;
}

std::string WithMore(const Finding& finding)
{
    return finding.more == 0 ? finding.message : fmt::format("{}, {}", finding.message, MoreText(finding));
}

std::string CountsText(const Decks::Findings& findings)
{
    std::vector<std::string> counts;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (findings.GetCount(severity) > 0)
            counts.push_back(Plural(findings.GetCount(severity), ToString(severity)));
    }
    if (findings.IsClean())
        counts.insert(counts.begin(), "no findings");
    if (const std::size_t known = findings.GetHiddenCount(Decks::Hiding::Known); known > 0)
        counts.push_back(Plural(known, "known finding") + " hidden");
    if (const std::size_t suppressed = findings.GetHiddenCount(Decks::Hiding::Suppressed); suppressed > 0)
        counts.push_back(fmt::format("{} suppressed", suppressed));
    return fmt::format("{}", fmt::join(counts, ", "));
}

std::string Plural(std::size_t count, const char* word)
{
    return fmt::format("{} {}{}", count, word, count == 1 ? "" : "s");
}

} // namespace Veld::Quor::Tools

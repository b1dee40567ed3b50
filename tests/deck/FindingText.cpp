#include "tests/deck/FindingText.h"

#include <fmt/format.h>

namespace Veld::Quor::Tests {

using namespace Core::Decks;

std::string Dump(const Findings& findings, const std::filesystem::path& folder)
{
    std::string text;
    for (const Finding& finding : findings.GetKept()) {
        text += fmt::format("{}{}:{}:{}: {}: {} [{}]", text.empty() ? "" : "\n", finding.location.file,
            finding.location.line, finding.location.column, ToString(finding.severity), finding.message,
            finding.code);
        if (!finding.hint.empty())
            text += " | " + finding.hint;
        for (const RelatedLocation& at : finding.related)
            text += fmt::format(
                " ({}:{}:{}: {})", at.location.file, at.location.line, at.location.column, at.message);
        for (const Location& at : finding.includedFrom)
            text += fmt::format(" <- {}:{}:{}", at.file, at.line, at.column);
    }
    const std::string prefix = folder.string() + "/";
    for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix, at))
        text.erase(at, prefix.size());
    return text;
}

} // namespace Veld::Quor::Tests

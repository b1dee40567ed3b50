#include "tools/quor/findings/FindingJson.h"

#include <nlohmann/json.hpp>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Severity;

nlohmann::ordered_json FindingJson(const Decks::Finding& finding, const Fix& fix)
{
    auto includedFrom = nlohmann::ordered_json::array();
    for (const Decks::Location& location : finding.includedFrom)
        includedFrom.push_back(
            {{"file", location.file}, {"line", location.line}, {"column", location.column}});
    auto related = nlohmann::ordered_json::array();
    for (const Decks::RelatedLocation& other : finding.related)
        related.push_back({{"file", other.location.file}, {"line", other.location.line},
            {"column", other.location.column}, {"message", other.message}});
    auto changes = nlohmann::ordered_json::array();
    for (const FixPart& part : fix)
        changes.push_back({{"file", part.location.file}, {"line", part.location.line},
            {"column", part.location.column}, {"length", part.length}, {"text", part.text}});
    return {{"code", finding.code}, {"severity", ToString(finding.severity)}, {"file", finding.location.file},
        {"line", finding.location.line}, {"column", finding.location.column}, {"length", finding.length},
        {"message", finding.message}, {"hint", finding.hint}, {"includedFrom", includedFrom},
        {"related", related}, {"fix", changes}, {"more", finding.more}};
}

nlohmann::ordered_json CountsJson(const FindingSets& sets)
{
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
    std::size_t omitted = 0;
    std::size_t known = 0;
    std::size_t suppressed = 0;
    for (const FindingSet& set : sets) {
        const Decks::Findings* const findings = set.findings;
        errors += findings->GetCount(Severity::Error);
        warnings += findings->GetCount(Severity::Warning);
        notes += findings->GetCount(Severity::Note);
        omitted += findings->GetOmittedCount();
        known += findings->GetHiddenCount(Decks::Hiding::Known);
        suppressed += findings->GetHiddenCount(Decks::Hiding::Suppressed);
    }
    return {{"errors", errors}, {"warnings", warnings}, {"notes", notes}, {"omitted", omitted},
        {"known", known}, {"suppressed", suppressed}};
}

} // namespace Veld::Quor::Tools

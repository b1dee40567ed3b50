#include "tools/quor/findings/FindingSarif.h"

#include "tools/quor/Version.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Finding;
using Json = nlohmann::ordered_json;

namespace {

/// A path as a reference to a resource: bytes that have a meaning there, or none, are written by their code.
std::string UriOf(const std::string& path)
{
    constexpr std::string_view plain = "-._~/!$&'()*+,;=@";
    std::string uri;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && (std::isalnum(byte) || plain.find(c) != std::string_view::npos))
            uri += c;
        else
            uri += fmt::format("%{:02X}", byte);
    }
    return path.starts_with('/') ? "file://" + uri : uri;
}

/// Columns count characters here, and bytes in a finding. Of a long line not all is known: then bytes have to
/// do.
Json RegionOf(const Finding& finding)
{
    const std::size_t offset = finding.location.column - finding.excerptColumn;
    const std::string_view excerpt = finding.excerpt;
    const std::size_t begin = std::min(offset, excerpt.size());
    const std::size_t column = finding.excerptColumn + CountCharacters(excerpt.substr(0, begin));
    const std::size_t length =
        std::max<std::size_t>(CountCharacters(excerpt.substr(begin, finding.length)), 1);
    return {{"startLine", finding.location.line}, {"startColumn", column}, {"endColumn", column + length}};
}

Json LocationOf(const Decks::Location& location, const Json& region)
{
    return {
        {"physicalLocation", {{"artifactLocation", {{"uri", UriOf(location.file)}}}, {"region", region}}}};
}

/// What goes, and what comes in its place; each file once.
Json FixOf(const Fix& fix)
{
    Json changes = Json::array();
    std::string file;
    for (const FixPart& part : fix) {
        if (changes.empty() || file != part.location.file)
            changes.push_back({{"artifactLocation", {{"uri", UriOf(part.location.file)}}},
                {"replacements", Json::array()}});
        file = part.location.file;
        Json replacement = {{"deletedRegion",
            {{"startLine", part.begin.line}, {"startColumn", part.begin.column}, {"endLine", part.end.line},
                {"endColumn", part.end.column}}}};
        if (!part.text.empty())
            replacement["insertedContent"] = {{"text", part.text}};
        changes.back()["replacements"].push_back(std::move(replacement));
    }
    return {{"artifactChanges", changes}};
}

Json ResultOf(const Finding& finding, const Fix& fix, std::size_t ruleIndex)
{
    const std::string message = WithMore(finding);
    const std::string text = finding.hint.empty() ? message : fmt::format("{}; {}", message, finding.hint);
    Json result = {{"ruleId", finding.code}, {"ruleIndex", ruleIndex}, {"level", ToString(finding.severity)},
        {"message", {{"text", text}}},
        {"locations", Json::array({LocationOf(finding.location, RegionOf(finding))})}};
    for (const Decks::RelatedLocation& other : finding.related) {
        Json related = LocationOf(other.location, {{"startLine", other.location.line}});
        related["message"] = {{"text", other.message}};
        result["relatedLocations"].push_back(std::move(related));
    }
    for (const Decks::Location& location : finding.includedFrom)
        result["relatedLocations"].push_back(LocationOf(location, {{"startLine", location.line}}));
    if (!fix.empty())
        result["fixes"] = Json::array({FixOf(fix)});
    return result;
}

Json RuleOf(const Decks::CodeInfo& code)
{
    return {{"id", code.name}, {"defaultConfiguration", {{"level", ToString(code.severity)}}},
        {"shortDescription", {{"text", code.meaning}}}, {"help", {{"text", code.remedy}}}};
}

} // namespace

std::string SarifText(const FindingSets& sets, const std::vector<Decks::CodeInfo>& codes)
{
    std::map<std::string, std::size_t> indices;
    Json rules = Json::array();
    for (const Decks::CodeInfo& code : codes) {
        indices.emplace(code.name, rules.size());
        rules.push_back(RuleOf(code));
    }
    // A rule that a host's document has may have a code that only its findings know.
    const auto indexOf = [&](const Finding& finding) {
        const auto [at, isNew] = indices.emplace(finding.code, rules.size());
        if (isNew)
            rules.push_back(
                {{"id", finding.code}, {"defaultConfiguration", {{"level", ToString(finding.severity)}}}});
        return at->second;
    };
    Json results = Json::array();
    for (const FindingSet& set : sets) {
        const std::vector<Finding>& findings = set.findings->GetKept();
        for (std::size_t i = 0; i < findings.size(); ++i)
            results.push_back(
                ResultOf(findings[i], set.fixes ? (*set.fixes)[i] : Fix(), indexOf(findings[i])));
    }
    const Json driver = {{"name", "quor"}, {"version", GetVersion()}, {"rules", rules}};
    const Json run = {
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}};
    return ToText({{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"}, {"version", "2.1.0"},
        {"runs", Json::array({run})}});
}

} // namespace Veld::Quor::Tools

#include "tools/quor/FindingSarif.h"

#include "tools/quor/Json.h"
#include "tools/quor/Terminal.h"
#include "tools/quor/Version.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <map>

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

Json ResultOf(const Finding& finding, std::size_t ruleIndex)
{
    const std::string text =
        finding.hint.empty() ? finding.message : fmt::format("{}; {}", finding.message, finding.hint);
    Json result = {{"ruleId", finding.code}, {"ruleIndex", ruleIndex}, {"level", ToString(finding.severity)},
        {"message", {{"text", text}}},
        {"locations", Json::array({LocationOf(finding.location, RegionOf(finding))})}};
    for (const Decks::Location& location : finding.includedFrom)
        result["relatedLocations"].push_back(LocationOf(location, {{"startLine", location.line}}));
    return result;
}

Json RuleOf(const FindingRule& rule)
{
    Json json = {{"id", rule.code}, {"defaultConfiguration", {{"level", ToString(rule.severity)}}}};
    if (!rule.meaning.empty())
        json["shortDescription"] = {{"text", rule.meaning}};
    return json;
}

} // namespace

std::string SarifText(const FindingSets& sets, const std::vector<FindingRule>& rules)
{
    std::map<std::string, std::size_t> indices;
    Json ruleArray = Json::array();
    const auto addRule = [&](const FindingRule& rule) {
        const auto [at, isNew] = indices.try_emplace(rule.code, indices.size());
        if (isNew)
            ruleArray.push_back(RuleOf(rule));
        return at->second;
    };
    std::for_each(rules.begin(), rules.end(), addRule);
    Json results = Json::array();
    for (const Decks::Findings* const findings : sets) {
        for (const Finding& finding : findings->GetKept())
            results.push_back(ResultOf(finding, addRule({finding.code, {}, finding.severity})));
    }
    const Json driver = {{"name", "quor"}, {"version", GetVersion()}, {"rules", ruleArray}};
    const Json run = {
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}};
    return ToText({{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"}, {"version", "2.1.0"},
        {"runs", Json::array({run})}});
}

} // namespace Veld::Quor::Tools

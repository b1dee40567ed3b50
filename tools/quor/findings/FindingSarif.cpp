#include "tools/quor/findings/FindingSarif.h"

#include "tools/quor/Version.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <map>
#include <new>
#include <system_error>
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

constexpr const char* root = "SRCROOT";

/// The current folder, with a slash at its end.
std::string RootPath()
{
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
    return (folder / "").string();
}

/// A file below the current folder is relative to it, so that the log is the same on all machines.
Json ArtifactOf(const std::string& path)
{
    const std::string folder = RootPath();
    const bool isBelow = path.starts_with(folder);
    if (path.starts_with('/') && !isBelow)
        return {{"uri", UriOf(path)}};
    const std::string relative =
        std::filesystem::path(isBelow ? path.substr(folder.size()) : path).lexically_normal().string();
    return {{"uri", UriOf(relative)}, {"uriBaseId", root}};
}

/// Stays the same when lines come and go elsewhere: of the code, the file and the text of the line.
std::string FingerprintOf(const Finding& finding)
{
    constexpr std::string_view blanks = " \t";
    const std::string& excerpt = finding.excerpt;
    const std::size_t first = std::min(excerpt.find_first_not_of(blanks), excerpt.size());
    const std::string line = excerpt.substr(first, excerpt.find_last_not_of(blanks) + 1 - first);
    const std::string file = ArtifactOf(finding.location.file)["uri"];
    std::uint64_t hash = 14695981039346656037U; // FNV-1a
    for (const char c : fmt::format("{}\n{}\n{}", finding.code, file, line))
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return fmt::format("{:016x}", hash);
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
    return {{"physicalLocation", {{"artifactLocation", ArtifactOf(location.file)}, {"region", region}}}};
}

/// What goes, and what comes in its place; each file once.
Json FixOf(const Fix& fix)
{
    Json changes = Json::array();
    std::string file;
    for (const FixPart& part : fix) {
        if (changes.empty() || file != part.location.file)
            changes.push_back(
                {{"artifactLocation", ArtifactOf(part.location.file)}, {"replacements", Json::array()}});
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

Json ResultOf(const Finding& finding, const Fix& fix)
{
    const std::string message = WithMore(finding);
    const std::string text = finding.hint.empty() ? message : fmt::format("{}; {}", message, finding.hint);
    Json result = {{"ruleId", finding.code}, {"level", ToString(finding.severity)},
        {"message", {{"text", text}}}, {"partialFingerprints", {{"codeFileLine/v1", FingerprintOf(finding)}}},
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
    const std::string help = fmt::format(
        "{}\n\nWrong:\n\n```\n{}```\n\nRight:\n\n```\n{}```\n", code.remedy, code.wrong, code.right);
    const bool hasExample = code.wrong[0] != '\0';
    return {{"id", code.name}, {"defaultConfiguration", {{"level", ToString(code.severity)}}},
        {"shortDescription", {{"text", code.meaning}}},
        {"help", {{"text", code.remedy}, {"markdown", hasExample ? help : std::string(code.remedy)}}}};
}

/// Numbers those that are alike, and says which rule each is of. A rule that a host's document has may have a
/// code that only its findings know.
Json CompleteResults(Json& results, const std::vector<Decks::CodeInfo>& codes)
{
    Json rules = Json::array();
    std::map<std::string, std::size_t> indices;
    for (const Decks::CodeInfo& code : codes) {
        indices.emplace(code.name, rules.size());
        rules.push_back(RuleOf(code));
    }
    std::map<std::string, std::size_t> alike;
    for (Json& result : results) {
        const auto [at, isNew] = indices.emplace(result["ruleId"], rules.size());
        if (isNew)
            rules.push_back(
                {{"id", result["ruleId"]}, {"defaultConfiguration", {{"level", result["level"]}}}});
        result["ruleIndex"] = at->second;
        Json& fingerprint = result["partialFingerprints"]["codeFileLine/v1"];
        fingerprint = fmt::format("{}:{}", fingerprint.get<std::string>(), ++alike[fingerprint]);
    }
    return rules;
}

Json InvocationOf(const std::vector<std::string>& failures)
{
    Json invocation = {{"executionSuccessful", failures.empty()}};
    for (const std::string& failure : failures)
        invocation["toolExecutionNotifications"].push_back(
            {{"level", "error"}, {"message", {{"text", failure}}}});
    return invocation;
}

} // namespace

Json SarifResults(const FindingSet& set)
{
    Json results = Json::array();
    const std::vector<Finding>& findings = set.findings->GetKept();
    for (std::size_t i = 0; i < findings.size(); ++i)
        results.push_back(ResultOf(findings[i], set.fixes ? (*set.fixes)[i] : Fix()));
    return results;
}

std::string SarifLog(
    Json results, const std::vector<Decks::CodeInfo>& codes, const std::vector<std::string>& failures)
{
    const Json rules = CompleteResults(results, codes);
    const Json driver = {{"name", "quor"}, {"version", GetVersion()}, {"rules", rules}};
    const Json run = {{"tool", {{"driver", driver}}}, {"invocations", Json::array({InvocationOf(failures)})},
        {"originalUriBaseIds", {{root, {{"uri", UriOf(RootPath())}}}}}, {"columnKind", "unicodeCodePoints"},
        {"results", std::move(results)}};
    return ToText({{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"}, {"version", "2.1.0"},
        {"runs", Json::array({run})}});
}

} // namespace Veld::Quor::Tools

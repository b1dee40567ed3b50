#include "tools/quor/findings/FindingFormat.h"

#include "tools/quor/findings/FindingLines.h"
#include "tools/quor/findings/FindingSarif.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>

namespace Veld::Quor::Tools {

namespace {

const char* FormatWord(FindingFormat format)
{
    static constexpr const char* words[] = {"text", "json", "jsonl", "sarif", "junit", "gcc", "github"};
    return words[static_cast<std::size_t>(format)];
}

} // namespace

void AddFindingFormatOption(
    CLI::App& command, FindingFormat& format, const std::vector<FindingFormat>& formats)
{
    std::vector<std::string> words;
    for (const FindingFormat known : formats)
        words.emplace_back(FormatWord(known));
    const auto set = [&format, formats](const std::string& word) {
        format = *std::find_if(formats.begin(), formats.end(),
            [&word](FindingFormat known) { return FormatWord(known) == word; });
    };
    command.add_option_function<std::string>("--format", set, "Output format; the default is text")
        ->transform(CLI::IsMember(words, CLI::ignore_case))
        ->type_name("NAME")
        ->take_last();
}

std::string FindingsText(
    FindingFormat format, const FindingSet& set, const std::vector<Core::Decks::CodeInfo>& codes)
{
    switch (format) {
    case FindingFormat::Text:
    case FindingFormat::Json:
    case FindingFormat::Jsonl:
    case FindingFormat::JUnit:
        break;
    case FindingFormat::Sarif:
        return SarifLog(SarifResults(set), codes, {});
    case FindingFormat::Gcc:
        return GccText({set});
    case FindingFormat::GitHub:
        return GitHubText({set});
    }
    return {};
}

} // namespace Veld::Quor::Tools

#include "tools/quor/findings/FindingFormat.h"

#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/findings/FindingLines.h"
#include "tools/quor/findings/FindingSarif.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <map>

namespace Veld::Quor::Tools {

void AddFindingFormatOption(CLI::App& command, FindingFormat& format)
{
    static const std::map<std::string, FindingFormat> formats = {{"text", FindingFormat::Text},
        {"json", FindingFormat::Json}, {"sarif", FindingFormat::Sarif}, {"gcc", FindingFormat::Gcc},
        {"github", FindingFormat::GitHub}};
    command
        .add_option_function<std::string>(
            "--format", [&format](const std::string& word) { format = formats.at(word); },
            "Output format; the default is text")
        ->transform(CLI::IsMember({"text", "json", "sarif", "gcc", "github"}, CLI::ignore_case))
        ->type_name("NAME")
        ->take_last();
}

void AddMaxFindingsOption(CLI::App& command, std::size_t& limit, const std::string& scope)
{
    AddCountOption(command, "--max-findings",
        fmt::format("Maximum number of findings printed{}; the others are only counted", scope), limit,
        Into(limit));
}

std::string FindingsText(
    FindingFormat format, const FindingSets& sets, const std::vector<Core::Decks::CodeInfo>& codes)
{
    switch (format) {
    case FindingFormat::Text:
    case FindingFormat::Json:
        break;
    case FindingFormat::Sarif:
        return SarifText(sets, codes);
    case FindingFormat::Gcc:
        return GccText(sets);
    case FindingFormat::GitHub:
        return GitHubText(sets);
    }
    return {};
}

} // namespace Veld::Quor::Tools

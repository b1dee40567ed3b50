#include "quor/deck/DeckLanguage.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/findings/FindingCodes.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {
namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

struct ExplainOptions {
    std::vector<std::string> names; // none: all
    bool isJson = false;
};

/// Nothing for an empty text.
std::string ExampleText(const char* label, const Decks::CodeInfo& info, const char* example)
{
    std::istringstream lines(example);
    lines.exceptions(std::ios::badbit); // else memory that runs out ends it early
    std::string text;
    for (std::string line; std::getline(lines, line);)
        text += fmt::format("    {}\n", line);
    const bool isForAny = info.target.simulator == SimulatorType::Any;
    const std::string target = isForAny ? "" : fmt::format(", for {}", NameOf(info.target));
    return text.empty() ? text : fmt::format("  {}{}:\n{}", label, target, text);
}

std::string CodeText(const FindingCode& code)
{
    constexpr std::size_t indent = 2;
    const Decks::CodeInfo& info = *code.info;
    std::string text = fmt::format("{}\n", info.name);
    text += Wrap(fmt::format("  {} of 'quor {}': ", ToString(info.severity), code.command), info.meaning, 4,
        GetWidth());
    text += Wrap("  to fix: ", info.remedy, 2 * indent, GetWidth());
    if (*info.source != '\0')
        text += Wrap("  source: ", info.source, 2 * indent, GetWidth());
    if (*code.seeAlso != '\0')
        text += fmt::format("  see also: {}\n", code.seeAlso);
    return text + ExampleText("wrong", info, info.wrong) + ExampleText("right", info, info.right);
}

nlohmann::ordered_json CodeJson(const FindingCode& code)
{
    const Decks::CodeInfo& info = *code.info;
    nlohmann::ordered_json json = {{"code", info.name}, {"command", code.command},
        {"severity", ToString(info.severity)}, {"meaning", info.meaning}, {"remedy", info.remedy}};
    if (*info.source != '\0')
        json["source"] = info.source;
    if (*info.wrong != '\0')
        json["wrong"] = info.wrong;
    if (*info.right != '\0')
        json["right"] = info.right;
    if (info.target.simulator != SimulatorType::Any)
        json["for"] = NameOf(info.target);
    return json;
}

std::string ListText(const std::vector<FindingCode>& codes)
{
    Columns columns({"code", "command", "severity", "meaning"});
    for (const FindingCode& code : codes)
        columns.Add({code.info->name, code.command, ToString(code.info->severity), code.info->meaning});
    std::string text = columns.GetHead(0);
    for (std::size_t i = 0; i < codes.size(); ++i)
        text += columns.GetRow(i, 0, GetWidth());
    return text;
}

void ReportUnknown(const std::string& name)
{
    const auto nearest = Decks::FindNearest(FindingCodeNames(), name);
    PrintError(fmt::format("unknown finding code '{}'{}", name,
        nearest.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(nearest, ", "))));
    if (nearest.empty())
        PrintAside("'quor explain' lists all codes\n");
}

void PrintCodes(const std::vector<FindingCode>& codes, const ExplainOptions& options)
{
    if (options.isJson) {
        auto list = nlohmann::ordered_json::array();
        for (const FindingCode& code : codes)
            list.push_back(CodeJson(code));
        Print(ToText(WithVersion({{"codes", list}})));
    } else if (options.names.empty()) {
        Print(ListText(codes));
    } else {
        for (const FindingCode& code : codes)
            Print((&code == &codes.front() ? "" : "\n") + CodeText(code));
    }
}

int Explain(const ExplainOptions& options)
{
    std::vector<FindingCode> codes = options.names.empty() ? AllFindingCodes() : std::vector<FindingCode>();
    int status = Success;
    for (const std::string& name : options.names) {
        const std::vector<FindingCode> found = FindFindingCodes(name);
        codes.insert(codes.end(), found.begin(), found.end());
        if (found.empty()) {
            ReportUnknown(name);
            status = HasFindings;
        }
    }
    PrintCodes(codes, options);
    return status;
}

} // namespace

Command MakeExplainCommand(CLI::App& application)
{
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App& command = *application.add_subcommand(
        "explain", "Explains finding codes and how to fix them. Without a code, lists all codes.");
    command.add_option("CODE", options->names, "Finding codes, as printed in brackets after a finding");
    AddFormatOption(command, options->isJson);
    command.footer("Examples:\n"
                   "  quor explain\n"
                   "  quor explain wrong-section unclosed-data");
    Command made{&command, {}};
    made.runAlone = [options] { return Explain(*options); };
    return made;
}

} // namespace Veld::Quor::Tools

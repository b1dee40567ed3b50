#include "tools/quor/report/ReportJson.h"

#include "quor/deck/CellArrays.h"
#include "quor/deck/DeckSummary.h"
#include "quor/deck/DeckUnits.h"
#include "quor/syntax/KeywordSyntaxTable.h"
#include "tools/quor/commands/SummaryJson.h"
#include "tools/quor/findings/FindingJson.h"
#include "tools/quor/report/GroupHistory.h"
#include "tools/quor/report/LiftTables.h"
#include "tools/quor/report/ReportTables.h"
#include "tools/quor/report/WellHistory.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using nlohmann::ordered_json;

namespace {

ordered_json ArrayJson(const std::string& name, const Decks::Deck& deck, const Decks::DeckLanguage& language)
{
    ordered_json json = {{"name", name}, {"text", ""}, {"unit", ""}, {"role", ""}};
    const IKeywordSyntax* const syntax = KeywordSyntaxTable::Instance().Lookup(name, true);
    if (!syntax)
        return json;
    json["text"] = syntax->GetDescription();
    if (const auto measurements = MeasurementsOf(*syntax); measurements.size() == 1)
        json["unit"] = UnitText(measurements.front(), Decks::UnitSystemOf(deck));
    for (const Decks::KeywordRole& role : language.GetRoles(*syntax)) {
        if (role.item.empty())
            json["role"] = role.role;
    }
    json["isWhole"] = ValueTypeOf(*syntax) == MDType::Integer;
    return json;
}

void AddArrays(const Decks::Deck& deck, const Decks::DeckLanguage& language, ordered_json& report,
    std::vector<ReportValues>& values)
{
    Decks::CellArrays found = Decks::FindCellArrays(deck);
    report["grid"] = found.grid;
    report["arrays"] = ordered_json::array();
    for (const Decks::CellArray& array : found.arrays) {
        ordered_json json = ArrayJson(array.name, deck, language);
        json["values"] = values.size(); // where they are
        report["arrays"].push_back(std::move(json));
        values.emplace_back(array.values.begin(), array.values.end());
    }
}

/// The dates of the steps, the start first, and what the schedule does after each.
void AddSchedule(const Decks::Deck& deck, const Decks::DeckLanguage& language, ordered_json& report)
{
    report["steps"] = ordered_json::array({Decks::DateText(deck.GetStart())});
    for (const Decks::ReportStep& step : deck.GetSteps())
        report["steps"].push_back(Decks::DateText(step.time));
    WellHistory wells(deck, language);
    GroupHistory groups(deck, language);
    std::vector<std::map<std::string, std::size_t>> events(deck.GetSteps().size() + 1);
    for (const Decks::DeckKeyword& keyword : deck.GetSection(SectionType::SCHEDULE)) {
        const Decks::ReportStep* const step = keyword.FindStep();
        const std::size_t number = step ? static_cast<std::size_t>(step - deck.GetSteps().data()) + 1 : 0;
        ++events.at(number)[keyword.GetName()];
        wells.Follow(keyword, number);
        groups.Follow(keyword, number);
    }
    report["events"] = events;
    report["wells"] = wells.GetWells();
    report["groups"] = groups.GetTree();
    report["rootGroup"] = groups.GetRoot();
    report["series"] = ordered_json::array();
    wells.GetSeries().Write(report["series"]);
    groups.GetSeries().Write(report["series"]);
}

ordered_json FindingsJson(const Decks::Deck& deck)
{
    constexpr std::size_t most = 1000;
    auto list = ordered_json::array();
    for (const Decks::Finding& finding : deck.GetFindings().Fold(most)) {
        list.push_back(FindingJson(finding));
        list.back()["excerpt"] = finding.excerpt;
    }
    return list;
}

void CutFolder(ordered_json& path, const std::string& folder)
{
    auto& text = path.get_ref<std::string&>();
    if (text.starts_with(folder))
        text.erase(0, folder.size());
}

/// Sentences quote paths.
void CutQuotedFolder(ordered_json& sentence, const std::string& folder)
{
    auto& text = sentence.get_ref<std::string&>();
    for (std::size_t at = text.find('\'' + folder); at != std::string::npos;
         at = text.find('\'' + folder, at))
        text.erase(at + 1, folder.size());
}

/// In the members that name files. The others have texts of the deck, which may begin as its folder does.
void CutFolders(ordered_json& json, const std::string& folder)
{
    for (const auto& [member, value] : json.items()) {
        if (member == "file" || member == "deck")
            CutFolder(value, folder);
        else if (member == "message")
            CutQuotedFolder(value, folder);
        else if (value.is_structured())
            CutFolders(value, folder);
        if (member == "files") {
            for (ordered_json& file : value)
                CutFolder(file["name"], folder);
        }
    }
}

} // namespace

void NameFilesFromFolder(ordered_json& json, const std::string& deck)
{
    // A deck in the root has no folder to cut: texts quote the slash that ends data.
    if (const std::size_t end = deck.rfind('/'); end != std::string::npos && end > 0)
        CutFolders(json, deck.substr(0, end + 1));
}

ordered_json ReportJson(const Decks::Deck& deck, const Decks::DeckLanguage& language, const std::string& path,
    std::vector<ReportValues>& values)
{
    ordered_json report = {{"label", ""}, {"summary", SummaryJson(Decks::Summarize(deck), path)},
        {"system", UnitSystem::ToString(Decks::UnitSystemOf(deck))},
        {"target", Decks::NameOf(deck.GetTarget())}, {"tables", ReportTables(deck, language)},
        {"lift", LiftTables(deck, language)}, {"findings", FindingsJson(deck)}};
    AddArrays(deck, language, report, values);
    AddSchedule(deck, language, report);
    NameFilesFromFolder(report["summary"], path); // the rest has members by names of the deck
    NameFilesFromFolder(report["findings"], path);
    return report;
}

} // namespace Veld::Quor::Tools

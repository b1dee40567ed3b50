#include "tools/quor/report/WellHistory.h"

#include "quor/data/Access.h"
#include "quor/deck/DeckUnits.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/report/ListedRecord.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using nlohmann::ordered_json;
using MDType = IKeywordDataMD::MDType;

namespace {

/// 0 for an item that isn't there or isn't given.
int NumberAt(const IKeywordRecordData& record, int item)
{
    return item < 0 ? 0 : Get<int>(record, item).ValueOr(0);
}

} // namespace

WellHistory::WellHistory(const Decks::Deck& deck, const Decks::DeckLanguage& language)
    : language_(language)
    , series_(Decks::UnitSystemOf(deck), "well")
{
}

const WellHistory::Plan& WellHistory::PlanOf(const IKeywordSyntax& syntax)
{
    const auto [plan, isNew] = plans_.try_emplace(&syntax);
    if (isNew)
        plan->second = MakePlan(syntax);
    return plan->second;
}

WellHistory::Plan WellHistory::MakePlan(const IKeywordSyntax& syntax) const
{
    Plan plan;
    const IKeywordRecordMD* const record = FindListedRecord(syntax);
    if (!record)
        return plan;
    for (const Decks::KeywordRule& rule : language_.GetRules(syntax)) {
        const bool isOfWells = rule.what == "well" && (rule.kind == "defines" || rule.kind == "refers-to");
        const int item = isOfWells ? FindItem(*record, rule.item, MDType::String) : -1;
        if (item < 0 || plan.well >= 0)
            continue;
        plan.well = item;
        plan.introduces = rule.kind == "defines";
    }
    for (const Decks::KeywordRole& role : language_.GetRoles(syntax))
        AddRole(role, *record, plan);
    if (*plan.state != '\0')
        plan.targets = TargetSeries::FindItems(*record);
    return plan;
}

void WellHistory::AddRole(const Decks::KeywordRole& role, const IKeywordRecordMD& record, Plan& plan)
{
    const int number = FindItem(record, role.item, MDType::Integer);
    if (role.role == "production of well" || role.role == "injection of well")
        plan.state = role.role == "production of well" ? "produces" : "injects";
    else if (role.role == "status of well")
        plan.status = FindItem(record, role.item, MDType::Choice);
    else if (role.role == "cell of status")
        plan.cellsOfStatus.push_back(number);
    else if (role.role == "head I" || role.role == "head J")
        (role.role == "head I" ? plan.headI : plan.headJ) = number;
    else if (role.role == "changed target")
        plan.changed = FindItem(record, role.item, MDType::Choice);
    else if (role.role == "new target")
        plan.newTarget = FindItem(record, role.item, MDType::Real);
    static constexpr const char* cells[] = {
        "connection I", "connection J", "connection first K", "connection last K"};
    for (std::size_t i = 0; i < std::size(cells); ++i) {
        if (role.role == cells[i])
            plan.connection[i] = number;
    }
}

void WellHistory::Follow(const Decks::DeckKeyword& keyword, std::size_t step)
{
    const Plan& plan = PlanOf(keyword.GetSyntax());
    if (plan.well < 0 || !keyword.FindData() || !keyword.IsSound())
        return;
    step_ = step;
    for (const Record& record : Records(AsList(keyword.GetData())))
        FollowRecord(keyword, plan, record);
}

/// The wells that the name means: one, or those that begin with what is before an asterisk.
std::vector<std::string> WellHistory::FindWells(const std::string& pattern) const
{
    if (!pattern.ends_with('*'))
        return wells_.contains(pattern) ? std::vector{pattern} : std::vector<std::string>();
    std::vector<std::string> names;
    const std::string stem = pattern.substr(0, pattern.size() - 1);
    for (auto well = wells_.lower_bound(stem); well != wells_.end() && well->first.starts_with(stem); ++well)
        names.push_back(well->first);
    return names;
}

void WellHistory::FollowRecord(const Decks::DeckKeyword& keyword, const Plan& plan, const Record& record)
{
    const std::string name = ToUpper(Get<std::string>(record, plan.well).ValueOr(""));
    if (plan.introduces && !name.empty() && !wells_.contains(name))
        wells_[name] = {{"since", step_},
            {"head", {NumberAt(record, plan.headI), NumberAt(record, plan.headJ)}},
            {"connections", ordered_json::array()}, {"states", ordered_json::array()},
            {"events", ordered_json::array()}};
    for (const std::string& found : FindWells(name)) {
        ordered_json& well = wells_[found];
        ordered_json& events = well["events"];
        const ordered_json event = {step_, keyword.GetName()};
        if (events.empty() || events.back() != event)
            events.push_back(event);
        AddConnection(plan, record, well);
        AddState(plan, record, well);
        AddValues(keyword, plan, record, found);
    }
}

void WellHistory::AddConnection(const Plan& plan, const Record& record, ordered_json& well) const
{
    if (plan.connection[0] < 0)
        return;
    int cells[4];
    for (std::size_t i = 0; i < std::size(cells); ++i)
        cells[i] = NumberAt(record, plan.connection[i]);
    for (std::size_t i = 0; i < 2; ++i) { // 0: where the head is
        if (cells[i] == 0)
            cells[i] = well["head"][i].get<int>();
    }
    well["connections"].push_back({cells[0], cells[1], cells[2], cells[3], step_});
}

/// A word of a status that says that the well is open leaves open what it does: then it is as it was.
void WellHistory::AddState(const Plan& plan, const Record& record, ordered_json& well) const
{
    const auto isGiven = [&](int item) { return NumberAt(record, item) > 0; };
    const bool isOfCell = std::any_of(plan.cellsOfStatus.begin(), plan.cellsOfStatus.end(), isGiven);
    if ((*plan.state == '\0' && plan.status < 0) || isOfCell)
        return;
    const std::string status =
        plan.status < 0 ? "" : GetChoiceOrDefault(record, plan.status, SimulatorType::Any).ValueOr("");
    const std::string state = status.empty() || status == "OPEN" ? plan.state : status;
    well["states"].push_back({step_, state});
}

/// A target that is changed is one of the keyword that controls the well, under the name of its item.
void WellHistory::AddValues(
    const Decks::DeckKeyword& keyword, const Plan& plan, const Record& record, const std::string& well)
{
    series_.Add(keyword.GetName(), plan.targets, record, well, step_);
    if (*plan.state != '\0')
        controls_[well] = keyword.GetName();
    if (plan.changed < 0 || plan.newTarget < 0 || !controls_.contains(well))
        return;
    const auto word = GetChoice(record, plan.changed);
    const auto value = Get<double>(record, plan.newTarget);
    if (word && value)
        series_.Change(controls_.at(well), *word, well, step_, *value);
}

} // namespace Veld::Quor::Tools

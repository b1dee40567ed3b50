#include "tools/quor/report/GroupHistory.h"

#include "quor/data/Access.h"
#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckUnits.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/report/ListedRecord.h"
#include "tools/quor/terminal/TextLayout.h"

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

/// Left out, it is the default, which is the root.
std::string NameAt(const IKeywordRecordData& record, int item)
{
    return ToUpper(GetOrDefault<std::string>(record, item, SimulatorType::Any).ValueOr(""));
}

} // namespace

GroupHistory::GroupHistory(const Decks::Deck& deck, const Decks::DeckLanguage& language)
    : language_(language)
    , series_(Decks::UnitSystemOf(deck), "group")
{
}

const GroupHistory::Plan& GroupHistory::PlanOf(const IKeywordSyntax& syntax)
{
    const auto [plan, isNew] = plans_.try_emplace(&syntax);
    if (isNew)
        plan->second = MakePlan(syntax);
    return plan->second;
}

GroupHistory::Plan GroupHistory::MakePlan(const IKeywordSyntax& syntax)
{
    Plan plan;
    const IKeywordRecordMD* const record = FindListedRecord(syntax);
    if (!record)
        return plan;
    for (const Decks::KeywordRole& role : language_.GetRoles(syntax)) {
        if (role.role == "well that begins")
            plan.well = FindItem(*record, role.item, MDType::String);
        else if (role.role == "group of well")
            plan.groupOfWell = FindItem(*record, role.item, MDType::String);
        else if (role.role == "group in the tree" || role.role == "targets of group")
            plan.group = FindItem(*record, role.item, MDType::String);
        else if (role.role == "group above")
            plan.above = FindItem(*record, role.item, MDType::String);
        if (role.role == "targets of group")
            plan.targets = TargetSeries::FindItems(*record);
    }
    for (const int item : {plan.groupOfWell, plan.above}) {
        if (item >= 0 && root_.empty())
            root_ = static_cast<const IKeywordStringMD&>(*record->GetItemMD(item))
                        .GetDefault(SimulatorType::Any)
                        .ValueOr("");
    }
    return plan;
}

void GroupHistory::Follow(const Decks::DeckKeyword& keyword, std::size_t step)
{
    const Plan& plan = PlanOf(keyword.GetSyntax());
    if ((plan.group < 0 && plan.groupOfWell < 0) || !keyword.FindData() || !keyword.IsSound())
        return;
    for (const Record& record : Records(AsList(keyword.GetData()))) {
        if (plan.well >= 0 && plan.groupOfWell >= 0)
            Place(NameAt(record, plan.well), NameAt(record, plan.groupOfWell), true, step);
        if (plan.group >= 0 && plan.above >= 0)
            Place(NameAt(record, plan.group), NameAt(record, plan.above), false, step);
        if (plan.group >= 0)
            series_.Add(keyword.GetName(), plan.targets, record, NameAt(record, plan.group), step);
    }
}

void GroupHistory::Place(const std::string& name, const std::string& above, bool isWell, std::size_t step)
{
    std::string& last = groupsAbove_[isWell ? ' ' + name : name];
    if (name.empty() || last == above)
        return;
    last = above;
    tree_.push_back({step, name, above, isWell});
}

} // namespace Veld::Quor::Tools

#include "quor/deck/internal/read/values/DataPlan.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/IValidityMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

DataPlan MakePlan(const IKeywordDataMD& md, const Target& target);

template <class Numeric>
void PlanLimits(const Numeric& md, DataPlan& plan)
{
    plan.min = md.GetMin() ? static_cast<double>(*md.GetMin()) : plan.min;
    plan.max = md.GetMax() ? static_cast<double>(*md.GetMax()) : plan.max;
}

bool IsWordLetter(char c)
{
    return IsLetter(c) || IsDigit(c);
}

/// Those that match no more than themselves, and are valid and have an effect.
void PlanChoices(const IKeywordChoiceMD& md, const Target& target, DataPlan& plan)
{
    for (int i = 0; i < md.NumChoices(); ++i) {
        const std::string& word = md.GetChoice(i);
        const bool isUsed = target.simulator == SimulatorType::Any
            || (md.GetValidity(i).IsValid(target.simulator, target.mode)
                && !md.GetUnsupportedBy(i).IsUnsupportedBy(target.simulator, target.mode));
        const ChoiceMatch match = isUsed ? md.Match(word) : ChoiceMatch();
        if (match.index == i && match.kind == ChoiceMatch::Kind::Word && !match.needsWarning)
            plan.choices.push_back({word, i, std::all_of(word.begin(), word.end(), IsWordLetter)});
    }
}

bool IsPlainItem(const DataPlan& item)
{
    return item.IsScalar() && item.type != MDType::Line && item.type != MDType::Assignment
        && item.constraint == DataPlan::Constraint::None;
}

void PlanRecord(const IKeywordRecordMD& md, const Target& target, DataPlan& plan)
{
    plan.termination = md.GetTermination();
    for (int i = 0; i < md.GetSize(); ++i) {
        DataPlan& item = plan.items.emplace_back(MakePlan(*md.GetItemMD(i), target));
        item.isOptional = md.IsOptional(i);
        item.isIdentifier = md.IsIdentifier(i);
        if (item.type == MDType::Integer || item.type == MDType::Real) // nothing else has an order
            item.constraint = md.GetColumnConstraint(i);
        plan.slots += item.slots;
        plan.hasConstraints = plan.hasConstraints || item.constraint != DataPlan::Constraint::None;
        if (target.simulator != SimulatorType::Any) {
            item.isValid = md.GetValidity(i).IsValid(target.simulator, target.mode);
            item.isUnsupported = md.GetUnsupportedBy(i).IsUnsupportedBy(target.simulator, target.mode);
        }
        if (item.isValid && !item.MayBeMissing())
            plan.required = plan.items.size();
    }
    plan.isPlain = plan.termination == DataPlan::Termination::SLASH
        && std::all_of(plan.items.begin(), plan.items.end(), IsPlainItem);
}

void PlanList(const IKeywordListMD& md, const Target& target, DataPlan& plan)
{
    plan.termination = md.GetTermination();
    if (md.GetItemMD())
        plan.items.push_back(MakePlan(*md.GetItemMD(), target));
}

DataPlan MakePlan(const IKeywordDataMD& md, const Target& target)
{
    DataPlan plan;
    plan.type = md.GetType();
    plan.md = &md;
    plan.slots = plan.IsScalar() ? 1 : 0;
    if (KeywordUtils::IsItemMDType(plan.type) && plan.type != MDType::Assignment)
        plan.hasDefault = static_cast<const IKeywordItemMD&>(md).IsDefaultSpecified(target.simulator);
    switch (plan.type) {
    case MDType::Choice:
        PlanChoices(static_cast<const IKeywordChoiceMD&>(md), target, plan);
        break;
    case MDType::Integer:
        PlanLimits(static_cast<const IKeywordIntegerMD&>(md), plan);
        break;
    case MDType::Real:
        PlanLimits(static_cast<const IKeywordRealMD&>(md), plan);
        break;
    case MDType::String:
        plan.longest = static_cast<const IKeywordStringMD&>(md).LimitLengthTo();
        plan.takesComma = static_cast<const IKeywordStringMD&>(md).CanContainComma();
        break;
    case MDType::Record:
        PlanRecord(static_cast<const IKeywordRecordMD&>(md), target, plan);
        break;
    case MDType::List:
        PlanList(static_cast<const IKeywordListMD&>(md), target, plan);
        break;
    case MDType::Map:
        plan.termination = static_cast<const IKeywordMapMD&>(md).GetTermination();
        break;
    case MDType::Boolean:
    case MDType::Line:
    case MDType::Raw:
    case MDType::Assignment:
    case MDType::None:
        break;
    }
    return plan;
}

} // namespace

bool DataPlan::MayEndAt(std::size_t index) const
{
    return std::all_of(items.begin() + static_cast<std::ptrdiff_t>(index), items.end(),
        [](const DataPlan& item) { return item.IsScalar() && item.MayBeMissing(); });
}

const DataPlan& DataPlans::Get(const IKeywordDataMD& root, bool isOfCells)
{
    std::unique_ptr<DataPlan>& plan = plans_[&root];
    if (!plan)
        plan = std::make_unique<DataPlan>(MakePlan(root, target_));
    const bool isArray = isOfCells && plan->type == MDType::List && !plan->items.empty();
    if (isArray && plan->items.front().type == MDType::Integer)
        plan->items.front().min = std::min(plan->items.front().min, 0.0);
    return *plan;
}

const IKeywordListMD& ListMD(const DataPlan& list)
{
    return static_cast<const IKeywordListMD&>(*list.md);
}

std::string NameOf(const DataPlan& item)
{
    const std::string& name = item.md->GetName();
    return name.empty() ? fmt::format("item {}", item.md->GetItemNumber()) : name;
}

} // namespace Veld::Quor::Core::Decks

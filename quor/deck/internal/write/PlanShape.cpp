#include "quor/deck/internal/write/PlanShape.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/IKeywordListMD.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

using MDType = DataPlan::MDType;
using Termination = DataPlan::Termination;

bool IsOneLine(const DataPlan& plan)
{
    return plan.termination == Termination::EOL
        && (plan.items.empty() || plan.items.front().type != MDType::Line);
}

bool TakesSlash(const DataPlan& item)
{
    if (item.IsScalar())
        return false;
    if (item.termination != Termination::NONE)
        return true;
    return !item.items.empty()
        && (item.type == MDType::Record ? TakesSlash(item.items.front()) : !item.items.front().IsScalar());
}

bool NeedsWords(const DataPlan& list)
{
    return list.termination != Termination::NONE || IsOneLine(list.items.front());
}

bool IsNumber(const DataPlan& item)
{
    return item.type == MDType::Integer || item.type == MDType::Real;
}

bool IsFlat(const DataPlan& record)
{
    return record.type == MDType::Record
        && std::all_of(record.items.begin(), record.items.end(),
            [](const DataPlan& item) { return item.IsScalar() && item.type != MDType::Line; });
}

bool IsTabular(const DataPlan& record)
{
    if (record.type != MDType::Record || record.termination != Termination::NONE || record.items.size() < 2)
        return false;
    const DataPlan& last = record.items.back();
    const bool isLead = std::all_of(record.items.begin(), record.items.end() - 1,
        [](const DataPlan& item) { return item.IsScalar() && item.type != MDType::Line; });
    return isLead && last.type == MDType::List && last.termination == Termination::SLASH
        && IsFlat(last.items.front()) && last.items.front().termination == Termination::NONE
        && !ListMD(last).WriteStartingOnNewLine().ValueOr(false)
        && !ListMD(last).WriteTerminationOnNewLine().ValueOr(false);
}

const IKeywordData& NestedIn(const IKeywordRecordData& record, std::size_t index)
{
    return *static_cast<const IKeywordData*>(record.GetData(static_cast<int>(index)));
}

} // namespace Veld::Quor::Core::Decks

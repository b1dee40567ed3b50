#include "quor/deck/internal/write/DataWriter.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/write/PlanShape.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/IKeywordAssignmentMD.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void DataWriter::WriteMap(const DataPlan& plan, const IKeywordMapData& map)
{
    const bool isOneLine = plan.termination == DataPlan::Termination::EOL;
    lines_.SetWrapping(!isOneLine);
    WriteNames(map);
    lines_.SetWrapping(true);
    WriteEnd(plan, false);
}

void DataWriter::WriteNames(const IKeywordMapData& map)
{
    const DataVariables* const variables = notes_ ? notes_->variables.get() : nullptr;
    for (int i = 0; i < map.GetSize(); ++i) {
        const auto value = map.GetValue(i);
        const std::string& key = map.GetItemMD(i)->GetKeys().front();
        if (value && !(variables && variables->Find(map, key)))
            lines_.Word(*value == 1 ? key : fmt::format("{}={}", key, *value));
    }
    if (const auto* const keyed = variables
            ? dynamic_cast<const IKeywordMapDataVariables*>(variables->GetDataVariables(map))
            : nullptr) {
        for (const std::string& key : keyed->GetKeys()) {
            const std::string& text = keyed->GetVariablesString(key).GetString();
            lines_.Word(
                IsWord(text) ? fmt::format("{}={}", key, text) : fmt::format("{}= {}", key, Quote(text)));
        }
    }
}

} // namespace Veld::Quor::Core::Decks

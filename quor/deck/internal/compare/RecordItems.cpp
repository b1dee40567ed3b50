#include "quor/deck/internal/compare/RecordItems.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordRecordMD.h"

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

RecordItem FindItem(const IKeywordRecordData& record, const char* name, MDType::Enum type)
{
    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD& item = *md.GetItemMD(i);
        if (item.GetName() != name || item.GetType() != type)
            continue;
        const ScalarValue value = ItemValue(item, record.GetData(i));
        return {&item, IsGiven(value) ? value : DefaultOf(item, SimulatorType::Any).value};
    }
    return {};
}

std::string FindName(const IKeywordRecordData& record, const char* name)
{
    const RecordItem item = FindItem(record, name, MDType::String);
    return item.md ? ToUpper(ToText(*item.md, item.value)) : std::string();
}

std::string FindWord(const IKeywordRecordData& record, const char* name)
{
    const RecordItem item = FindItem(record, name, MDType::Choice);
    return item.md ? ToText(*item.md, item.value) : std::string();
}

int FindIndex(const IKeywordRecordData& record, const char* name)
{
    const RecordItem item = FindItem(record, name, MDType::Integer);
    return IsGiven(item.value) ? std::get<int>(item.value) : 0;
}

} // namespace Veld::Quor::Core::Decks

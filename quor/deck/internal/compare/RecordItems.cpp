#include "quor/deck/internal/compare/RecordItems.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordRecordMD.h"

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
int RecordItems::FindPlace(const Record& record, const char* name, MDType::Enum type)
{
    if (record.GetMD() != md_)
        places_.clear();
    md_ = record.GetMD();
    for (const Place& place : places_) {
        if (place.name == name && place.type == type)
            return place.item;
    }
    const auto& md = static_cast<const IKeywordRecordMD&>(*md_);
    int item = 0;
    while (item < md.GetSize()
        && (md.GetItemMD(item)->GetName() != name || md.GetItemMD(item)->GetType() != type))
        ++item;
    item = item < md.GetSize() ? item : -1;
    places_.push_back({name, type, item});
    return item;
}

RecordItem RecordItems::Find(const Record& record, const char* name, MDType::Enum type)
{
    const int place = FindPlace(record, name, type);
    if (place < 0)
        return {};
    const IKeywordDataMD& md = *static_cast<const IKeywordRecordMD&>(*md_).GetItemMD(place);
    RecordItem item{&md, ItemValue(md, record.GetData(place))};
    if (!IsGiven(item.value))
        item.value = DefaultOf(md, SimulatorType::Any).value;
    return item;
}

std::string RecordItems::FindName(const Record& record, const char* name)
{
    const RecordItem item = Find(record, name, MDType::String);
    return item.md ? ToUpper(ToText(*item.md, item.value)) : std::string();
}

std::string RecordItems::FindWord(const Record& record, const char* name)
{
    const RecordItem item = Find(record, name, MDType::Choice);
    return item.md ? ToText(*item.md, item.value) : std::string();
}

int RecordItems::FindIndex(const Record& record, const char* name)
{
    const RecordItem item = Find(record, name, MDType::Integer);
    return IsGiven(item.value) ? std::get<int>(item.value) : 0;
}

} // namespace Veld::Quor::Core::Decks

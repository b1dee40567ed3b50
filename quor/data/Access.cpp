#include "quor/data/Access.h"

#include "quor/data/internal/AccessCheck.h"
#include "quor/data/internal/ScalarOps.h"
#include "quor/foundation/internal/FloatValue.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordLineMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"

#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;
using Service::Optional;

namespace {

[[noreturn]] void FailName(
    const IKeywordRecordData& record, const IKeywordRecordMD& md, std::string_view name)
{
    std::vector<std::string> names;
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD* const item = md.GetItemMD(i);
        if (item && !item->GetName().empty())
            names.push_back(item->GetName());
    }
    FailAccess(record.GetSyntax(), "no item " + Quoted(name) + SuggestionOf(name, names));
}

int FindByName(const IKeywordRecordData& record, const IKeywordRecordMD& md, std::string_view name)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD* const item = md.GetItemMD(i);
        if (item && item->GetName() == name && !name.empty())
            return i;
    }
    FailName(record, md, name);
}

AccessSubject FindItem(const IKeywordRecordData& record, const ItemKey& key)
{
    const auto& md = CastMD<const IKeywordRecordMD>(*record.GetMD());
    const int index = key.IsName() ? FindByName(record, md, key.Name()) : key.Index();
    if (index < 0 || index >= record.GetSize())
        FailAccess(record.GetSyntax(),
            "item index " + std::to_string(index) + " is out of range; the record has "
                + Counted(record.GetSize(), "item"));
    return {record.GetSyntax(), md.GetItemMD(index), "item", index};
}

template <class T>
const Optional<T>& Stored(const IKeywordRecordData& record, const AccessSubject& item)
{
    return *static_cast<const Optional<T>*>(record.GetData(item.index));
}

template <class T>
Optional<T>& Stored(IKeywordRecordData& record, const AccessSubject& item)
{
    return *static_cast<Optional<T>*>(record.GetData(item.index));
}

/// How the item is stored. Throws `DataAccessError` if it is not a scalar.
const ScalarOps& OpsOf(const AccessSubject& item)
{
    const ScalarOps* const ops = FindScalarOps(item.Type());
    if (!ops)
        item.FailType("a scalar");
    return *ops;
}

template <class T>
void SetItem(IKeywordRecordData& record, const ItemKey& key, T value)
{
    const AccessSubject item = FindItem(record, key);
    CheckHolds<T>(item);
    Optional<T> given(std::move(value));
    if (!given) // only an int and a double give up a value for it
        item.Fail("cannot hold the value that stands for 'not given'");
    Stored<T>(record, item) = std::move(given);
}

template <class T>
Optional<T> DefaultOf(const IKeywordDataMD& md, SimulatorType::Enum simulator)
{
    if constexpr (std::is_same_v<T, bool>)
        return CastMD<const IKeywordBooleanMD>(md).GetDefault(simulator);
    else if constexpr (std::is_same_v<T, int>)
        return CastMD<const IKeywordIntegerMD>(md).GetDefault(simulator);
    else if constexpr (std::is_same_v<T, double>)
        return CastMD<const IKeywordRealMD>(md).GetDefault(simulator);
    else
        return md.GetType() == MDType::Line ? CastMD<const IKeywordLineMD>(md).GetDefault(simulator)
                                            : CastMD<const IKeywordStringMD>(md).GetDefault(simulator);
}

template <class Data>
auto& NestedIn(Data& record, const ItemKey& key, MDType::Enum type)
{
    const AccessSubject item = FindItem(record, key);
    item.CheckType(type);
    using Node = std::conditional_t<std::is_const_v<Data>, const IKeywordData, IKeywordData>;
    return *static_cast<Node*>(record.GetData(item.index));
}

} // namespace

template <class T>
Optional<T> Get(const IKeywordRecordData& record, ItemKey key)
{
    const AccessSubject item = FindItem(record, key);
    CheckHolds<T>(item);
    return Stored<T>(record, item);
}

template <class T>
Optional<T> GetOrDefault(const IKeywordRecordData& record, ItemKey key, SimulatorType::Enum simulator)
{
    const AccessSubject item = FindItem(record, key);
    CheckHolds<T>(item);
    const Optional<T>& value = Stored<T>(record, item);
    return value ? value : DefaultOf<T>(*item.md, simulator);
}

template VELD_QUOR_EXPORT Optional<bool> Get<bool>(const IKeywordRecordData&, ItemKey);
template VELD_QUOR_EXPORT Optional<int> Get<int>(const IKeywordRecordData&, ItemKey);
template VELD_QUOR_EXPORT Optional<double> Get<double>(const IKeywordRecordData&, ItemKey);
template VELD_QUOR_EXPORT Optional<std::string> Get<std::string>(const IKeywordRecordData&, ItemKey);
template VELD_QUOR_EXPORT Optional<bool> GetOrDefault<bool>(
    const IKeywordRecordData&, ItemKey, SimulatorType::Enum);
template VELD_QUOR_EXPORT Optional<int> GetOrDefault<int>(
    const IKeywordRecordData&, ItemKey, SimulatorType::Enum);
template VELD_QUOR_EXPORT Optional<double> GetOrDefault<double>(
    const IKeywordRecordData&, ItemKey, SimulatorType::Enum);
template VELD_QUOR_EXPORT Optional<std::string> GetOrDefault<std::string>(
    const IKeywordRecordData&, ItemKey, SimulatorType::Enum);

Optional<std::string> GetChoice(const IKeywordRecordData& record, ItemKey key)
{
    const AccessSubject item = FindItem(record, key);
    item.CheckType(MDType::Choice);
    const Optional<int>& index = Stored<int>(record, item);
    return index ? WordOfIndex(item, *index) : Optional<std::string>();
}

Optional<std::string> GetChoiceOrDefault(
    const IKeywordRecordData& record, ItemKey key, SimulatorType::Enum simulator)
{
    if (Optional<std::string> given = GetChoice(record, key))
        return given;
    const AccessSubject item = FindItem(record, key);
    const Optional<int> index = item.Choice().GetDefault(simulator);
    // -1: a default that names no choice
    return index && *index >= 0 ? WordOfIndex(item, *index) : Optional<std::string>();
}

bool Has(const IKeywordRecordData& record, ItemKey key)
{
    const AccessSubject item = FindItem(record, key);
    return OpsOf(item).hasValue(record.GetData(item.index));
}

void Set(IKeywordRecordData& record, ItemKey item, bool value)
{
    SetItem(record, item, value);
}

void Set(IKeywordRecordData& record, ItemKey item, int value)
{
    SetItem(record, item, value);
}

void Set(IKeywordRecordData& record, ItemKey item, double value)
{
    SetItem(record, item, value);
}

void Set(IKeywordRecordData& record, ItemKey item, float value)
{
    SetItem(record, item, ToDouble(value));
}

void Set(IKeywordRecordData& record, ItemKey item, std::string_view value)
{
    SetItem(record, item, std::string(value));
}

void Set(IKeywordRecordData& record, ItemKey item, const char* value)
{
    SetItem(record, item, std::string(GivenText(value)));
}

void SetChoice(IKeywordRecordData& record, ItemKey key, std::string_view word)
{
    const AccessSubject item = FindItem(record, key);
    Stored<int>(record, item) = IndexOfWord(item, word);
}

void Clear(IKeywordRecordData& record, ItemKey key)
{
    const AccessSubject item = FindItem(record, key);
    const ScalarOps& ops = OpsOf(item);
    ops.destroy(record.GetData(item.index));
    ops.construct(record.GetData(item.index));
}

IKeywordRecordData& RecordIn(IKeywordRecordData& record, ItemKey item)
{
    return AsRecord(NestedIn(record, item, MDType::Record));
}

const IKeywordRecordData& RecordIn(const IKeywordRecordData& record, ItemKey item)
{
    return AsRecord(NestedIn(record, item, MDType::Record));
}

IKeywordListData& ListIn(IKeywordRecordData& record, ItemKey item)
{
    return AsList(NestedIn(record, item, MDType::List));
}

const IKeywordListData& ListIn(const IKeywordRecordData& record, ItemKey item)
{
    return AsList(NestedIn(record, item, MDType::List));
}

IKeywordMapData& MapIn(IKeywordRecordData& record, ItemKey item)
{
    return AsMap(NestedIn(record, item, MDType::Map));
}

const IKeywordMapData& MapIn(const IKeywordRecordData& record, ItemKey item)
{
    return AsMap(NestedIn(record, item, MDType::Map));
}

IKeywordRawData& RawIn(IKeywordRecordData& record, ItemKey item)
{
    return AsRaw(NestedIn(record, item, MDType::Raw));
}

const IKeywordRawData& RawIn(const IKeywordRecordData& record, ItemKey item)
{
    return AsRaw(NestedIn(record, item, MDType::Raw));
}

} // namespace Veld::Quor::Core::Keywords

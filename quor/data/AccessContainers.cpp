#include "quor/data/Access.h"

#include "quor/data/KeywordMapDataHelper.h"
#include "quor/data/internal/AccessCheck.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/internal/MDCast.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;
using Service::Optional;

namespace {

template <class To, class Data>
To& Checked(Data& data, MDType::Enum type)
{
    AccessSubject{data.GetSyntax(), data.GetMD(), "the data"}.CheckType(type);
    return CastMD<To>(data);
}

template <class To>
const To& CheckedMD(const IKeywordDataMD& md, MDType::Enum type)
{
    AccessSubject{nullptr, &md, "the metadata"}.CheckType(type);
    return CastMD<const To>(md);
}

bool AcceptedByWildcard(const IKeywordMapMD& md, const std::string& key)
{
    for (int i = 0; i < md.GetWildcardSize(); ++i) {
        const std::vector<std::string>& patterns = md.GetWildcardItemMD(i)->GetKeys();
        if (std::any_of(patterns.begin(), patterns.end(),
                [&](const std::string& pattern) { return KeywordMapDataHelper::MatchKeys(pattern, key); }))
            return true;
    }
    return false;
}

[[noreturn]] void FailKey(const IKeywordMapData& map, std::string_view key)
{
    const auto& md = CastMD<const IKeywordMapMD>(*map.GetMD());
    std::vector<std::string> names;
    for (int i = 0; i < md.GetSize(); ++i) {
        const std::vector<std::string>& keys = md.GetItemMD(i)->GetKeys();
        names.insert(names.end(), keys.begin(), keys.end());
    }
    FailAccess(map.GetSyntax(), "no key " + Quoted(key) + SuggestionOf(key, names));
}

} // namespace

IKeywordRecordData& AsRecord(IKeywordData& data)
{
    return Checked<IKeywordRecordData>(data, MDType::Record);
}

const IKeywordRecordData& AsRecord(const IKeywordData& data)
{
    return Checked<const IKeywordRecordData>(data, MDType::Record);
}

IKeywordListData& AsList(IKeywordData& data)
{
    return Checked<IKeywordListData>(data, MDType::List);
}

const IKeywordListData& AsList(const IKeywordData& data)
{
    return Checked<const IKeywordListData>(data, MDType::List);
}

IKeywordMapData& AsMap(IKeywordData& data)
{
    return Checked<IKeywordMapData>(data, MDType::Map);
}

const IKeywordMapData& AsMap(const IKeywordData& data)
{
    return Checked<const IKeywordMapData>(data, MDType::Map);
}

IKeywordRawData& AsRaw(IKeywordData& data)
{
    return Checked<IKeywordRawData>(data, MDType::Raw);
}

const IKeywordRawData& AsRaw(const IKeywordData& data)
{
    return Checked<const IKeywordRawData>(data, MDType::Raw);
}

const IKeywordRecordMD& AsRecord(const IKeywordDataMD& md)
{
    return CheckedMD<IKeywordRecordMD>(md, MDType::Record);
}

const IKeywordListMD& AsList(const IKeywordDataMD& md)
{
    return CheckedMD<IKeywordListMD>(md, MDType::List);
}

const IKeywordMapMD& AsMap(const IKeywordDataMD& md)
{
    return CheckedMD<IKeywordMapMD>(md, MDType::Map);
}

Optional<int> Get(const IKeywordMapData& map, std::string_view key)
{
    Optional<int> value;
    const std::string text(key);
    if (!map.GetValue(text, value) && !AcceptedByWildcard(CastMD<const IKeywordMapMD>(*map.GetMD()), text))
        FailKey(map, key);
    return value;
}

bool Has(const IKeywordMapData& map, std::string_view key)
{
    return Get(map, key).HasValue();
}

void Set(IKeywordMapData& map, std::string_view key, int value)
{
    if (!Optional<int>(value))
        FailAccess(
            map.GetSyntax(), "key " + Quoted(key) + " cannot hold the value that stands for 'not given'");
    if (!map.SetValue(std::string(key), value))
        FailKey(map, key);
}

void Clear(IKeywordMapData& map, std::string_view key)
{
    if (Has(map, key)) // fails for an unknown key
        map.SetValueToDefault(std::string(key));
}

} // namespace Veld::Quor::Core::Keywords

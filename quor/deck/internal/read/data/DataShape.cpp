#include "quor/deck/internal/read/data/DataShape.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

/// The type of a list's elements; null if it is no list, or has none.
const IKeywordDataMD* FindElement(const IKeywordDataMD* md)
{
    return KeywordUtils::GetMDType(md) == MDType::List ? static_cast<const IKeywordListMD*>(md)->GetItemMD()
                                                       : nullptr;
}

} // namespace

bool IsRecordOf(const IKeywordDataMD* md, MDTypes first)
{
    if (KeywordUtils::GetMDType(md) != MDType::Record)
        return false;
    const auto& record = static_cast<const IKeywordRecordMD&>(*md);
    if (record.GetSize() < static_cast<int>(first.size()))
        return false;
    int i = 0;
    for (const MDType::Enum type : first) {
        if (KeywordUtils::GetMDType(record.GetItemMD(i++)) != type)
            return false;
    }
    return true;
}

bool IsListOfRecords(const IKeywordDataMD* md, MDTypes first)
{
    return IsRecordOf(FindElement(md), first);
}

bool IsListOf(const IKeywordDataMD* md, MDType::Enum element)
{
    return KeywordUtils::GetMDType(FindElement(md)) == element;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/read/data/RecordIdentity.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

bool HasIdentifier(const IKeywordRecordMD& md)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        if (md.IsIdentifier(i))
            return true;
    }
    return false;
}

void AppendIdentity(const IKeywordData& data, std::vector<IdentityItem>& identity)
{
    const MDType::Enum type = data.GetMD()->GetType();
    if (type == MDType::List) {
        const auto& list = static_cast<const IKeywordListData&>(data);
        const auto* const item = static_cast<const IKeywordListMD&>(*data.GetMD()).GetItemMD();
        if (list.GetSize() > 0 && !KeywordUtils::IsItemMDType(item))
            AppendIdentity(*static_cast<const IKeywordData*>(list.GetData(0)), identity);
    }
    if (type != MDType::Record)
        return;
    const auto& md = static_cast<const IKeywordRecordMD&>(*data.GetMD());
    const auto& record = static_cast<const IKeywordRecordData&>(data);
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD& item = *md.GetItemMD(i);
        if (!KeywordUtils::IsItemMDType(item.GetType()))
            AppendIdentity(*static_cast<const IKeywordData*>(record.GetData(i)), identity);
        else if (md.IsIdentifier(i))
            identity.push_back({&item, ItemValue(item, record.GetData(i))});
    }
}

} // namespace

std::string TextOf(const IdentityItem& item)
{
    return IsGiven(item.value) ? ToText(*item.md, item.value) : "1*";
}

std::vector<IdentityItem> IdentityOf(const IKeywordData& data)
{
    std::vector<IdentityItem> identity;
    AppendIdentity(data, identity);
    return identity;
}

bool IsListOfNamedRecords(const IKeywordDataMD* md)
{
    return IsListOfRecords(md, {})
        && HasIdentifier(
            static_cast<const IKeywordRecordMD&>(*static_cast<const IKeywordListMD&>(*md).GetItemMD()));
}

} // namespace Veld::Quor::Core::Decks

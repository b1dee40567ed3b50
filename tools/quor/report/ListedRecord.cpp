#include "tools/quor/report/ListedRecord.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"

namespace Veld::Quor::Tools {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

const IKeywordRecordMD* FindListedRecord(const IKeywordSyntax& syntax)
{
    const IKeywordDataMD* const md = syntax.GetDataMD();
    const IKeywordDataMD* const item =
        md && md->GetType() == MDType::List ? static_cast<const IKeywordListMD&>(*md).GetItemMD() : nullptr;
    return item && item->GetType() == MDType::Record ? static_cast<const IKeywordRecordMD*>(item) : nullptr;
}

int FindItem(const IKeywordRecordMD& record, const std::string& name, MDType::Enum type)
{
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD& item = *record.GetItemMD(i);
        if (item.GetName() == name && item.GetType() == type)
            return i;
    }
    return -1;
}

} // namespace Veld::Quor::Tools

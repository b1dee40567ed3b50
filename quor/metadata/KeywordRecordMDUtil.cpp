#include "quor/metadata/KeywordRecordMDUtil.h"

#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

namespace Veld::Quor::Core::Keywords {

namespace {

using MDType = IKeywordDataMD::MDType;

template <class Test>
bool AnyItem(const IKeywordRecordMD& record, Test test)
{
    for (int i = 0; i < record.GetSize(); ++i) {
        if (test(KeywordUtils::GetMDType(record.GetItemMD(i))))
            return true;
    }
    return false;
}

} // namespace

bool KeywordRecordMDUtil::AllNumeric(const IKeywordRecordMD& record)
{
    return !AnyItem(
        record, [](MDType::Enum type) { return type != MDType::Integer && type != MDType::Real; });
}

bool KeywordRecordMDUtil::HasNestedContainer(const IKeywordRecordMD& record)
{
    return AnyItem(record, [](MDType::Enum type) { return !KeywordUtils::IsItemMDType(type); });
}

bool KeywordRecordMDUtil::HasStringType(const IKeywordRecordMD& record)
{
    return AnyItem(record, [](MDType::Enum type) { return type == MDType::String || type == MDType::Line; });
}

} // namespace Veld::Quor::Core::Keywords

#include "quor/metadata/KeywordUtils.h"

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

MDType::Enum KeywordUtils::GetMDType(const IKeywordDataMD* md)
{
    return md ? md->GetType() : MDType::None;
}

bool KeywordUtils::IsItemMDType(MDType::Enum type)
{
    switch (type) {
    case MDType::Assignment:
    case MDType::Boolean:
    case MDType::Choice:
    case MDType::Integer:
    case MDType::Line:
    case MDType::Real:
    case MDType::String:
        return true;
    case MDType::None:
    case MDType::List:
    case MDType::Map:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return false;
}

bool KeywordUtils::IsItemMDType(const IKeywordDataMD* md)
{
    return IsItemMDType(GetMDType(md));
}

} // namespace Veld::Quor::Core::Keywords

#include "quor/metadata/internal/DefaultReader.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

DefaultType::Enum ReadDefaultType(const TreeElement& element)
{
    if (element.Says(Tag::Type, Tag::Calculated))
        return DefaultType::Calculated;
    if (element.Says(Tag::Type, Tag::Specified))
        return DefaultType::Specified;
    if (element.Says(Tag::Type, Tag::NoDefault))
        return DefaultType::NoDefault;
    return DefaultType::None;
}

void CheckDefaultValue(const TreeElement& element, DefaultType::Enum type)
{
    const bool hasValue = element.Has(Tag::Val);
    if (type == DefaultType::Calculated && hasValue)
        throw KeywordException("A value must not be supplied for defaults of type \"calculated\".");
    if (type == DefaultType::Specified && !hasValue)
        throw KeywordException("A value must be supplied for defaults of type \"specified\".");
}

DefaultType::Enum ReadCheckedDefaultType(const TreeElement& element)
{
    const DefaultType::Enum type = ReadDefaultType(element);
    if (type == DefaultType::None)
        FailDefaultType();
    CheckDefaultValue(element, type);
    return type;
}

void FailDefaultType()
{
    throw KeywordException("Invalid type encountered.");
}

} // namespace Veld::Quor::Core::Keywords

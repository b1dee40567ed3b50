#include "quor/metadata/internal/DefaultReader.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;

DefaultType::Enum ReadDefaultType(const xercesc::DOMElement& element)
{
    if (GetAttributeValueEqual(&element, Tags::Type(), Tags::Calculated()))
        return DefaultType::Calculated;
    if (GetAttributeValueEqual(&element, Tags::Type(), Tags::Specified()))
        return DefaultType::Specified;
    if (GetAttributeValueEqual(&element, Tags::Type(), Tags::NoDefault()))
        return DefaultType::NoDefault;
    return DefaultType::None;
}

void CheckDefaultValue(const xercesc::DOMElement& element, DefaultType::Enum type)
{
    const bool hasValue = AttributeExists(&element, Tags::Val());
    if (type == DefaultType::Calculated && hasValue)
        throw KeywordException("A value must not be supplied for defaults of type \"calculated\".");
    if (type == DefaultType::Specified && !hasValue)
        throw KeywordException("A value must be supplied for defaults of type \"specified\".");
}

DefaultType::Enum ReadCheckedDefaultType(const xercesc::DOMElement& element)
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

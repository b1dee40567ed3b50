#include "quor/syntax/internal/SummaryMnemonicInfo.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/internal/ContainerReader.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

namespace {

template <class T>
void ExtractEnumValue(const std::string& text, Service::Optional<typename T::Enum>& field, T)
{
    bool found = false;
    const typename T::Enum value = T::FromString(text, &found);
    if (!found)
        throw KeywordException("SummaryMnemonicInfo::ExtractEnumValue(): unknown category value");
    field = value;
}

} // namespace

ISummaryMnemonicInfo::~ISummaryMnemonicInfo() = default;

SummaryMnemonicInfo::SummaryMnemonicInfo(const TreeElement& element)
{
    for (const TreeElement child : ChildElements(element)) {
        if (!child.Is(Tag::Category))
            FailUnhandled("SummaryMnemonicInfo::SummaryMnemonicInfo(): unhandled element type: ", child);
        ReadCategory(child);
    }
}

SummaryMnemonicInfo::~SummaryMnemonicInfo() = default;

void SummaryMnemonicInfo::ReadCategory(const TreeElement& element)
{
    const std::string category = NameOf(element);
    const std::string value = element.Get(Tag::Val);
    if (category == "entity")
        ExtractEnumValue(value, entity_, SummaryEntity());
    else if (category == "flow")
        ExtractEnumValue(value, flow_, SummaryFlow());
    else if (category == "function")
        ExtractEnumValue(value, function_, SummaryFunction());
    else if (category == "option")
        ExtractEnumValue(value, option_, SummaryOption());
    else if (category == "phase")
        ExtractEnumValue(value, phase_, SummaryPhase());
    else
        throw KeywordException(
            "SummaryMnemonicInfo::SummaryMnemonicInfo(): unhandled category name: " + category);
}

} // namespace Veld::Quor::Core::Keywords

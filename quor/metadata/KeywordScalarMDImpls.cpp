// The readers of the five scalar classes, side by side: they differ in which children they know and how they
// parse.

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/service/Strings.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Tags.h"
#include "quor/metadata/KeywordBooleanMDImpl.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/metadata/KeywordLineMDImpl.h"
#include "quor/metadata/KeywordRealMDImpl.h"
#include "quor/metadata/KeywordStringMDImpl.h"
#include "quor/metadata/internal/DefaultReader.h"
#include "quor/metadata/internal/MeasurementPool.h"
#include "quor/metadata/internal/NumberText.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;
using namespace Service::XML::Internal;
using xercesc::DOMElement;

namespace {

using Simulators = std::vector<SimulatorType::Enum>;

std::string ValueOf(const DOMElement& element)
{
    return GetAttributeValue(&element, Tags::Val());
}

std::string AsItStands(std::string text)
{
    return text;
}

/// Wanted: "NO" alone is false, in upper case; every other text is true.
bool ParseBoolean(const std::string& text)
{
    return text != "NO";
}

template <class Numeric>
void ReadFormat(const DOMElement& element, Numeric& numeric)
{
    const std::string format = GetElementText(&element);
    if (!Service::AllBlanks(format))
        numeric.SetFormatting(format);
}

/// Wanted: unlike a real's, an integer's limit is dropped, and an earlier one stays, if anything follows the
/// number.
void ReadLimit(const DOMElement& element, Service::Optional<int>& limit)
{
    const auto [value, isWhole] = ParseIntegerAtStart(ValueOf(element));
    if (isWhole)
        limit = value;
}

} // namespace

void KeywordRealMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    SetSimulators(simulators);
    for (const DOMElement& child : ChildElements(*element)) {
        if (Is(child, Tags::Min()))
            min_ = ParseReal(ValueOf(child));
        else if (Is(child, Tags::Max()))
            max_ = ParseReal(ValueOf(child));
        else if (Is(child, Tags::Description()))
            SetDescription(GetElementText(&child));
        else if (Is(child, Tags::Quantity()))
            measurement_ = MeasurementPool::Intern(NameOf(child));
        else if (Is(child, Tags::Format()))
            ReadFormat(child, *this);
        else if (Is(child, Tags::Default()))
            ReadDefault(child, simulators, defaults_, ParseReal);
    }
}

void KeywordIntegerMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    SetSimulators(simulators);
    InternalReadXML(element, simulators);
    // Wanted: of all scalars, the integer alone looks for its description at odd positions only.
    for (const DOMElement& child : OddChildElements(*element)) {
        if (Is(child, Tags::Description()))
            SetDescription(GetElementText(&child));
    }
}

void KeywordIntegerMDImpl::InternalReadXML(const DOMElement* element, const Simulators& simulators)
{
    ForgetMap();
    for (const DOMElement& child : ChildElements(*element)) {
        if (Is(child, Tags::Min()))
            ReadLimit(child, min_);
        else if (Is(child, Tags::Max()))
            ReadLimit(child, max_);
        else if (Is(child, Tags::Format()))
            ReadFormat(child, *this);
        else if (Is(child, Tags::Default()))
            ReadDefault(child, simulators, defaults_, ParseInteger);
    }
}

void KeywordBooleanMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    SetSimulators(simulators);
    for (const DOMElement& child : ChildElements(*element)) {
        if (Is(child, Tags::Description()))
            SetDescription(GetElementText(&child));
        else if (Is(child, Tags::Default()))
            ReadDefault(child, simulators, defaults_, ParseBoolean);
    }
}

void KeywordStringMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    SetSimulators(simulators);
    if (AttributeExists(element, Tags::CanContainComma()))
        canContainComma_ = IsFlagged(*element, Tags::CanContainComma());
    for (const DOMElement& child : ChildElements(*element)) {
        if (Is(child, Tags::Description()))
            SetDescription(GetElementText(&child));
        else if (Is(child, Tags::CaseSensitive()))
            caseSensitive_ = true;
        else if (Is(child, Tags::LengthLimit()))
            lengthLimit_ = ParseInteger(GetElementText(&child));
        else if (Is(child, Tags::Default()))
            ReadDefault(child, simulators, defaults_, AsItStands);
    }
}

void KeywordLineMDImpl::ReadXML(const DOMElement* element, const Simulators& simulators)
{
    SetSimulators(simulators);
    for (const DOMElement& child : ChildElements(*element)) {
        if (Is(child, Tags::Description())) {
            SetDescription(GetElementText(&child));
        } else if (Is(child, Tags::Default())) {
            // Wanted: a line refuses "no default" as its own default, though not in an override.
            if (ReadDefaultType(child) == DefaultType::NoDefault)
                FailDefaultType();
            ReadDefault(child, simulators, defaults_, AsItStands);
        }
    }
}

} // namespace Veld::Quor::Core::Keywords

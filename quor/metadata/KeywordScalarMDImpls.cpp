// The readers of the five scalar classes, side by side: they differ in which children they know and how they
// parse.

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/service/Strings.h"
#include "quor/metadata/KeywordBooleanMDImpl.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/metadata/KeywordLineMDImpl.h"
#include "quor/metadata/KeywordRealMDImpl.h"
#include "quor/metadata/KeywordStringMDImpl.h"
#include "quor/metadata/internal/DefaultReader.h"
#include "quor/metadata/internal/MeasurementPool.h"
#include "quor/metadata/internal/NumberText.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

namespace {

using Simulators = std::vector<SimulatorType::Enum>;

std::string ValueOf(const TreeElement& element)
{
    return element.Get(Tag::Val);
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
void ReadFormat(const TreeElement& element, Numeric& numeric)
{
    const std::string format = element.GetText();
    if (!Service::AllBlanks(format))
        numeric.SetFormatting(format);
}

/// Wanted: unlike a real's, an integer's limit is dropped, and an earlier one stays, if anything follows the
/// number.
void ReadLimit(const TreeElement& element, Service::Optional<int>& limit)
{
    const auto [value, isWhole] = ParseIntegerAtStart(ValueOf(element));
    if (isWhole)
        limit = value;
}

} // namespace

void KeywordRealMDImpl::ReadXML(const TreeElement& element, const Simulators& simulators)
{
    SetSimulators(simulators);
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Min))
            min_ = ParseReal(ValueOf(child));
        else if (child.Is(Tag::Max))
            max_ = ParseReal(ValueOf(child));
        else if (child.Is(Tag::Description))
            SetDescription(child.GetText());
        else if (child.Is(Tag::Quantity))
            measurement_ = MeasurementPool::Intern(NameOf(child));
        else if (child.Is(Tag::Format))
            ReadFormat(child, *this);
        else if (child.Is(Tag::Default))
            ReadDefault(child, simulators, defaults_, ParseReal);
    }
}

void KeywordIntegerMDImpl::ReadXML(const TreeElement& element, const Simulators& simulators)
{
    SetSimulators(simulators);
    InternalReadXML(element, simulators);
    // Wanted: of all scalars, the integer alone looks for its description at odd positions only.
    for (const TreeElement child : OddChildElements(element)) {
        if (child.Is(Tag::Description))
            SetDescription(child.GetText());
    }
}

void KeywordIntegerMDImpl::InternalReadXML(const TreeElement& element, const Simulators& simulators)
{
    ForgetMap();
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Min))
            ReadLimit(child, min_);
        else if (child.Is(Tag::Max))
            ReadLimit(child, max_);
        else if (child.Is(Tag::Format))
            ReadFormat(child, *this);
        else if (child.Is(Tag::Default))
            ReadDefault(child, simulators, defaults_, ParseInteger);
    }
}

void KeywordBooleanMDImpl::ReadXML(const TreeElement& element, const Simulators& simulators)
{
    SetSimulators(simulators);
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Description))
            SetDescription(child.GetText());
        else if (child.Is(Tag::Default))
            ReadDefault(child, simulators, defaults_, ParseBoolean);
    }
}

void KeywordStringMDImpl::ReadXML(const TreeElement& element, const Simulators& simulators)
{
    SetSimulators(simulators);
    if (element.Has(Tag::CanContainComma))
        canContainComma_ = IsFlagged(element, Tag::CanContainComma);
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Description))
            SetDescription(child.GetText());
        else if (child.Is(Tag::CaseSensitive))
            caseSensitive_ = true;
        else if (child.Is(Tag::LengthLimit))
            lengthLimit_ = ParseInteger(child.GetText());
        else if (child.Is(Tag::Default))
            ReadDefault(child, simulators, defaults_, AsItStands);
    }
}

void KeywordLineMDImpl::ReadXML(const TreeElement& element, const Simulators& simulators)
{
    SetSimulators(simulators);
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Description)) {
            SetDescription(child.GetText());
        } else if (child.Is(Tag::Default)) {
            // Wanted: a line refuses "no default" as its own default, though not in an override.
            if (ReadDefaultType(child) == DefaultType::NoDefault)
                FailDefaultType();
            ReadDefault(child, simulators, defaults_, AsItStands);
        }
    }
}

} // namespace Veld::Quor::Core::Keywords

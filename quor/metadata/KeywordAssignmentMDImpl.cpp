#include "quor/metadata/KeywordAssignmentMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/service/Strings.h"

#include <cstddef>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

KeywordAssignmentMDImpl::KeywordAssignmentMDImpl() = default;
KeywordAssignmentMDImpl::KeywordAssignmentMDImpl(KeywordAssignmentMDImpl&&) noexcept = default;
KeywordAssignmentMDImpl& KeywordAssignmentMDImpl::operator=(KeywordAssignmentMDImpl&&) noexcept = default;
KeywordAssignmentMDImpl::~KeywordAssignmentMDImpl() = default;

KeywordAssignmentMDImpl::KeywordAssignmentMDImpl(const IKeywordAssignmentMD& other)
    : keys_(other.GetKeys())
    , wildcard_(other.IsWildcard())
{
    SetDescription(other.GetDescription());
    integer_.SetDefaults(other.GetDefaults());
    integer_.SetMin(other.GetMin());
    integer_.SetMax(other.GetMax());
    for (int row = 0; row < SimulatorType::Count; ++row)
        SetValidity(SimulatorType::Enum(row), other.IsValid(SimulatorType::Enum(row)));
}

bool KeywordAssignmentMDImpl::IsDefaultSpecified(SimulatorType::Enum simulator) const
{
    return integer_.IsDefaultSpecified(simulator);
}

bool KeywordAssignmentMDImpl::IsKeywordSupported(SimulatorType::Enum simulator) const
{
    return integer_.IsKeywordSupported(simulator);
}

bool KeywordAssignmentMDImpl::hasOverride(SimulatorType::Enum simulator) const
{
    return integer_.hasOverride(simulator);
}

std::string KeywordAssignmentMDImpl::GetOverrideType(SimulatorType::Enum simulator) const
{
    return integer_.GetOverrideType(simulator);
}

Service::Optional<int> KeywordAssignmentMDImpl::GetDefault(SimulatorType::Enum simulator) const
{
    return integer_.GetDefault(simulator);
}

const KeywordAssignmentMDImpl::Defaults& KeywordAssignmentMDImpl::GetDefaults() const
{
    return integer_.GetDefaults();
}

Service::Optional<int> KeywordAssignmentMDImpl::GetMin() const
{
    return integer_.GetMin();
}

Service::Optional<int> KeywordAssignmentMDImpl::GetMax() const
{
    return integer_.GetMax();
}

bool KeywordAssignmentMDImpl::IsValid(SimulatorType::Enum simulator) const
{
    return validity_[static_cast<std::size_t>(simulator)];
}

void KeywordAssignmentMDImpl::SetKey(const std::string& text)
{
    std::string key = text;
    Service::StringTrimBlank(key, true, true);
    Service::StringToUpper(key);
    keys_ = {key};
}

void KeywordAssignmentMDImpl::SetValidity(bool)
{
    validity_.reset(); // Wanted: true too makes it valid nowhere.
}

void KeywordAssignmentMDImpl::SetValidity(SimulatorType::Enum simulator, bool valid)
{
    validity_[static_cast<std::size_t>(simulator)] = valid;
}

void KeywordAssignmentMDImpl::ReadXML(
    const TreeElement& element, const std::vector<SimulatorType::Enum>& simulators)
{
    // Wanted: keys of a document keep their case and blanks, unlike one given to SetKey.
    std::string name = NameOf(element);
    if (!name.empty())
        keys_.push_back(std::move(name));
    if (IsFlagged(element, Tag::Wildcard))
        wildcard_ = true;
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Integer)) {
            // Wanted: the integer doesn't learn the simulators, so IsKeywordSupported stays false for all of
            // them.
            integer_.InternalReadXML(child, simulators);
        } else if (child.Is(Tag::Aliases)) {
            ReadAliases(child);
        } else if (child.Is(Tag::Validity)) {
            ReadValidity(child);
        } else if (child.Is(Tag::Description)) {
            SetDescription(child.GetText());
        }
    }
}

void KeywordAssignmentMDImpl::ReadAliases(const TreeElement& element)
{
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Alias))
            keys_.push_back(NameOf(child));
    }
}

void KeywordAssignmentMDImpl::ReadValidity(const TreeElement& element)
{
    for (const TreeElement child : OddChildElements(element)) {
        if (child.Is(Tag::Simulator))
            SetValidity(ReadSimulator(child), true);
    }
}

} // namespace Veld::Quor::Core::Keywords

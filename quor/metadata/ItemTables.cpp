// Where an item or a choice is valid, who doesn't support it, and its aliases: three readers of a kind. All
// of them see the children at odd positions only.

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/metadata/AliasesMDImpl.h"
#include "quor/metadata/UnsupportedByMDImpl.h"
#include "quor/metadata/ValidityMDImpl.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

void ValidityMDImpl::ReadXML(const TreeElement& element)
{
    Reset(false);
    for (const TreeElement child : OddChildElements(element)) {
        if (child.Is(Tag::Simulator)) {
            // Wanted: an entry for a simulator doesn't speak for its variants here.
            flags_.SetModes(ReadSimulator(child), SimulatorModeFlags::allModes);
        } else if (child.Is(Tag::Option)) {
            for (int row = 0; row < SimulatorType::Count; ++row)
                Set(SimulatorType::Enum(row), ReadMode(child), true);
        }
    }
}

void UnsupportedByMDImpl::ReadXML(const TreeElement& element)
{
    Reset(false);
    for (const TreeElement child : OddChildElements(element)) {
        if (child.Is(Tag::Simulator))
            ApplySimulatorEntry(
                ReadSimulatorEntry(child),
                [this](SimulatorType::Enum row) { flags_.SetModes(row, SimulatorModeFlags::allModes); },
                [this](SimulatorType::Enum row) { flags_.SetModes(row, 0); });
    }
}

void AliasesMDImpl::ReadXML(const TreeElement& element)
{
    for (const TreeElement child : OddChildElements(element)) {
        if (!child.Is(Tag::Alias))
            continue;
        bool hidden = false;
        for (const TreeElement mark : OddChildElements(child))
            hidden = hidden || mark.Is(Tag::IsHiddenAlias);
        aliases_.emplace_back(NameOf(child), hidden);
    }
}

} // namespace Veld::Quor::Core::Keywords

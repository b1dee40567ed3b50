#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/internal/DocumentTree.h"
#include "quor/foundation/internal/SimulatorEntry.h"

#include <string>

/// The words of a syntax document that several readers accept.
namespace Veld::Quor::Core::Keywords {

using Service::XML::Internal::Tag;
using Service::XML::Internal::TreeElement;

inline std::string NameOf(const TreeElement& element)
{
    return element.Get(Tag::Name);
}

/// A flag attribute is true only if it is there and says so.
inline bool IsFlagged(const TreeElement& element, Tag attribute)
{
    return element.Says(attribute, Tag::True);
}

// Wanted, in the three below: a word that is not known counts as row 0, and nothing is reported.

inline SimulatorType::Enum ReadSimulator(const TreeElement& element)
{
    return SimulatorType::FromString(NameOf(element));
}

inline SectionType::Enum ReadSection(const TreeElement& element)
{
    return SectionType::FromString(NameOf(element));
}

inline SimulatorModeType::Enum ReadMode(const TreeElement& option)
{
    return SimulatorModeType::FromString(option.Get(Tag::Value));
}

inline SimulatorEntry ReadSimulatorEntry(const TreeElement& entry)
{
    return {ReadSimulator(entry), IsFlagged(entry, Tag::GridEditsOnly), IsFlagged(entry, Tag::ClassicOnly)};
}

} // namespace Veld::Quor::Core::Keywords

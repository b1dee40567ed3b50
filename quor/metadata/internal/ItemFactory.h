#pragma once

#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordDataMDInternal.h"
#include "quor/metadata/TreeForward.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Makes the metadata of one type element and reads it. `name` and `number` are those of the record's item
/// that the element is in; empty and 0 for the item of a list.
using ItemMaker = std::unique_ptr<IKeywordDataMDInternal> (*)(
    const Service::XML::Internal::TreeElement& element, const std::vector<SimulatorType::Enum>& simulators,
    const std::string& name, unsigned int number);

/// The one place that knows the eight type elements, which records and lists share. Null if the element is
/// none.
ItemMaker FindItemMaker(const Service::XML::Internal::TreeElement& element);

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/metadata/IKeywordDataMD.h"

#include <initializer_list>

namespace Veld::Quor::Core::Decks {

using MDTypes = std::initializer_list<Core::Keywords::IKeywordDataMD::MDType::Enum>;

// Another document may give a keyword another form than the one that its name stands for here.

/// Whether it is a record whose first items are of these types.
bool IsRecordOf(const Core::Keywords::IKeywordDataMD* md, MDTypes first);
/// Whether it is a list of such records.
bool IsListOfRecords(const Core::Keywords::IKeywordDataMD* md, MDTypes first);
/// Whether it is a list of that type.
bool IsListOf(const Core::Keywords::IKeywordDataMD* md, Core::Keywords::IKeywordDataMD::MDType::Enum element);

} // namespace Veld::Quor::Core::Decks

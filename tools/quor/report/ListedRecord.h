#pragma once

#include "quor/metadata/IKeywordDataMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {
class IKeywordRecordMD;
class IKeywordSyntax;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Tools {

/// The record of which a keyword has a list; null if there is none.
const Core::Keywords::IKeywordRecordMD* FindListedRecord(const Core::Keywords::IKeywordSyntax& syntax);

/// The number of an item of that type; -1 if there is none.
int FindItem(const Core::Keywords::IKeywordRecordMD& record, const std::string& name,
    Core::Keywords::IKeywordDataMD::MDType::Enum type);

} // namespace Veld::Quor::Tools

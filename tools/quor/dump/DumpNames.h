#pragma once

#include "quor/metadata/IKeywordDataMD.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordRecordMD;
}

namespace Veld::Quor::Tools {

/// The member of the object that stands for a text which is no UTF-8.
constexpr const char* latin1Member = "latin1";

/// Whether data of it are a tree of their own.
bool IsContainer(const Core::Keywords::IKeywordDataMD& md);

/// The members of an object that its items are: their names, or "#3" for an item that has none, or that of
/// another.
std::vector<std::string> MembersOf(const Core::Keywords::IKeywordRecordMD& md);

} // namespace Veld::Quor::Tools

#pragma once

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

using MDType = Core::Keywords::IKeywordDataMD::MDType;

/// "integer", "list" and so on; "none" for no data.
std::string TypeWord(MDType::Enum type);

/// What the values of the keyword are: the type of its data, and of a list that of the item.
MDType::Enum ValueTypeOf(const Core::Keywords::IKeywordSyntax& syntax);

/// The measurements of all reals of the keyword, each once, by name.
std::vector<std::string> MeasurementsOf(const Core::Keywords::IKeywordSyntax& syntax);

/// The other names of a choice; true: hidden.
std::vector<std::pair<std::string, bool>> AliasesOf(const Core::Keywords::IKeywordChoiceMD& md, int choice);

/// Words that a list of the keyword ends with. A termination answers for a word, but does not list its own:
/// those are tried that a list is likely to end with.
std::vector<std::string> FindEndWords(
    const Core::Keywords::ICustomReadTermination& termination, const Core::Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Tools

#pragma once

#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// "list of reals" and the like.
std::string ShapeText(const Core::Keywords::IKeywordDataMD& md);

/// Of a list the item, if that is a scalar, and of a scalar itself: what one line can show along with `md`.
const Core::Keywords::IKeywordDataMD* FindScalar(const Core::Keywords::IKeywordDataMD& md);

/// What is to be said of a record, list, map or raw text of the keyword beside its content.
std::vector<std::string> FactsOf(
    const Core::Keywords::IKeywordDataMD& md, const Core::Keywords::IKeywordSyntax& syntax);

/// What a record says of its item.
std::vector<std::string> MarksOf(const Core::Keywords::IKeywordRecordMD& record, int index);

} // namespace Veld::Quor::Tools

#pragma once

#include "tools/quor/manual/Catalog.h"

#include <string>

namespace Veld::Quor::Tools {

/// What a keyword carries, as `TreeText` prints it: a table for each record. Amounts and units are there in
/// each system; those of METRIC are shown at first.
std::string TreeHtml(
    const Core::Keywords::IKeywordSyntax& syntax, const Entry& entry, const Catalog& catalog);

} // namespace Veld::Quor::Tools

#pragma once

#include "tools/quor/manual/Catalog.h"
#include "tools/quor/manual/Html.h"
#include "tools/quor/manual/RelatedVectors.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// All that is known of the keywords of one name.
ManualPage KeywordPage(const Entry& entry, const Catalog& catalog, const RelatedVectors& vectors);

/// A page for each entity: its output vectors, with an address each.
std::vector<ManualPage> VectorPages(const Catalog& catalog);

/// Where a keyword is valid: simulators by sections, with a letter for each mode.
std::string ValidityHtml(const Core::Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Tools

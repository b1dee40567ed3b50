#pragma once

#include "tools/quor/manual/Catalog.h"
#include "tools/quor/manual/Html.h"

#include <vector>

namespace Veld::Quor::Tools {

/// The front page, and the pages that lead to keywords: all, by section, subject, simulator, kind of name and
/// measurement.
std::vector<ManualPage> IndexPages(const Catalog& catalog);
/// A page for each finding code, and the list of them.
std::vector<ManualPage> CodePages();
/// Of one simulator: what only it has.
ManualPage SimulatorPage(Core::Keywords::SimulatorType::Enum simulator, const Catalog& catalog);

/// A table of keywords with their descriptions.
std::string EntryTable(const std::vector<const Entry*>& entries);

} // namespace Veld::Quor::Tools

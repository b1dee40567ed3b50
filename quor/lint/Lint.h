#pragma once

#include "quor/deck/Finding.h"
#include "quor/foundation/Export.h"
#include "quor/lint/Codes.h"
#include "quor/lint/Document.h"

#include <cstddef>
#include <vector>

namespace Veld::Quor::Core::Lint {

struct LintReport {
    Core::Decks::Findings findings; ///< by document, line and column
    std::vector<std::size_t> keywords; ///< how many each document has
};

/// Reports what the loader would ignore, misread or reject in the documents, which together are one language.
/// Keywords that they refer to and don't define are searched for in the built-in language.
VELD_QUOR_EXPORT LintReport LintDocuments(const std::vector<Document>& documents, std::size_t maxFindings);

} // namespace Veld::Quor::Core::Lint

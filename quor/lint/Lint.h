#pragma once

#include "quor/deck/Finding.h"
#include "quor/foundation/Export.h"
#include "quor/lint/Codes.h"
#include "quor/lint/Document.h"

#include <cstddef>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// What was found.
struct LintReport {
    Core::Decks::Findings findings; ///< by document, line and column
    std::vector<std::size_t> keywords; ///< how many each document has
};

/// Reports what the loader would ignore, misread or reject in the documents, which together are one language.
/// Keywords that they refer to and don't define are searched for in the built-in language. Of the findings
/// the first `maxFindings` are kept, and all are counted.
VELD_QUOR_EXPORT LintReport LintDocuments(const std::vector<Document>& documents, std::size_t maxFindings);

} // namespace Veld::Quor::Core::Lint

#pragma once

#include "quor/deck/Finding.h"
#include "tools/lint/Document.h"

#include <cstddef>
#include <vector>

namespace Veld::Quor::Tools::Lint {

struct LintReport {
    Core::Decks::Findings findings; ///< by document, line and column
    std::vector<std::size_t> keywords; ///< how many each document has
};

/// Reports what the loader would ignore, misread or reject in the documents, which together are one language.
/// Keywords that they refer to and don't define are searched for in the built-in language.
LintReport LintDocuments(const std::vector<Document>& documents, std::size_t maxFindings);

} // namespace Veld::Quor::Tools::Lint

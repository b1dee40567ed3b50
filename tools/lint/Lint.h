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

/// Tells what the loader would pass over, misunderstand or refuse in the documents, which count as one
/// language. Keywords that they name and don't have are looked for in the language that is built in.
LintReport LintDocuments(const std::vector<Document>& documents, std::size_t maxFindings);

} // namespace Veld::Quor::Tools::Lint

#pragma once

#include "tools/quor/language-server/Places.h"

#include <cstdint>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// Where a document includes another file.
struct InclusionAt {
    ByteRange path; ///< in the document now, without quotes
    std::uint32_t file; ///< of the deck
};

/// Those of the document, in the order of the deck. An inclusion that was changed since is left out.
std::vector<InclusionAt> InclusionsOf(const View& view);

} // namespace Veld::Quor::Tools::LanguageServer

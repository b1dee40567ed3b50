#pragma once

#include "tools/quor/language-server/Places.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// A keyword of a document, with what belongs to it there: to a section its keywords, to a keyword that leads
/// to a report step those up to the next step.
struct SectionNode {
    std::uint32_t keyword; ///< of the deck
    ByteRange name; ///< in the document now
    ByteRange whole; ///< of the keyword with its data
    bool isSection = false;
    std::string dates = {}; ///< of the steps that it leads to; empty: none
    std::vector<SectionNode> children = {};

    std::size_t GetEnd() const { return children.empty() ? whole.GetEnd() : children.back().GetEnd(); }
};

/// All keywords of the document; those that were changed since are left out.
std::vector<SectionNode> SectionsOf(const View& view);

} // namespace Veld::Quor::Tools::LanguageServer

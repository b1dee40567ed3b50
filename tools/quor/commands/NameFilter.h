#pragma once

#include "quor/deck/DeckLanguage.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <string>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// Which keywords define names of a kind, or refer to them. Empty: not asked for.
struct NameFilter {
    std::string defines;
    std::string refersTo;

    bool IsEmpty() const { return defines.empty() && refersTo.empty(); }
    /// False, and reported, if there is no such kind.
    bool Check(const Core::Decks::DeckLanguage& language) const;
    bool Admits(
        const Core::Decks::DeckLanguage& language, const Core::Keywords::IKeywordSyntax& syntax) const;
};

/// --defines, --refers-to
void AddNameOptions(CLI::App& command, NameFilter& filter);

} // namespace Veld::Quor::Tools

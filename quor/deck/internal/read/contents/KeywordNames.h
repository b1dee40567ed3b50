#pragma once

#include "quor/foundation/internal/Once.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

struct DeckContents;

/// The keywords of a deck by name. Made when it is first asked for; several threads may ask at once.
class KeywordNames {
public:
    /// Indices of the keywords in their order; empty if there is none. The name is one of the language, an
    /// alias included, or one that a wildcard accepts; in any case of letters.
    const std::vector<std::uint32_t>& Find(const DeckContents& deck, std::string_view name);
    /// Names of the deck that may be meant, the nearest first.
    std::vector<std::string> FindNearest(const DeckContents& deck, std::string_view name);
    /// The message that there is none of the name.
    std::string ExplainMissing(const DeckContents& deck, std::string_view name);

private:
    void Make(const DeckContents& deck);

    Once isMade_;
    std::unordered_map<std::string, std::vector<std::uint32_t>> byName_; // in upper case
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/Deck.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace Veld::Quor::Tools {

/// What the statistics need of a deck, in plain data: it may be counted elsewhere.
nlohmann::ordered_json TallyOf(const Core::Decks::Deck& deck);

/// Counts the findings of many decks by code and keyword.
class CheckStatistics {
public:
    /// What `TallyOf` says of a deck.
    void Add(const nlohmann::ordered_json& tally);

    /// A table of codes and keywords, the most frequent first, then the counts of each code and keyword, and
    /// of decks.
    std::string ToText() const;
    nlohmann::ordered_json ToJson() const;

private:
    struct Example {
        Core::Decks::Location location;
        std::string message;
    };
    struct Row {
        std::size_t count = 0;
        std::size_t decks = 0;
        std::size_t lastDeck = 0; // that was counted
        Example example = {}; // the first
    };
    using Key = std::pair<std::string, std::string>; // code, keyword; either may be empty: of any
    using Rows = std::map<Key, Row>;

    void Count(const Key& key, std::size_t count, const Example& example);
    std::string TableText(const char* heading, bool byCode, bool byKeyword) const;
    nlohmann::ordered_json TableJson(bool byCode, bool byKeyword) const;

    std::size_t decks_ = 0;
    std::size_t clean_ = 0;
    std::size_t omitted_ = 0;
    std::size_t counts_[3] = {}; // by severity
    Rows rows_;
};

} // namespace Veld::Quor::Tools

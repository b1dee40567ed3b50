#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

struct DeckContents;

/// The keywords of one name by date, and their records by what identifies them. Takes 16 bytes for each
/// identifier of each record.
class RecordIndex {
public:
    /// Indices of keywords with data, in the order of the deck.
    struct Keywords {
        std::vector<std::uint32_t> all;
        std::vector<std::uint32_t> unnamed; ///< lists whose elements have no identifiers
    };
    /// A record of a keyword's list, or the keyword's single record: 0.
    struct Row {
        std::size_t key; ///< of its first identifiers
        std::uint32_t keyword;
        std::uint32_t record;

        friend bool operator<(const Row& a, const Row& b)
        {
            return std::tie(a.key, a.keyword, a.record) < std::tie(b.key, b.keyword, b.record);
        }
    };

    RecordIndex(const DeckContents& deck, const std::vector<std::uint32_t>& keywords);

    /// `date`: as `DeckContents::DateOf` returns it; empty: of all dates.
    const Keywords& FindKeywords(const std::string& date) const;
    /// Records, in the order of the deck, whose first identifiers may be these: all that are, and seldom any
    /// others. A record that goes by its number has the identifier "1".
    std::vector<Row> FindRecords(const std::vector<std::string>& identifiers, const std::string& date) const;

private:
    void AddKeyword(const DeckContents& deck, std::uint32_t keyword);

    Keywords keywords_;
    std::unordered_map<std::string, Keywords> byDate_;
    std::vector<Row> rows_; // sorted
};

/// The indices of a deck, each made when it is first asked for. Several threads may ask at once.
class RecordIndices {
public:
    /// `keywords`: all of one name, in the order of the deck; at least one. Valid as long as this object.
    const RecordIndex& Get(const DeckContents& deck, const std::vector<std::uint32_t>& keywords);

private:
    std::mutex mutex_;
    std::map<std::uint32_t, std::unique_ptr<const RecordIndex>> byFirst_; // keyword of the name
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/internal/text/NearestNames.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Longer words are no keywords.
constexpr std::size_t longestName = 8;

/// What the table knows under one spelling.
struct Entry {
    std::string spelling;
    std::vector<const Core::Keywords::IKeywordSyntax*> syntaxes;
    Core::Keywords::KeywordDeckRole::Enum role = Core::Keywords::KeywordDeckRole::Ordinary;
    /// The one simulator for which the keyword opens a skipped block; no value for all other keywords.
    std::optional<Core::Keywords::SimulatorType::Enum> skipsFor;

    /// Whether it belongs to the text of a deck, and not to what the deck says.
    bool IsOfText() const
    {
        using Role = Core::Keywords::KeywordDeckRole;
        return skipsFor || (role != Role::Ordinary && role != Role::Section);
    }
};

/// The names of a table, as a deck uses them: what was looked up once is kept. Must not outlive the table.
class Vocabulary {
public:
    explicit Vocabulary(Core::Keywords::KeywordSyntaxTable& table);

    /// Null if the word is no keyword. Lasts as long as this object.
    const Entry* Find(std::string_view word);
    /// The same for keywords that include a file, at a cost that doesn't grow with what was asked before.
    const Entry* FindInclude(std::string_view word) const;
    /// The syntax to which the table gives the name in `section`; of several of which none is valid there,
    /// the first.
    const Core::Keywords::IKeywordSyntax& Get(
        const Entry& entry, Core::Keywords::SectionType::Enum section) const;

    NearestNames& GetNearestNames() { return nearestNames_; }
    Core::Keywords::KeywordSyntaxTable& GetTable() { return table_; }
    /// Whether the keyword is there to end scopes, and for nothing else.
    bool EndsScopes(const Core::Keywords::IKeywordSyntax& syntax) const
    {
        return scopeEnds_.count(&syntax) > 0;
    }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    Entry MakeEntry(std::string_view word);

    Core::Keywords::KeywordSyntaxTable& table_;
    NearestNames nearestNames_;
    std::unordered_map<std::string, Entry, Hash, std::equal_to<>> entries_; // without syntaxes: unknown words
    std::vector<Entry> includes_;
    std::unordered_set<const Core::Keywords::IKeywordSyntax*> scopeEnds_;
};

} // namespace Veld::Quor::Core::Decks

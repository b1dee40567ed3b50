#pragma once

#include "quor/deck/Target.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/deck/internal/text/ValidSections.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Longer words are no keywords.
constexpr std::size_t longestName = 8;
/// Of another name of a keyword, which decks may write out.
constexpr std::size_t longestAlias = 16;

/// What the language knows under one spelling.
struct Entry {
    std::string spelling;
    std::vector<const Core::Keywords::IKeywordSyntax*> syntaxes;
    ValidSections valid;
    Core::Keywords::KeywordDeckRole::Enum role = Core::Keywords::KeywordDeckRole::Ordinary;
    /// The one simulator for which the keyword opens a skipped block; no value for all other keywords.
    std::optional<Core::Keywords::SimulatorType::Enum> skipsFor;

    /// Whether it belongs to the text of a deck, and not to what the deck says.
    bool IsOfText() const
    {
        using DeckRole = Core::Keywords::KeywordDeckRole;
        return skipsFor || (role != DeckRole::Ordinary && role != DeckRole::Section);
    }
};

/// The words of one deck that is read for one target: what was looked up once is kept. Used by one thread.
/// Must not outlive the language.
class Vocabulary {
public:
    Vocabulary(const LanguageIndex& language, const Target& target);

    /// Null if the word is no keyword. Lasts as long as this object.
    const Entry* Find(std::string_view word);
    /// The same for keywords that include a file or begin a section, whatever is after them on their line, at
    /// a cost that doesn't grow with what was asked before.
    const Entry* FindStructure(std::string_view word) const;
    /// The keyword of the first characters of a word that is too long; null if the word isn't, or there is no
    /// such keyword by name.
    const Entry* FindCut(std::string_view word);
    /// The syntax to which the table gives the name in `section`; of several of which none is valid there,
    /// the first.
    const Core::Keywords::IKeywordSyntax& Get(
        const Entry& entry, Core::Keywords::SectionType::Enum section) const;
    /// As `NearestNames::Find`. Lasts as long as this object.
    const std::vector<std::string>& FindNearest(
        const std::string& word, Core::Keywords::SectionType::Enum section);

    const LanguageIndex& GetLanguage() const { return language_; }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    Entry MakeEntry(std::string_view word) const;

    const LanguageIndex& language_;
    Target target_;
    std::unordered_map<std::string, Entry, Hash, std::equal_to<>> entries_; // without syntaxes: unknown words
    std::vector<Entry> structure_; // keywords that include a file or begin a section
    std::map<std::pair<std::string, Core::Keywords::SectionType::Enum>, std::vector<std::string>> nearest_;
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/Deck.h"
#include "quor/deck/DeckLanguage.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// What a rule says of the names in an item of a keyword.
struct NamedItem {
    std::size_t kind; ///< among the kinds of the language
    std::string item; ///< empty: the elements of the list that the keyword has as data
    bool isDefinition;
};

/// What the rules of the language say of names, each keyword asked for once. Several threads may ask.
class NameRules {
public:
    explicit NameRules(const Core::Decks::DeckLanguage& language);

    /// Valid as long as this object.
    const std::vector<NamedItem>& Get(const Core::Keywords::IKeywordSyntax& syntax);
    /// As "well".
    const std::vector<std::string>& GetKinds() const { return kinds_; }

private:
    const Core::Decks::DeckLanguage& language_;
    std::vector<std::string> kinds_;
    std::mutex mutex_;
    std::map<const Core::Keywords::IKeywordSyntax*, std::vector<NamedItem>> items_;
};

/// Where a deck has a name of some kind.
struct NameUse {
    std::uint32_t name; ///< among those of the index
    std::uint32_t keyword; ///< of the deck
    bool isDefinition;
    Core::Decks::TextRange range; ///< the word, with quotes
};

/// A name of some kind.
struct DeckName {
    std::size_t kind;
    std::string text; ///< as the deck has it first
    std::vector<std::uint32_t> uses = {}; ///< definitions among them, in the order of the deck
    bool isDefined = false;
};

/// The names in a deck: which items have them, the rules of the language say.
class NameIndex {
public:
    NameIndex(const Core::Decks::Deck& deck, NameRules& rules);

    const std::vector<DeckName>& GetNames() const { return names_; }
    const std::vector<NameUse>& GetUses() const { return uses_; }

    /// The uses at a byte of a file, the end of a word included: several if a name is of several kinds there.
    std::vector<std::uint32_t> FindAt(std::uint32_t file, std::size_t offset) const;
    /// The number of a name of a kind, without regard to case; empty if the deck has none.
    std::optional<std::uint32_t> FindNumber(std::size_t kind, const std::string& text) const;
    /// The names that are the same thing as the use says: those of the kinds that share a word with it, and
    /// one that begins with '*' under the kind that defines it.
    std::vector<std::uint32_t> FindSame(std::uint32_t use) const;

private:
    void Add(const Core::Decks::DeckFiles& files, const NamedItem& item, const NameUse& use);
    std::uint32_t NumberOf(std::size_t kind, std::string_view text);

    std::vector<DeckName> names_;
    std::vector<NameUse> uses_;
    std::unordered_map<std::string, std::uint32_t> numbers_; // by kind and text in upper case
    std::vector<std::vector<std::uint32_t>> byFile_; // uses, by offset
};

} // namespace Veld::Quor::Tools::LanguageServer

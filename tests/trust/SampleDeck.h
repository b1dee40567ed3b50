#pragma once

#include "quor/deck/Deck.h"
#include "quor/deck/ValueAddress.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Trust {

/// A given value of a deck, with its metadata and its word in the text.
struct Value {
    std::size_t keyword = 0; ///< index among the keywords of the deck
    Core::Decks::ValuePath path; ///< in its data
    std::string item; ///< its name, or that of the list that it is in; may be empty
    const Core::Keywords::IKeywordDataMD* md = nullptr;
    const Core::Keywords::IKeywordRecordMD* record = nullptr; ///< that it is in; null in a list of values
    const Core::Keywords::IKeywordListMD* list = nullptr; ///< of values that it is in; null in a record
    Core::Decks::TextRange range;
    std::string text; ///< without quotes
};

/// A word of the text of a keyword, or a slash that ends something.
struct Word {
    Core::Decks::TextRange range;
    bool isSlash = false;
};

/// A deck without a finding, into which mistakes are seeded.
class SampleDeck {
public:
    /// Reads it for the simulator and the mode that a comment of the deck names after `quor check`. Throws if
    /// it has findings.
    SampleDeck(const std::string& path, const Core::Decks::DeckLanguage& language);

    const std::string& GetPath() const { return path_; }
    const Core::Decks::Deck& GetDeck() const { return deck_; }
    const Core::Decks::Target& GetTarget() const { return deck_.GetTarget(); }
    const std::vector<Value>& GetValues() const { return values_; }

    std::string_view GetText(const Core::Decks::TextRange& range) const
    {
        return deck_.GetFiles().GetText(range);
    }
    std::string_view GetText(std::uint32_t file) const { return deck_.GetFiles().GetText(file); }
    /// Whole lines, with the end of the last one.
    Core::Decks::TextRange LinesOf(const Core::Decks::TextRange& range) const;
    /// The words of a keyword after its name, comments passed over; empty if it is in several files.
    std::vector<Word> WordsOf(const Core::Decks::DeckKeyword& keyword) const;
    /// The word and the slash that ends its record; of no length if there is none.
    Core::Decks::TextRange SlashAfter(const Value& value) const;
    /// All words of the deck that are this one, without quotes.
    std::vector<Core::Decks::TextRange> UsesOf(const std::string& word) const;
    /// A size of the deck by the item that gives it, as "NX"; 0 if it doesn't.
    std::size_t GetSize(const std::string& item) const;

private:
    void AddValues(const std::string& name);

    std::string path_;
    Core::Decks::Deck deck_;
    std::vector<Value> values_;
};

/// A word without its quotes.
std::string Unquoted(std::string_view word);

} // namespace Veld::Quor::Trust

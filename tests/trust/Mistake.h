#pragma once

#include "tests/trust/Random.h"
#include "tests/trust/SampleDeck.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Trust {

/// A change of a deck after which something is wrong with it.
struct Mistake {
    std::vector<Core::Decks::TextEdit> edits;
    /// Where a finding is right too, in the text before the change: the lines of these bytes. The changed
    /// lines always are.
    std::vector<Core::Decks::TextRange> places = {};
};

/// Makes a mistake of one kind at a random place; none if the deck has no place for it.
using MakeMistake = std::function<std::optional<Mistake>(const SampleDeck& deck, Random& random)>;

/// A kind of mistakes, as they are counted.
struct Kind {
    std::string name;
    MakeMistake make;
    bool isStrict = false; ///< simulators accept it: it is reported only if asked for
};

/// What a kind is about: words separated by blanks, which must all hold.
///
///     WCONPROD.ORAT     this item of this keyword; several of them: one must hold
///     *.WELL            this item of any keyword
///     WCONPROD          the keyword, and its items
///     -RPTSCHED         not this keyword
///     %Well             an output vector of this kind
///     ?STATUS=OPEN      in a record with this value, '*' at its end stands for any rest; ?LGR: with any
///     @SCHEDULE         in this section; several of them: one must hold
///     +integer          of this type: integer, real, number, choice, string; array (an element of a list of
///                       values) or record (an item of a record); identifier; required (has no default);
///                       given (in a list without defaults); head (the first of
///                       a list); first, later, last (in such a row of its table)
class Where {
public:
    explicit Where(const std::string& text);

    bool HasKeyword(const SampleDeck& deck, std::size_t keyword) const;
    bool HasValue(const SampleDeck& deck, const Value& value) const;

private:
    struct Item {
        std::string keyword; // "*": any
        std::string item; // empty: any
    };
    bool HasKeyword(const SampleDeck& deck, std::size_t keyword, const std::string* item) const;

    std::vector<Item> items_;
    std::vector<std::string> sections_;
    std::vector<std::string> types_;
    std::vector<std::string> except_;
    std::string entity_;
    std::vector<std::string> conditions_; // "STATUS=OPEN"
};

/// Values that `where` describes, in the order of the deck.
std::vector<const Value*> FindValues(const SampleDeck& deck, const Where& where);
/// Keywords that `where` describes, in the order of the deck, with their text in one file.
std::vector<std::size_t> FindKeywords(const SampleDeck& deck, const Where& where);
/// One of the values, each keyword name as likely as another; null if there are none.
const Value* ChooseValue(const SampleDeck& deck, const std::vector<const Value*>& values, Random& random);
/// Another item of the record of a value; null if it isn't given.
const Value* FindSibling(const SampleDeck& deck, const Value& value, const std::string& item);

/// Empty if there is none.
std::string TextOf(const Value* value);

/// The same item so many rows after it in its table; null if there is none.
const Value* FindInRow(const SampleDeck& deck, const Value& value, std::ptrdiff_t step);

/// The word with two letters exchanged, one left out, doubled or replaced; never the same.
std::string Misspelt(const std::string& word, Random& random);
/// The same, but no value and no keyword of the deck.
std::string MisspeltName(const SampleDeck& deck, const std::string& word, Random& random);

/// The ranges of all keywords with one of these names, separated by blanks.
std::vector<Core::Decks::TextRange> RangesOf(const SampleDeck& deck, const std::string& keywords);

void Append(std::vector<Core::Decks::TextRange> more, std::vector<Core::Decks::TextRange>& ranges);

// The kinds, by what is wrong.

void AddKindsOfText(std::vector<Kind>& kinds);
void AddKindsOfValues(std::vector<Kind>& kinds);
void AddKindsOfTables(std::vector<Kind>& kinds);
void AddKindsOfNames(std::vector<Kind>& kinds);
void AddKindsOfRules(std::vector<Kind>& kinds);
void AddKindsOfPresence(std::vector<Kind>& kinds);
void AddKindsOfSchedule(std::vector<Kind>& kinds);

} // namespace Veld::Quor::Trust

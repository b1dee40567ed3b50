#pragma once

#include "quor/deck/TextRange.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Time.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
class IKeywordSyntax;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Core::Decks {

class Deck;
struct DeckContents;
struct KeywordInstance;

/// A report that the deck asks for. Its number, counted from 1, is its index among the steps of the deck
/// plus 1.
struct ReportStep {
    Service::Time time; ///< undefined before the first date of the deck
    std::uint32_t keyword =
        0; ///< index of the deck's keyword that leads to it; those of the step come after it
    TextRange range; ///< of the element that leads to it, or of the keyword if that isn't known
};

/// "2030-01-31", with the time of day to the millisecond if that isn't midnight; empty for an undefined time
/// and outside the years 0 to 32767. `ValueAddress::Parse` and `Deck::FindStep` read it.
VELD_QUOR_EXPORT std::string DateText(const Service::Time& time);

/// One keyword of a deck: a handle of two words, cheap to copy, valid as long as the deck.
/// Several threads may use it at once.
class VELD_QUOR_EXPORT DeckKeyword {
public:
    /// Its name; for a name with a wildcard in the language, the name in the deck, in upper case.
    std::string GetName() const;
    /// Whether `name` is its name, without regard to case.
    bool IsNamed(std::string_view name) const;
    /// Its entry in the table of keywords; valid as long as the table.
    const Keywords::IKeywordSyntax& GetSyntax() const;
    /// The section that it is in; `SectionType::None` before the first.
    Keywords::SectionType::Enum GetSection() const;
    /// Counted from 0, in the order of reading.
    std::size_t GetIndex() const { return index_; }

    /// Null if the keyword has no data. Valid as long as the deck; read it with `quor/data/Access.h`.
    const Keywords::IKeywordData* FindData() const;
    /// The same. Throws `KeywordNotFound` if the keyword has no data.
    const Keywords::IKeywordData& GetData() const;
    /// Whether its data are what its text says: no errors were found in it but those of variables.
    bool IsSound() const;

    /// The last report step before it, in its section; null if there is none.
    const ReportStep* FindStep() const;
    /// The time of that step, or in SCHEDULE the start of the deck before the first; undefined elsewhere, and
    /// if the deck has none.
    Service::Time GetTime() const;

    /// Where its name begins.
    Location GetLocation() const;
    /// Where an element of the keyword's outermost list begins, counted from 0; the keyword itself if that
    /// isn't known.
    Location GetLocation(std::size_t element) const;
    /// The bytes of its name.
    TextRange GetNameRange() const;
    /// The keyword with its data; of no length if they continue in another file or around a skipped block.
    TextRange GetRange() const;
    /// The text of `GetRange`; valid as long as the deck.
    std::string_view GetText() const;

    /// Whether both are one keyword of one deck.
    /// @{
    friend bool operator==(const DeckKeyword& a, const DeckKeyword& b)
    {
        return a.contents_ == b.contents_ && a.index_ == b.index_;
    }
    friend bool operator!=(const DeckKeyword& a, const DeckKeyword& b) { return !(a == b); }
    /// @}

private:
    friend class Deck;
    friend void CheckIsOf(const Deck& deck, const DeckKeyword& keyword);
    DeckKeyword(const DeckContents& contents, std::size_t index)
        : contents_(&contents)
        , index_(index)
    {
    }
    const KeywordInstance& Get() const;

    const DeckContents* contents_;
    std::size_t index_;
};

} // namespace Veld::Quor::Core::Decks

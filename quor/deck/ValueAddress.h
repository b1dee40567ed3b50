#pragma once

#include "quor/data/Access.h"
#include "quor/deck/Deck.h"
#include "quor/deck/DeckKeyword.h"
#include "quor/deck/TextRange.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/service/Exception.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A text is no address, or no value of the deck has the address, or several have it. `what()` says in one
/// sentence what is wrong, and what the deck has instead; control characters are shown as '?'.
class VELD_QUOR_EXPORT AddressError : public Service::Exception {
public:
    /// Of an address that is well formed.
    static constexpr std::size_t noPosition = static_cast<std::size_t>(-1);

    /// `message`: a whole sentence.
    explicit AddressError(const std::string& message, std::size_t position = noPosition);
    AddressError(const AddressError&) = default;
    AddressError& operator=(const AddressError&) = default;
    ~AddressError() override;

    /// The byte of the text, counted from 0, at which something else is expected; the length of the text if
    /// it ends too early.
    std::size_t GetPosition() const { return position_; }

private:
    std::size_t position_;
};

/// What people call a value of a deck, in words that a change elsewhere in the deck does not touch:
///
///     WCONPROD[P1].ORAT@2024-04-01    the item ORAT of the record of well P1, after that report step
///     EQUALS[PORO].VALUE              a record list in another section has no date
///     EQUIL[2].DEPTH                  records without identifiers have a number, from 1
///     PORO[17]                        so have plain values
///     DIMENS.NX                       a keyword of a single record needs no brackets
///     PVTO[3].ROWS.2.P                in nested data, elements of lists by number
///     PVTO[3].ROWS.P                  without the number all elements
///     WELOPEN[P1,OPEN].I@2024-04-01#2 the second one of several with the same address
///
/// A text between quotes may hold any character, its quote doubled: `WCONPROD['P.1'].ORAT`.
struct VELD_QUOR_EXPORT ValueAddress {
    /// The name; required.
    std::string keyword;
    /// Of the record: the values of the items that identify it, in their order, or its number. The last ones
    /// may be missing. Exact texts, no patterns; "1*" for one that isn't given.
    std::vector<std::string> identifiers = {};
    /// The name of the item; in nested data the names from the outside in. An item without a name has its
    /// number in the record, an element of a list by its number there, from 1.
    std::vector<std::string> items = {};
    /// The date of a report step in SCHEDULE, or the start before the first: as `DateText` writes it. Empty:
    /// any.
    std::string date = {};
    /// Which of the values that all the rest matches, in the order of the deck, from 1; 0: all.
    std::size_t number = 0;

    /// Throws `AddressError` with the position. The date must be one of the calendar.
    static ValueAddress Parse(std::string_view text);
    /// `Parse` returns an equal address for it, if the date is one that `DateText` writes.
    std::string ToString() const;
};

/// Whether all parts are the same, letter by letter.
/// @{
VELD_QUOR_EXPORT bool operator==(const ValueAddress& a, const ValueAddress& b);
VELD_QUOR_EXPORT bool operator!=(const ValueAddress& a, const ValueAddress& b);
/// @}

/// The path from the data of a keyword to one value: indices from 0, of an element in a list, of an item in a
/// record. `{2, 7}` is item 7 of record 2 of a list, `{16}` a value of a plain list.
using ValuePath = std::vector<std::size_t>;

/// One value of a deck, given or not. Valid as long as the deck.
struct DeckValue {
    DeckKeyword keyword; ///< whose value it is
    ValuePath path; ///< from its data
    ValueAddress address; ///< the full one, which no other value of the deck has
    std::string text; ///< the value as a word of a deck without quotes; empty if it isn't given, or is a
                      ///< variable without a value
    /// The word of the value in the text, which may be a repeat (`10*0.2`) of others too; of no
    /// length if the value isn't given. None if the deck isn't editable, or errors in the keyword hide it.
    std::optional<TextRange> range;
};

// All functions below may be called by several threads at once. The first call for a name of keywords makes
// an index of their records; `std::bad_alloc` if memory runs out.

/// All values that the address matches, in the order of the deck; empty if there are none. A part that the
/// address leaves out matches all: without an item these are the values of the whole record. Values of maps
/// and raw texts have no address.
/// @{
VELD_QUOR_EXPORT std::vector<DeckValue> Resolve(const Deck& deck, const ValueAddress& address);
std::vector<DeckValue> Resolve(const Deck&& deck, const ValueAddress& address) = delete; // it dies first
/// @}
/// The one value that the address matches. Throws `AddressError` if there is none, and says which part the
/// deck doesn't have and what is similar, or if there are several, and says what to add.
/// @{
VELD_QUOR_EXPORT DeckValue ResolveOne(const Deck& deck, const ValueAddress& address);
DeckValue ResolveOne(const Deck&& deck, const ValueAddress& address) = delete;
/// @}

/// The value at a path in the data of one of the deck's keywords. Throws `AddressError` if no value is there;
/// this and the next throw `std::invalid_argument` for a keyword of another deck.
/// @{
VELD_QUOR_EXPORT DeckValue ResolvePath(const Deck& deck, const DeckKeyword& keyword, const ValuePath& path);
DeckValue ResolvePath(const Deck&& deck, const DeckKeyword& keyword, const ValuePath& path) = delete;
/// @}
/// The full address of an item of a record. `record` is the index from 0 in the keyword's list, 0 for a
/// keyword of a single record. Throws `AddressError` if there is no such record or item, or it is a
/// container, `KeywordNotFound` if the keyword has no data.
VELD_QUOR_EXPORT ValueAddress AddressOf(
    const Deck& deck, const DeckKeyword& keyword, std::size_t record, Keywords::ItemKey item);

/// The bytes of each scalar of a keyword's data, in the order of the tree: of each item of a record, given or
/// not, and of each element of a list of scalars. Those of a repeated word (`10*0.2`) have the same range;
/// one that isn't given has one of no length where it would be. Values of maps and raw texts have none. Null
/// if the deck isn't editable, or errors in the keyword hide them. Valid as long as the deck. Throws
/// `std::invalid_argument` for a keyword of another deck.
/// @{
VELD_QUOR_EXPORT const std::vector<TextRange>* FindValueRanges(const Deck& deck, const DeckKeyword& keyword);
const std::vector<TextRange>* FindValueRanges(const Deck&& deck, const DeckKeyword& keyword) = delete;
/// @}

} // namespace Veld::Quor::Core::Decks

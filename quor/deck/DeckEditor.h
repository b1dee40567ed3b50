#pragma once

#include "quor/deck/Deck.h"
#include "quor/deck/DeckKeyword.h"
#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/ReadOptions.h"
#include "quor/deck/TextRange.h"
#include "quor/deck/ValueAddress.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Exception.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Core::Decks {

class DeckChanges;

/// A change can't be made without a loss, or contradicts an earlier one. The text says which and why.
class VELD_QUOR_EXPORT EditError : public Service::Exception {
public:
    /// `message`: a whole sentence.
    explicit EditError(const std::string& message);
    EditError(const EditError&) = default;
    EditError& operator=(const EditError&) = default;
    ~EditError() override;
};

/// The new value of an item. Nothing is converted but a `float`: a Boolean needs a `bool`, an Integer an
/// `int`, a Real a `double` (`900.0`, not `900`), a String and a Line a text, a Choice the word of a choice,
/// whole and without regard to case.
class NewValue {
public:
    /// Of the type that the item must have. Texts are copied; a null pointer throws `std::invalid_argument`.
    /// @{
    NewValue(bool value) // implicit, as all: the position of an argument says what it is
        : value_(value)
    {
    }
    NewValue(int value)
        : value_(value)
    {
    }
    NewValue(double value)
        : value_(value)
    {
    }
    /// The number of fewest digits that is this one as a `float`: 0.1F is 0.1, not 0.10000000149011612.
    VELD_QUOR_EXPORT NewValue(float value);
    NewValue(std::string value)
        : value_(std::move(value))
    {
    }
    NewValue(std::string_view value)
        : value_(std::string(value))
    {
    }
    NewValue(const char* value)
        : value_(value ? std::string(value) : throw std::invalid_argument("the new value is a null pointer"))
    {
    }
    /// @}
    /// A pointer is no bool, a character no number.
    /// @{
    NewValue(std::nullptr_t) = delete;
    NewValue(char) = delete;
    template <class T, class = std::enable_if_t<!std::is_same_v<std::remove_const_t<T>, char>>>
    NewValue(T* value) = delete;
    /// @}

    /// As it was given; valid as long as this object.
    const std::variant<bool, int, double, std::string>& Get() const& { return value_; }
    const std::variant<bool, int, double, std::string>& Get() const&& = delete;

private:
    std::variant<bool, int, double, std::string> value_;
};

/// Changes a deck without touching any other byte of its files: comments, blanks, the order of lines and the
/// form of other numbers stay.
///
///     const Deck deck = Deck::Read("FIELD.data", language, ReadOptions().SetEditable(true));
///     DeckEditor editor(deck);
///     editor.SetValue("WCONPROD[P1].ORAT@2024-04-01", 900.0);
///     editor.RemoveKeyword(deck.Get("RPTSCHED"));
///     for (const std::uint32_t file : editor.GetChangedFiles())
///         Save(deck.GetFiles().Get(file).name, editor.GetText(file));
///
/// The deck stays as it is, and so do addresses and indices: the editor collects changes of its texts, which
/// the host saves or reads. Each function either makes its change as a whole or throws, and then nothing has
/// changed:
/// - `EditError` for what would lose something, such as a value that is a variable or a file that the deck
///   includes twice, for a value that would be read as another one, such as a text with blanks around it, and
///   for what contradicts an earlier change, such as a value in a removed record;
/// - `std::invalid_argument` for a keyword or value of another deck;
/// - `std::logic_error` if the deck was moved from or assigned to, `std::bad_alloc` if memory runs out.
///
/// Limits, sizes and what else the rest of the deck says about the changes are not checked: `Read` the
/// changed deck, and look at its findings. One thread at a time; several editors may change one deck at once.
class VELD_QUOR_EXPORT DeckEditor {
public:
    /// The deck must outlive it, and not be moved nor assigned to. Throws `std::invalid_argument` if it
    /// wasn't read with `ReadOptions::SetEditable`.
    explicit DeckEditor(const Deck& deck);
    explicit DeckEditor(const Deck&& deck) = delete; // it would die before the editor
    ~DeckEditor();
    DeckEditor(const DeckEditor&) = delete;
    DeckEditor& operator=(const DeckEditor&) = delete;

    // Values. An address must match one value (`ResolveOne`). Of several changes of one value the last holds.
    // Throw `AddressError` also for a text that is no address, `Keywords::DataAccessError` for a value of
    // another type and an unknown word of a choice.

    /// Replaces one value. A text is written in quotes where it needs them.
    /// @{
    void SetValue(std::string_view address, const NewValue& value);
    void SetValue(const ValueAddress& address, const NewValue& value);
    /// @}
    /// Replaces a value of this deck, found with `Resolve` and its like. Throws `EditError` if it has no
    /// range.
    void SetValue(const DeckValue& current, const NewValue& value);
    /// Leaves the value to its default. Throws `EditError` if it has none.
    /// @{
    void ClearValue(std::string_view address);
    void ClearValue(const ValueAddress& address);
    void ClearValue(const DeckValue& current);
    /// @}

    /// Replaces the values of a keyword that is a list of numbers. They are laid out as `DeckFormatter` does;
    /// comments between them stay at the same number of values. Throws `Keywords::DataAccessError` for any
    /// other keyword, and another type of numbers; `EditError` for a number that a deck can't hold, and if
    /// errors in the keyword hide where its data end. A wrong number of values doesn't.
    /// @{
    void SetArray(const DeckKeyword& keyword, const double* first, std::size_t count);
    void SetArray(const DeckKeyword& keyword, const int* first, std::size_t count);
    /// @}

    // Records: the elements of a keyword that is a list of records or lists.

    /// Appends one record, given as a deck has it: "P3 OPEN ORAT 800 /". A slash that is missing at its end
    /// is added, and so is the indentation of the first line. This and the next two throw
    /// `Keywords::DataAccessError` if the keyword is no such list. The values of the text are not checked.
    void AddRecord(const DeckKeyword& keyword, std::string_view text);
    /// Appends all elements of a list of the same keyword, made with `Keywords::KeywordDataFactory` and
    /// filled with `quor/data/Access.h`. Throws `Keywords::DataAccessError` if it is another keyword's.
    void AddRecords(const DeckKeyword& keyword, const Keywords::IKeywordData& records);
    /// `index`: counted from 0, in the deck as it was read. Lines on which nothing else is go whole, with the
    /// comments after it; comments on lines before it stay. Throws `std::out_of_range`.
    void RemoveRecord(const DeckKeyword& keyword, std::size_t index);

    // Keywords. A text has whole lines: a keyword of the language at the start of the first one, and its
    // data. The data are not checked. Several texts at one position keep their order. `EditError` for a
    // keyword that ends the deck or a file of it, or begins or ends a skipped block: the text after it would
    // change.

    /// After the data of the keyword and a slash that is alone after them.
    void AddKeywordAfter(const DeckKeyword& keyword, std::string_view text);
    /// After the last keyword of the section; `SectionType::None`: of those before the first one. Throws
    /// `std::out_of_range` if the deck has none.
    void AddKeywordAtEnd(Keywords::SectionType::Enum section, std::string_view text);
    /// After the last keyword of the report step with this index. Throws `std::out_of_range`, and `EditError`
    /// if the keyword that leads to the step leads to later ones too.
    void AddKeywordInStep(std::size_t step, std::string_view text);
    /// With its data; lines and comments as `RemoveRecord` does.
    void RemoveKeyword(const DeckKeyword& keyword);

    // The changed deck.

    /// By file and offset; empty if nothing changes.
    std::vector<TextEdit> GetEdits() const;
    /// Indices among the files of the deck, ascending.
    std::vector<std::uint32_t> GetChangedFiles() const;
    /// All bytes of a file with the changes, ready to be saved: a byte order mark is among them. Saving is
    /// the host's, who knows about backups, permissions and unsaved buffers. Throws `std::out_of_range`.
    std::string GetText(std::uint32_t file) const;
    /// The files of the deck, changed, by the paths from which they were read. `others` serves files that the
    /// deck didn't read; null: the files of the system.
    std::shared_ptr<const DeckSource> MakeSource(std::shared_ptr<const DeckSource> others = nullptr) const;
    /// Reads the changed deck, with the options of the deck or others. Their source serves files that the
    /// deck didn't read. Throws what `Deck::Read` throws.
    /// @{
    Deck Read(const DeckLanguage& language) const;
    Deck Read(const DeckLanguage& language, const ReadOptions& options) const;
    Deck Read(const DeckLanguage&& language) const = delete; // it would die before the deck
    Deck Read(const DeckLanguage&& language, const ReadOptions& options) const = delete;
    /// @}

private:
    void Set(const DeckValue& current, const NewValue* value);
    void ReplaceArray(const DeckKeyword& keyword, const Keywords::IKeywordData& data);
    void AddKeyword(std::size_t after, bool leavesBlocks, std::string_view text);

    const Deck& GetDeck() const;

    const Deck& deck_;
    std::uint64_t id_; // of what the deck held when this was made
    std::unique_ptr<DeckChanges> changes_;
};

} // namespace Veld::Quor::Core::Decks

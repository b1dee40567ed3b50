#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckKeyword.h"
#include "quor/deck/DeckLanguage.h"
#include "quor/deck/Finding.h"
#include "quor/deck/ReadOptions.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Exception.h"
#include "quor/foundation/service/Time.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The deck has no such keyword, or the keyword no data. The text has the name, and names of the deck that
/// are near.
class VELD_QUOR_EXPORT KeywordNotFound : public Service::Exception {
public:
    /// `message`: a whole sentence.
    explicit KeywordNotFound(const std::string& message);
    KeywordNotFound(const KeywordNotFound&) = default;
    KeywordNotFound& operator=(const KeywordNotFound&) = default;
    ~KeywordNotFound() override;
};

/// A deck as it was read: its keywords with their data, its report steps, its findings and the texts of its
/// files. It never changes, so several threads may use it at once. What refers to a deck (a `DeckKeyword`, a
/// view, a reference) is valid as long as the deck, and also after a move: then it refers to the deck that
/// was moved to. A deck that was moved from may be assigned to and destroyed; all else throws
/// `std::logic_error`. What returns a reference or keywords can't be called on a temporary deck, but
/// `GetFindings`, which then returns a copy. All functions but `GetSize` and simple getters may throw
/// `std::bad_alloc`.
///
///     const DeckLanguage language;
///     const Deck deck = Deck::Read("FIELD.data", language);
///     for (const Finding& finding : deck.GetFindings())
///         std::cout << ToString(finding) << '\n';
///     const auto porosities = Keywords::As<double>(Keywords::AsList(deck.Get("PORO").GetData()));
///
/// A deck with errors is read as far as it can be made out. What was no keyword and no data (comments, blank
/// lines, inclusions, skipped blocks, unknown keywords) is in the texts of the files.
class VELD_QUOR_EXPORT Deck {
public:
    /// Reads a deck whole; what is wrong with it is among its findings. Throws `SourceError` if the deck
    /// itself can't be read (an included file that can't be read is a finding), `ReadCancelled` if the host
    /// cancelled it, `std::bad_alloc` if memory runs out. The language must outlive the deck.
    static Deck Read(
        const std::string& path, const DeckLanguage& language, const ReadOptions& options = ReadOptions());
    static Deck Read(const std::string& path, const DeckLanguage&& language,
        const ReadOptions& options = ReadOptions()) = delete; // it would die before the deck
    /// The same for a text in memory. `name` is its path: findings name it, and files that the deck
    /// includes are searched for in its folder, in the source of the options.
    static Deck ReadText(std::string text, const DeckLanguage& language,
        const ReadOptions& options = ReadOptions(), const std::string& name = "deck.data");
    static Deck ReadText(std::string text, const DeckLanguage&& language,
        const ReadOptions& options = ReadOptions(), const std::string& name = "deck.data") = delete;

    ~Deck();
    Deck(Deck&&) noexcept;
    Deck& operator=(Deck&&) noexcept;

    // Its keywords, in the order of reading, those that begin sections included. Keywords of the text itself
    // (inclusions, skipped blocks, END) are not among them.

    class Iterator;
    /// How many keywords it has.
    std::size_t GetSize() const;
    /// Throws `std::out_of_range`.
    DeckKeyword operator[](std::size_t index) const&;
    DeckKeyword operator[](std::size_t index) const&& = delete;
    /// For a range-based `for` over the keywords.
    /// @{
    Iterator begin() const&;
    Iterator begin() const&& = delete;
    Iterator end() const&;
    Iterator end() const&& = delete;
    /// @}

    // By name, without regard to case. The first call makes an index; the rest cost a look-up.

    /// Whether the deck has such a keyword.
    bool Has(std::string_view name) const;
    /// The last one in the order of reading. Earlier ones may be in effect too, of other cells or wells.
    /// Throws `KeywordNotFound`.
    DeckKeyword Get(std::string_view name) const&;
    DeckKeyword Get(std::string_view name) const&& = delete;
    /// In the order of reading; empty if the deck has none.
    std::vector<DeckKeyword> GetAll(std::string_view name) const&;
    std::vector<DeckKeyword> GetAll(std::string_view name) const&& = delete;

    // By section and date.

    /// In the order of reading, the keyword that begins the section first; empty if the deck has none.
    std::vector<DeckKeyword> GetSection(Keywords::SectionType::Enum section) const&;
    std::vector<DeckKeyword> GetSection(Keywords::SectionType::Enum section) const&& = delete;
    /// Those after the report step with this index, up to the next step or the end of the section. Those of
    /// SCHEDULE before the first step are after none: `GetSection` has all, and `GetTime` the time of each.
    /// Throws `std::out_of_range` if the deck has no such step.
    std::vector<DeckKeyword> GetAfterStep(std::size_t step) const&;
    std::vector<DeckKeyword> GetAfterStep(std::size_t step) const&& = delete;
    /// The index of the first report step at a date, as `DateText` writes it ("2024-04-01"); empty if the
    /// deck has none. Throws `std::invalid_argument` for a text that is no such date.
    std::optional<std::size_t> FindStep(std::string_view date) const;
    /// The keywords of SCHEDULE that hold from a date on, whose `GetTime` it is: those after the report steps
    /// at the date, or before the first if it is the start of the deck. In the order of reading; empty if
    /// there are none. Throws as `FindStep` does.
    std::vector<DeckKeyword> GetAtDate(std::string_view date) const&;
    std::vector<DeckKeyword> GetAtDate(std::string_view date) const&& = delete;
    /// When the simulation starts; undefined if the deck doesn't say it.
    Service::Time GetStart() const;
    /// In the order of reading.
    const std::vector<ReportStep>& GetSteps() const&;
    const std::vector<ReportStep>& GetSteps() const&& = delete;

    // What was found and read. What is returned by reference is valid as long as the deck.

    /// In the order in which they were found: that of reading, but a mistake that only later text reveals
    /// comes after the findings before that text, and those on comments that hide findings
    /// (`bad-suppression`) come before the others of their file, or at the end. A temporary deck returns a
    /// copy.
    /// @{
    const Findings& GetFindings() const&;
    Findings GetFindings() const&&;
    /// @}
    /// Whether there are no errors and no warnings.
    bool IsClean() const { return GetFindings().IsClean(); }
    /// For which the deck was read.
    const Target& GetTarget() const&;
    const Target& GetTarget() const&& = delete;
    /// With which the deck was read, but without progress, cancellation and known findings, which may refer
    /// to what is gone.
    const ReadOptions& GetOptions() const&;
    const ReadOptions& GetOptions() const&& = delete;
    /// In the order of reading, the deck itself first.
    const DeckFiles& GetFiles() const&;
    const DeckFiles& GetFiles() const&& = delete;
    /// How many different files, the deck itself included.
    std::size_t GetFileCount() const;
    /// How many different sections.
    std::size_t GetSectionCount() const;

private:
    friend class DeckEditor; // which reads the deck again from changed texts
    explicit Deck(std::unique_ptr<DeckContents> contents);
    static Deck ReadFrom(std::shared_ptr<const DeckSource> source, const std::string& path,
        const DeckLanguage& language, const ReadOptions& options);
    friend const DeckContents& ContentsOf(const Deck& deck); // throws if it was moved from

    std::unique_ptr<DeckContents> contents_;
};

/// Goes over the keywords of a deck; valid as long as the deck.
class Deck::Iterator {
public:
    /// Keeps a keyword for as long as the expression with `->`.
    class Pointer {
    public:
        /// Copies the keyword.
        explicit Pointer(const DeckKeyword& keyword)
            : keyword_(keyword)
        {
        }
        /// Never null.
        const DeckKeyword* operator->() const { return &keyword_; }

    private:
        DeckKeyword keyword_;
    };

    /// What the standard library asks of an iterator.
    /// @{
    using iterator_category = std::input_iterator_tag;
    using value_type = DeckKeyword;
    using difference_type = std::ptrdiff_t;
    using pointer = Pointer;
    using reference = DeckKeyword;
    /// @}

    /// At the keyword with this index, or at the end.
    Iterator(const Deck& deck, std::size_t index)
        : deck_(&deck)
        , index_(index)
    {
    }
    /// The keyword. Throws `std::out_of_range` at the end.
    /// @{
    DeckKeyword operator*() const { return (*deck_)[index_]; }
    Pointer operator->() const { return Pointer(**this); }
    /// @}
    /// Goes to the next keyword.
    /// @{
    Iterator& operator++()
    {
        ++index_;
        return *this;
    }
    Iterator operator++(int)
    {
        const Iterator before = *this;
        ++index_;
        return before;
    }
    /// @}
    /// Compares positions; both of the same deck.
    /// @{
    bool operator==(const Iterator& other) const { return index_ == other.index_; }
    bool operator!=(const Iterator& other) const { return index_ != other.index_; }
    /// @}

private:
    const Deck* deck_ = nullptr;
    std::size_t index_ = 0;
};

inline Deck::Iterator Deck::begin() const&
{
    return Iterator(*this, 0);
}

inline Deck::Iterator Deck::end() const&
{
    return Iterator(*this, GetSize());
}

} // namespace Veld::Quor::Core::Decks

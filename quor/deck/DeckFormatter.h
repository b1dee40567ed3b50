#pragma once

#include "quor/deck/Deck.h"
#include "quor/foundation/Export.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Veld::Quor::Core::Decks {

class DeckWriter;

/// How a deck is formatted.
class FormatOptions {
public:
    /// Whether each keyword is written from its data in one form: a number in the fewest digits, a word
    /// without quotes that it doesn't need, repeated values combined, defaulted ones omitted, columns
    /// aligned. False at first: then lines, columns, repeats and spelling stay as they are. Only rows whose
    /// columns are not below one another are aligned, and what tidy decks don't have is fixed: blanks within
    /// quotes, defaults after the last item, blank texts for defaults in rows, assignments in quotes, remarks
    /// without hyphens.
    FormatOptions& SetNormalized(bool isNormalized)
    {
        isNormalized_ = isNormalized;
        return *this;
    }
    /// What was set.
    bool IsNormalized() const { return isNormalized_; }

private:
    bool isNormalized_ = false;
};

/// Formats a deck. The result has the same data, and doesn't change if it is formatted once more. What is no
/// keyword stays as it is: comments, blank lines, inclusions, skipped blocks, unknown keywords. So does a
/// keyword with errors in it, one of raw text, and one whose data continue in another file or around a
/// skipped block. A text is made whole in memory. One thread at a time; several formatters may write one deck
/// at once. Throws `std::bad_alloc`.
class VELD_QUOR_EXPORT DeckFormatter {
public:
    /// The deck must outlive it, and not be moved nor assigned to: then all functions throw
    /// `std::logic_error`. Throws it too if the deck was moved from.
    explicit DeckFormatter(const Deck& deck, const FormatOptions& options = FormatOptions());
    explicit DeckFormatter(const Deck&& deck,
        const FormatOptions& options = FormatOptions()) = delete; // it would die before the formatter
    ~DeckFormatter();
    DeckFormatter(const DeckFormatter&) = delete;
    DeckFormatter& operator=(const DeckFormatter&) = delete;

    /// The text of one of the deck's files, by its index among them, without a byte order mark. Throws
    /// `std::out_of_range`.
    std::string FormatFile(std::uint32_t file);
    /// The whole deck, with the included files in place of their inclusions.
    std::string FormatAll();

private:
    void CheckDeck() const;

    const Deck& deck_;
    std::uint64_t id_; // of what the deck held when this was made
    std::unique_ptr<DeckWriter> writer_;
};

} // namespace Veld::Quor::Core::Decks

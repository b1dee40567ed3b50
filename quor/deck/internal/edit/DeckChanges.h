#pragma once

#include "quor/deck/TextRange.h"
#include "quor/deck/ValueAddress.h"
#include "quor/deck/internal/edit/ValueEdits.h"
#include "quor/deck/internal/read/contents/DeckContents.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Changes of a deck that don't contradict one another. Every function throws `EditError`, and changes
/// nothing, if its change would, or would touch a file that the deck includes more than once.
class DeckChanges {
public:
    /// The deck must outlive it.
    explicit DeckChanges(const DeckContents& deck)
        : deck_(deck)
    {
    }

    /// No word: the value stays as it is, whatever was set before.
    void SetWord(std::uint32_t keyword, const ValuePath& path, const std::optional<NewWord>& word);
    void SetArray(std::uint32_t keyword, TextEdit edit);
    void AddRecords(std::uint32_t keyword, TextEdit edit);
    void RemoveRecord(std::uint32_t keyword, std::size_t index);
    void AddKeyword(TextEdit edit);
    void RemoveKeyword(std::uint32_t keyword);

    /// By file and offset, one at a position.
    std::vector<TextEdit> GetEdits() const;

private:
    /// Of one keyword.
    struct Change {
        NewWords words;
        std::optional<TextEdit> array;
        std::map<std::size_t, TextEdit> removed; // records
        std::vector<TextEdit> added; // records
        std::optional<TextEdit> removal;
    };

    const Change* Find(std::uint32_t keyword) const;
    void CheckFile(std::uint32_t file) const;
    void CheckNotRemoved(std::uint32_t keyword) const;
    [[noreturn]] void FailConflict(std::uint32_t keyword, const char* why) const;

    const DeckContents& deck_;
    std::map<std::uint32_t, Change> changes_;
    std::vector<TextEdit> addedKeywords_;
};

} // namespace Veld::Quor::Core::Decks

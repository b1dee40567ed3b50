#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/read/data/DataNotes.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/read/words/DeckText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Notes what the text of a keyword holds beside its data, while it is read.
class NoteTaker {
public:
    /// Gets the comments of the text from now on. `keepsValueRanges`: the notes get the range of each value,
    /// at a cost in time and memory.
    NoteTaker(DeckText& text, bool keepsValueRanges);
    NoteTaker(const NoteTaker&) = delete;
    NoteTaker& operator=(const NoteTaker&) = delete;

    bool KeepsValueRanges() const { return keepsValueRanges_; }

    void Begin();
    /// Item or element `index` of the node begins: what follows is within it, up to `Leave`.
    void Enter(int index) { path_.push_back(index); }
    void Leave() { path_.pop_back(); }

    /// A comment is here. The sink of the text calls it.
    void AddComment(const TextRange& range, CommentKind kind);
    /// Slots are over that the word at the range says the values of.
    void Pass(const TextRange& range, std::size_t slots = 1);
    /// The same, of which nothing is noted: the ranges of values aren't wanted, or are noted by `NoteValue`.
    void PassPlain(std::size_t slots) { position_.slots += slots; }
    void NoteValue(const TextRange& range) { notes_.values.push_back(range); }
    /// A slash at `range` came in place of the scalar, or of the items of the record from `firstItem` on.
    void PassMissing(const DataPlan& plan, std::size_t firstItem, const TextRange& range);
    /// A slash ended a record, list or map.
    void PassEnd() { ++position_.ends; }
    /// A word did.
    void PassEndWord(std::string_view word);

    /// A number of a map in its older form, so many times.
    void AddSwitches(int value, long long count)
    {
        notes_.switches.insert(notes_.switches.end(), static_cast<std::size_t>(count), value);
    }
    bool HasSwitches() const { return !notes_.switches.empty(); }

    /// `text`, with variables, stands for `count` scalars of the node from `index` on.
    void AddVariable(int index, long long count, std::string_view text);
    /// `text` stands for the value of a key of the node, a map.
    void AddVariable(const std::string& key, const std::string& text);

    /// The keyword's data are read, and its nodes don't move any more. `end`: of its last word; comments
    /// after it belong to what follows.
    DataNotes Finish(const Core::Keywords::IKeywordData& data, const TextRange& end);

private:
    struct VariableUse {
        std::vector<int> path;
        int index;
        int count;
        std::string key; // of a map; else empty
        std::string text;
    };

    bool keepsValueRanges_;
    DataNotes notes_;
    DataPosition position_;
    std::vector<int> path_; // from the root to what is being read
    std::vector<VariableUse> variableUses_;
};

} // namespace Veld::Quor::Core::Decks

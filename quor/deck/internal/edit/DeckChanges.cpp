#include "quor/deck/internal/edit/DeckChanges.h"

#include "quor/deck/DeckEditor.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/edit/ListEdits.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

bool IsBefore(const TextEdit& a, const TextEdit& b)
{
    const auto rank = [](const TextEdit& edit) {
        return std::make_tuple(edit.range.file, edit.range.offset, edit.range.length > 0);
    };
    return rank(a) < rank(b);
}

bool AreOneInsertion(const TextEdit& a, const TextEdit& b)
{
    return a.range.length == 0 && b.range.length == 0 && a.range.file == b.range.file
        && a.range.offset == b.range.offset;
}

void Append(std::vector<TextEdit>& edits, const std::vector<TextEdit>& more)
{
    edits.insert(edits.end(), more.begin(), more.end());
}

} // namespace

void DeckChanges::SetWord(std::uint32_t keyword, const ValuePath& path, const std::optional<NewWord>& word)
{
    CheckNotRemoved(keyword);
    const KeywordInstance& instance = deck_.keywords[keyword];
    const std::size_t slot = SlotOf(*instance.data, path);
    if (const Change* const change = Find(keyword)) {
        if (change->array)
            FailConflict(keyword, "its array was replaced earlier");
        if (change->removed.count(path.front()) > 0)
            FailConflict(keyword, "the record was removed earlier");
    }
    if (!word) {
        if (Find(keyword))
            changes_[keyword].words.erase(slot);
        return;
    }
    for (const TextEdit& edit : EditValues(deck_, instance, {{slot, *word}})) // throws if it can't be done
        CheckFile(edit.range.file);
    NewWord kept = *word; // may fail: not once the slot is there
    changes_[keyword].words.insert_or_assign(slot, std::move(kept));
}

void DeckChanges::SetArray(std::uint32_t keyword, TextEdit edit)
{
    CheckNotRemoved(keyword);
    CheckFile(edit.range.file);
    const Change* const change = Find(keyword);
    if (change && !change->words.empty())
        FailConflict(keyword, "one of its values was changed earlier");
    changes_[keyword].array = std::move(edit);
}

void DeckChanges::AddRecords(std::uint32_t keyword, TextEdit edit)
{
    CheckNotRemoved(keyword);
    CheckFile(edit.range.file);
    changes_[keyword].added.push_back(std::move(edit));
}

void DeckChanges::RemoveRecord(std::uint32_t keyword, std::size_t index)
{
    CheckNotRemoved(keyword);
    const KeywordInstance& instance = deck_.keywords[keyword];
    TextEdit edit = RemoveRecordFrom(deck_, instance, index);
    CheckFile(edit.range.file);
    if (const Change* const change = Find(keyword)) {
        const std::size_t first = SlotOf(*instance.data, {index});
        const std::size_t end = first + CountSlots(ChildOf(*instance.data, index));
        if (change->words.lower_bound(first) != change->words.lower_bound(end))
            FailConflict(keyword, "a value of the record was changed earlier");
    }
    changes_[keyword].removed[index] = std::move(edit);
}

void DeckChanges::AddKeyword(TextEdit edit)
{
    CheckFile(edit.range.file);
    addedKeywords_.push_back(std::move(edit));
}

void DeckChanges::RemoveKeyword(std::uint32_t keyword)
{
    const Change* const change = Find(keyword);
    if (change && change->removal)
        return;
    if (change
        && !(change->words.empty() && !change->array && change->removed.empty() && change->added.empty()))
        FailConflict(keyword, "its data were changed earlier");
    TextEdit edit = RemoveKeywordFrom(deck_, deck_.keywords[keyword]);
    CheckFile(edit.range.file);
    changes_[keyword].removal = std::move(edit);
}

std::vector<TextEdit> DeckChanges::GetEdits() const
{
    std::vector<TextEdit> edits;
    for (const auto& [keyword, change] : changes_) {
        if (!change.words.empty())
            Append(edits, EditValues(deck_, deck_.keywords[keyword], change.words));
        for (const auto& [index, edit] : change.removed)
            edits.push_back(edit);
        Append(edits, change.added);
        if (change.array)
            edits.push_back(*change.array);
        if (change.removal)
            edits.push_back(*change.removal);
    }
    Append(edits, addedKeywords_); // after records that are added at the same place
    std::stable_sort(edits.begin(), edits.end(), IsBefore);
    std::vector<TextEdit> combined;
    for (TextEdit& edit : edits) {
        if (!combined.empty() && AreOneInsertion(combined.back(), edit))
            combined.back().text += edit.text;
        else
            combined.push_back(std::move(edit));
    }
    return combined;
}

const DeckChanges::Change* DeckChanges::Find(std::uint32_t keyword) const
{
    const auto change = changes_.find(keyword);
    return change == changes_.end() ? nullptr : &change->second;
}

void DeckChanges::CheckFile(std::uint32_t file) const
{
    const DeckFile& changed = deck_.files.Get(file);
    for (std::uint32_t other = 0; other < deck_.files.GetSize(); ++other) {
        if (other != file && deck_.files.Get(other).text == changed.text)
            throw EditError(fmt::format(
                "the deck includes '{}' more than once; a change of it would apply to each inclusion",
                Printable(changed.name)));
    }
}

void DeckChanges::CheckNotRemoved(std::uint32_t keyword) const
{
    const Change* const change = Find(keyword);
    if (change && change->removal)
        FailConflict(keyword, "the keyword was removed earlier");
}

void DeckChanges::FailConflict(std::uint32_t keyword, const char* why) const
{
    throw EditError(fmt::format("{}: {}", deck_.NameOf(deck_.keywords[keyword]), why));
}

} // namespace Veld::Quor::Core::Decks

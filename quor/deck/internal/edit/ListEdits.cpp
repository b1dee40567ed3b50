#include "quor/deck/internal/edit/ListEdits.h"

#include "quor/data/Access.h"
#include "quor/deck/DeckEditor.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/edit/KeywordText.h"
#include "quor/deck/internal/edit/WritableValues.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/TextLines.h"
#include "quor/deck/internal/write/DataWriter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cassert>
#include <stdexcept>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = DataPlan::MDType;
using Termination = DataPlan::Termination;

std::size_t EndOf(const TextRange& range)
{
    return range.offset + range.length;
}

void CheckWhole(const DeckContents& deck, const KeywordInstance& keyword)
{
    if (keyword.whole.length == 0)
        throw EditError(fmt::format(
            "the data of {} continue in another file or around a skipped block", deck.NameOf(keyword)));
}

void CheckSound(const DeckContents& deck, const KeywordInstance& keyword)
{
    CheckWhole(deck, keyword);
    if (!keyword.isSound)
        throw EditError(fmt::format("errors in {} hide where its data end", deck.NameOf(keyword)));
}

/// The text of a keyword with its data, by the rules of the formatter.
std::string Written(const DeckContents& deck, const KeywordInstance& keyword, const IKeywordData& data,
    const DataNotes* notes, const DataPlan& plan)
{
    try {
        return DataWriter(plan, notes, deck.files).Write(deck.files.GetText(keyword.name), data, false);
    } catch (const std::invalid_argument& error) {
        throw EditError(fmt::format("{}: {}", deck.NameOf(keyword), error.what()));
    }
}

/// The outermost list of a keyword, whose elements are records or lists.
class RecordList {
public:
    RecordList(const DeckContents& deck, const KeywordInstance& keyword)
        : deck_(deck)
        , keyword_(keyword)
        , text_(deck.files.GetText(keyword.name.file))
        , plans_(deck.GetTarget())
        , plan_(Check())
    {
        CheckSound(deck, keyword);
    }

    TextEdit Add(std::string_view record) const;
    TextEdit AddAll(const IKeywordData& records) const;
    TextEdit Remove(std::size_t index) const;

private:
    const DataPlan& Check();
    const DataPlan& Element() const { return plan_.items.front(); }
    bool HasEnd() const { return plan_.termination != Termination::NONE; }
    /// Whether one slash ends an element.
    bool IsFlat() const
    {
        const auto& items = Element().items;
        return Element().termination == Termination::SLASH
            && std::all_of(items.begin(), items.end(), [](const DataPlan& item) { return item.IsScalar(); });
    }
    std::size_t FindEnd() const;
    std::string Indentation() const;
    void CheckOneRecord(std::string_view text, std::size_t end) const;
    TextEdit AddLines(const std::string& lines) const;
    bool SharesRepeat(std::size_t index) const;
    [[noreturn]] void Fail(const char* why) const;

    const DeckContents& deck_;
    const KeywordInstance& keyword_;
    std::string_view text_;
    DataPlans plans_;
    const DataPlan& plan_;
};

const DataPlan& RecordList::Check()
{
    const IKeywordDataMD* const md = keyword_.data ? keyword_.data->GetMD() : nullptr;
    const DataPlan* const plan = md ? &plans_.Get(*md) : nullptr;
    if (!plan || plan->type != MDType::List || plan->items.empty() || plan->items.front().IsScalar())
        throw DataAccessError(fmt::format("{} is not a list of records or lists", deck_.NameOf(keyword_)));
    return *plan;
}

/// Where what ends the list begins, or the end of the keyword.
std::size_t RecordList::FindEnd() const
{
    const std::size_t end = EndOf(keyword_.whole);
    if (plan_.termination == Termination::CUSTOMIZED && keyword_.notes && !keyword_.notes->endWords.empty())
        return end - keyword_.notes->endWords.back().size();
    return HasEnd() ? end - 1 : end;
}

std::string RecordList::Indentation() const
{
    if (keyword_.records.empty())
        return "  ";
    const std::size_t begin = keyword_.records.front().offset;
    const std::size_t line = StartOfLine(text_, begin);
    const std::string indentation(text_.substr(line, begin - line));
    return IsEmpty(indentation) ? indentation : "  ";
}

TextEdit RecordList::Add(std::string_view record) const
{
    const std::size_t first = std::min(record.find_first_not_of(" \t\r\n"), record.size());
    std::string lines(record.substr(first, record.find_last_not_of(" \t\r\n") + 1 - first));
    const std::size_t last = StartOfLine(lines, lines.size());
    if (Element().termination == Termination::EOL && last > 0)
        Fail("expected a record of one line");
    const std::size_t end = EndOfWords(lines, 0, lines.size());
    if (end == 0)
        Fail("expected a record, not an empty text");
    if (HasEnd() && lines[0] == '/')
        Fail("a record without values would end the list");
    CheckOneRecord(lines, end);
    if (Element().termination == Termination::SLASH && lines[end - 1] != '/')
        lines.insert(end, " /");
    std::string indentation = Indentation();
    if (indentation.empty() && IsKeywordName(deck_, FindLeadingWord(lines)))
        indentation = "  ";
    return AddLines(indentation + IndentNames(deck_, std::move(lines)));
}

/// `end`: of the words of the text.
void RecordList::CheckOneRecord(std::string_view text, std::size_t end) const
{
    if (!IsFlat())
        return;
    const std::size_t slash = EndOfRecord(text);
    const std::string_view rest = TrimBlanks(RestOfLine(text, slash));
    if (slash < end || (rest.ends_with('/') && !IsComment(rest)))
        Fail("expected one record, not more");
    if (HasOpenQuote(text))
        Fail("unclosed quote in the record");
}

TextEdit RecordList::AddAll(const IKeywordData& records) const
{
    try {
        CheckValues(plan_, records);
    } catch (const std::invalid_argument& error) {
        Fail(error.what());
    }
    std::string lines = Written(deck_, keyword_, records, nullptr, plan_);
    lines.erase(0, lines.find('\n') + 1);
    if (HasEnd()) {
        lines.resize(lines.rfind('/'));
        lines.erase(lines.find_last_not_of(" \n") + 1);
    }
    return AddLines(lines);
}

TextEdit RecordList::AddLines(const std::string& lines) const
{
    const std::uint32_t file = keyword_.whole.file;
    const std::size_t end = FindEnd();
    if (!HasEnd()) {
        const bool isAfterSlash = text_[end - 1] == '/';
        if (!isAfterSlash && !IsEmpty(RestOfLine(text_, end)))
            Fail("its last record is followed by other text on its line");
        return InsertLines(deck_, file, EndOfLine(text_, end), lines);
    }
    const std::size_t start = StartOfLine(text_, end);
    if (IsEmpty(text_.substr(start, end - start)))
        return InsertLines(deck_, file, start, lines);
    return MakeEdit(deck_, {file, end, 0}, '\n' + lines + '\n');
}

TextEdit RecordList::Remove(std::size_t index) const
{
    if (index >= keyword_.records.size())
        throw std::out_of_range(fmt::format("{}: record index {} is out of range (the keyword has {})",
            deck_.NameOf(keyword_), index, Counted(keyword_.records.size(), "record")));
    if (SharesRepeat(index))
        Fail("the record shares a repeat count with another record");
    const std::vector<RecordStart>& starts = keyword_.records;
    const std::size_t begin = starts[index].offset;
    const std::size_t limit = index + 1 < starts.size() ? starts[index + 1].offset : FindEnd();
    const std::size_t end = EndOfWords(text_, begin, limit);
    assert(end <= limit && "RecordList::Remove: a word of the record reaches into the next one");
    return {RangeToRemove(deck_, {keyword_.whole.file, begin, end - begin}), {}};
}

/// Of the record with a neighbour.
bool RecordList::SharesRepeat(std::size_t index) const
{
    const auto startsAt = [&](std::size_t i) { return keyword_.records[i].offset; };
    const bool sharesBegin = index > 0 && startsAt(index - 1) == startsAt(index);
    if (sharesBegin || (index + 1 < keyword_.records.size() && startsAt(index) == startsAt(index + 1)))
        return true;
    const std::size_t first = SlotOf(*keyword_.data, {index});
    const std::size_t last = first + CountSlots(ChildOf(*keyword_.data, index));
    const std::vector<TextRange>& ranges = keyword_.notes->values;
    const auto isShared = [&](std::size_t slot) {
        return slot > 0 && slot < ranges.size() && ranges[slot].length > 0
            && ranges[slot - 1].offset == ranges[slot].offset;
    };
    return isShared(first) || isShared(last);
}

void RecordList::Fail(const char* why) const
{
    throw EditError(fmt::format("{}: {}", deck_.NameOf(keyword_), why));
}

/// The comments of a keyword, for other data.
DataNotes CommentsOf(const KeywordInstance& keyword)
{
    DataNotes notes;
    if (keyword.notes) {
        notes.comments = keyword.notes->comments;
        notes.endWords = keyword.notes->endWords;
    }
    return notes;
}

} // namespace

TextEdit ReplaceData(const DeckContents& deck, const KeywordInstance& keyword, const IKeywordData& data)
{
    CheckWhole(deck, keyword);
    if (!keyword.isSound && !HasNumbersUpToSlash(deck, keyword))
        CheckSound(deck, keyword);
    DataPlans plans(deck.GetTarget());
    const DataNotes notes = CommentsOf(keyword);
    return MakeEdit(deck, keyword.whole, Written(deck, keyword, data, &notes, plans.Get(*data.GetMD())));
}

TextEdit AddRecordTo(const DeckContents& deck, const KeywordInstance& keyword, std::string_view text)
{
    return RecordList(deck, keyword).Add(text);
}

TextEdit AddRecordsTo(const DeckContents& deck, const KeywordInstance& keyword, const IKeywordData& records)
{
    return RecordList(deck, keyword).AddAll(records);
}

TextEdit RemoveRecordFrom(const DeckContents& deck, const KeywordInstance& keyword, std::size_t index)
{
    return RecordList(deck, keyword).Remove(index);
}

TextEdit AddKeywordTo(const DeckContents& deck, std::size_t after, bool leavesBlocks, std::string_view text)
{
    const KeywordInstance& keyword = deck.keywords[after];
    CheckSound(deck, keyword);
    const std::size_t first = std::min(text.find_first_not_of("\r\n"), text.size());
    std::size_t line = first;
    while (line < text.size() && IsEmpty(RestOfLine(text, line)))
        line = EndOfLine(text, line);
    const std::string_view name = FindLeadingWord(text.substr(line));
    if (name.empty())
        throw EditError("expected a keyword at the start of the first line of the text to add");
    if (!IsKeywordName(deck, name))
        throw EditError(fmt::format("can't add the unknown keyword '{}'", Shorten(name)));
    if (const std::string_view word = FindCut(deck, text.substr(line)); !word.empty())
        throw EditError(
            fmt::format("can't add '{}': it changes which text of the deck is read", Shorten(word)));
    const std::string_view file = deck.files.GetText(keyword.whole.file);
    std::size_t offset = EndOfLine(file, EndOfKeyword(deck, keyword) - 1);
    if (leavesBlocks)
        offset = LeaveBlocks(deck, after, offset);
    return InsertLines(deck, keyword.whole.file, offset, std::string(text.substr(first)));
}

TextEdit RemoveKeywordFrom(const DeckContents& deck, const KeywordInstance& keyword)
{
    CheckWhole(deck, keyword);
    const std::size_t begin = keyword.whole.offset;
    return {RangeToRemove(deck, {keyword.whole.file, begin, EndOfKeyword(deck, keyword) - begin}), {}};
}

} // namespace Veld::Quor::Core::Decks

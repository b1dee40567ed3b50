#include "tools/quor/language-server/RecordCursor.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"

#include <algorithm>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;
using Core::Decks::WrittenWord;

namespace {

using Termination = IKeywordDataMD::TerminationType;

enum class Step {
    Done, ///< the data are read
    Slash, ///< a slash comes that these data don't take
    Cursor, ///< it is in these data
};

/// Takes the words before the cursor along the metadata.
class CursorWalk {
public:
    CursorWalk(const std::vector<WrittenWord>& words, std::string_view text)
        : words_(words)
        , text_(text)
    {
    }

    Step Walk(const IKeywordDataMD& md)
    {
        return VisitMD(md,
            Overloaded{[this](const IKeywordRecordMD& record) { return WalkRecord(record); },
                [this](const IKeywordListMD& list) { return WalkList(list); },
                [this](const IKeywordMapMD& map) { return WalkMap(map); },
                [](const IKeywordRawMD&) { return Step::Done; },
                [](const IKeywordLineMD&) { return Step::Done; },
                [this](const IKeywordDataMD& scalar) { return WalkScalar(scalar); }});
    }

    const DataCursor& GetCursor() const { return cursor_; }

private:
    bool IsOver() const { return next_ == words_.size(); }
    bool IsAtSlash() const { return !IsOver() && words_[next_].isSlash; }
    /// Whether the line of the last word ended.
    bool IsAtLineEnd() const
    {
        if (next_ == 0)
            return false;
        const std::size_t end = words_[next_ - 1].offset + words_[next_ - 1].length;
        const std::size_t until = IsOver() ? text_.size() : words_[next_].offset;
        return text_.substr(end, until - end).find('\n') != std::string_view::npos;
    }
    void Take()
    {
        if (++taken_ >= words_[next_].count) {
            taken_ = 0;
            ++next_;
        }
    }

    Step WalkScalar(const IKeywordDataMD& md);
    Step WalkRecord(const IKeywordRecordMD& record);
    Step EndRecord(const IKeywordRecordMD& record);
    Step WalkList(const IKeywordListMD& list);
    Step WalkMap(const IKeywordMapMD& map);

    const std::vector<WrittenWord>& words_;
    std::string_view text_;
    std::size_t next_ = 0;
    long long taken_ = 0; // of the next word, if it stands for several values
    DataCursor cursor_;
};

Step CursorWalk::WalkScalar(const IKeywordDataMD& md)
{
    if (IsOver()) {
        cursor_.md = &md;
        return Step::Cursor;
    }
    if (IsAtSlash())
        return Step::Slash;
    Take();
    return Step::Done;
}

Step CursorWalk::WalkRecord(const IKeywordRecordMD& record)
{
    for (int i = 0; i < record.GetSize(); ++i) {
        if (record.GetTermination() == Termination::EOL && i > 0 && IsAtLineEnd())
            return Step::Done;
        const IKeywordRecordMD* const around = cursor_.record;
        cursor_.record = &record;
        cursor_.item = i;
        const Step step = Walk(*record.GetItemMD(i));
        if (step == Step::Cursor)
            return step;
        cursor_.record = around;
        if (step == Step::Slash)
            return record.GetTermination() == Termination::SLASH ? EndRecord(record) : step;
    }
    return record.GetTermination() == Termination::SLASH ? EndRecord(record) : Step::Done;
}

/// Up to its slash.
Step CursorWalk::EndRecord(const IKeywordRecordMD& record)
{
    while (!IsOver() && !IsAtSlash())
        ++next_;
    if (IsOver()) {
        cursor_.record = &record;
        cursor_.item = record.GetSize();
        return Step::Cursor;
    }
    taken_ = 0;
    ++next_;
    return Step::Done;
}

Step CursorWalk::WalkList(const IKeywordListMD& list)
{
    const IKeywordDataMD* const item = list.GetItemMD();
    if (!item)
        return Step::Done;
    for (;;) {
        if (IsAtSlash()) {
            if (list.GetTermination() != Termination::SLASH)
                return Step::Slash;
            ++next_;
            return Step::Done;
        }
        const std::size_t before = next_;
        const Step step = Walk(*item);
        if (step == Step::Cursor || (step == Step::Done && next_ == before && taken_ == 0))
            return step;
    }
}

Step CursorWalk::WalkMap(const IKeywordMapMD& map)
{
    while (!IsOver() && !IsAtSlash())
        ++next_;
    if (IsOver()) {
        cursor_.map = &map;
        return Step::Cursor;
    }
    ++next_;
    return Step::Done;
}

} // namespace

DataCursor FindDataCursor(const IKeywordDataMD& data, std::string_view text)
{
    std::vector<WrittenWord> words = Core::Decks::FindWords(text);
    WrittenWord last;
    last.offset = text.size();
    const bool isAtWord =
        !words.empty() && !words.back().isSlash && words.back().offset + words.back().length == text.size();
    if (isAtWord) {
        last = words.back();
        words.pop_back();
    }
    CursorWalk walk(words, text);
    const Step step = walk.Walk(data);
    DataCursor cursor = walk.GetCursor();
    cursor.isOutside = step != Step::Cursor;
    cursor.wordOffset = last.offset;
    cursor.isQuoted = last.isQuoted;
    cursor.prefix = last.text;
    return cursor;
}

} // namespace Veld::Quor::Tools::LanguageServer

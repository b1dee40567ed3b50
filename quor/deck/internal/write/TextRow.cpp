#include "quor/deck/internal/write/TextRow.h"

#include "quor/deck/internal/write/ValueText.h"

#include <algorithm>
#include <map>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

using Word = TextRow::Word;

/// By what words of a column are below one another.
enum class Edge { Point, Begin, End };

std::size_t OffsetOf(const Word& word, Edge edge)
{
    if (edge == Edge::Begin)
        return 0;
    return edge == Edge::End ? word.text.size() : CountWhole(word.text);
}

/// Where the words of rows end, and one blank after them.
struct RowEnds {
    std::size_t least; // of all rows
    std::vector<std::size_t> byRow; // beyond that

    std::size_t Get(std::size_t row) const { return std::max(least, byRow[row]); }
};

/// The words of several rows that stand for the same value.
class WordColumn {
public:
    void Add(std::size_t row, Word& word) { words_.emplace_back(row, &word); }

    std::size_t GetBegin() const
    {
        std::size_t begin = words_.front().second->column;
        for (const auto& [row, word] : words_)
            begin = std::min(begin, word->column);
        return begin;
    }
    /// Of words that stand for no value of the next columns, and one blank after them.
    std::size_t GetEnd() const
    {
        std::size_t end = 0;
        for (const auto& [row, word] : words_)
            end = std::max(end, word->isRepeated ? 0 : word->GetEnd() + 1);
        return end;
    }
    /// Whether each word directly follows the one before it. `rows`: the first of them.
    bool IsClose(const TextRow* rows) const
    {
        return std::all_of(words_.begin(), words_.end(), [&](const auto& word) {
            const Word* const self = word.second;
            const Word* const first = rows[word.first].words.data();
            return self == first || self->column <= (self - 1)->GetEnd() + 1;
        });
    }
    bool IsAligned(Edge edge) const
    {
        const Word* first = nullptr;
        for (const auto& [row, word] : words_) {
            if (word->IsDefault())
                continue;
            if (first && PositionOf(*word, edge) != PositionOf(*first, edge))
                return false;
            first = word;
        }
        return true;
    }
    /// The one by which they are aligned, or else the usual one.
    Edge FindEdge() const
    {
        const Edge usual = IsOfNumbers() ? Edge::Point : Edge::Begin;
        for (const Edge edge : {usual, Edge::Begin, Edge::End}) {
            if (IsAligned(edge))
                return edge;
        }
        return usual;
    }

    void Align(RowEnds& ends) const
    {
        const Edge edge = FindEdge();
        std::size_t position = FindUsualPosition(edge);
        for (const auto& [row, word] : words_)
            position = std::max(position, ends.Get(row) + (word->IsDefault() ? 0 : OffsetOf(*word, edge)));
        for (const auto& [row, word] : words_) {
            const std::size_t offset = std::min(OffsetOf(*word, edge), position);
            Move(*word, std::max(position - offset, ends.Get(row)), ends.byRow[row]);
        }
        ends.least = std::max(ends.least, GetEnd());
    }
    /// Each word where it was if it can be, or directly after the one before it.
    void Follow(bool isClose, RowEnds& ends) const
    {
        for (const auto& [row, word] : words_)
            Move(*word, std::max(isClose ? 0 : word->column, ends.byRow[row]), ends.byRow[row]);
    }

private:
    static std::size_t PositionOf(const Word& word, Edge edge) { return word.column + OffsetOf(word, edge); }
    static void Move(Word& word, std::size_t column, std::size_t& end)
    {
        word.column = column;
        end = word.GetEnd() + 1;
    }

    bool IsOfNumbers() const
    {
        return std::all_of(
            words_.begin(), words_.end(), [](const auto& word) { return word.second->isNumber; });
    }
    /// Where most words are, or the first one.
    std::size_t FindUsualPosition(Edge edge) const
    {
        std::vector<std::size_t> positions;
        for (const auto& [row, word] : words_) {
            if (!word->IsDefault())
                positions.push_back(PositionOf(*word, edge));
        }
        std::sort(positions.begin(), positions.end());
        std::size_t usual = PositionOf(*words_.front().second, edge);
        const auto first = std::equal_range(positions.begin(), positions.end(), usual);
        auto most = first.second - first.first;
        for (auto at = positions.begin(); at != positions.end();) {
            const auto end = std::upper_bound(at, positions.end(), *at);
            if (end - at > most) {
                most = end - at;
                usual = *at;
            }
            at = end;
        }
        return usual;
    }

    std::vector<std::pair<std::size_t, Word*>> words_; // with the row of each
};

using WordColumns = std::map<std::size_t, WordColumn>; // by cell

WordColumns ColumnsOf(std::vector<TextRow>& rows, std::size_t first, std::size_t last)
{
    WordColumns columns;
    for (std::size_t i = first; i < last; ++i) {
        for (Word& word : rows[i].words)
            columns[word.cell].Add(i - first, word);
    }
    return columns;
}

bool IsLaidOut(const WordColumns& columns)
{
    std::size_t end = 0;
    for (const auto& [cell, column] : columns) {
        if (cell < TextRow::slash && column.GetBegin() < end)
            return false;
        end = std::max(end, column.GetEnd());
    }
    return true;
}

} // namespace

std::size_t LineColumns::At(std::size_t offset)
{
    constexpr std::size_t tab = 8;
    for (; offset_ < offset; ++offset_)
        column_ = line_[offset_] == '\t' ? (column_ / tab + 1) * tab : column_ + 1;
    return column_;
}

std::string TextRow::GetText() const
{
    const bool isMoved = std::any_of(
        words.begin(), words.end(), [](const Word& word) { return word.column != word.sourceColumn; });
    if (!isChanged && !isMoved)
        return std::string(source);
    std::string line;
    line.reserve(source.size());
    for (const Word& word : words) {
        const std::size_t least = line.empty() ? 0 : line.size() + 1;
        line.resize(std::max(least, word.column), ' ');
        line += word.text;
    }
    return line;
}

void AlignRows(std::vector<TextRow>& rows, std::size_t first, std::size_t last)
{
    const WordColumns columns = ColumnsOf(rows, first, last);
    if (IsLaidOut(columns))
        return;
    RowEnds ends{0, std::vector<std::size_t>(last - first)};
    for (std::size_t i = first; i < last; ++i) {
        if (rows[i].words.front().column > 0)
            ends.least = 1; // at the start of a line a word may be a keyword
    }
    for (const auto& [cell, column] : columns) {
        const bool isClose = cell == TextRow::slash && column.IsClose(rows.data() + first);
        if (cell < TextRow::slash || (!isClose && column.IsAligned(Edge::Begin)))
            column.Align(ends);
        else
            column.Follow(isClose || cell == TextRow::slash, ends);
    }
}

} // namespace Veld::Quor::Core::Decks

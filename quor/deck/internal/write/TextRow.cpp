#include "quor/deck/internal/write/TextRow.h"

#include <boost/container/flat_map.hpp>

#include <algorithm>
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
    return edge == Edge::End ? word.text.size() : word.whole;
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
    explicit WordColumn(std::size_t cell)
        : cell_(cell)
    {
    }

    void Add(std::size_t row, Word& word) { words_.emplace_back(row, &word); }

    std::size_t GetCell() const { return cell_; }
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
    /// Whether each word directly follows the one before it. `words`: those of all rows; `rows`: the first of
    /// them.
    bool IsClose(const std::vector<Word>& words, const TextRow* rows) const
    {
        return std::all_of(words_.begin(), words_.end(), [&](const auto& word) {
            const Word* const self = word.second;
            const Word* const first = words.data() + rows[word.first].begin;
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
        boost::container::flat_map<std::size_t, std::size_t> counts; // of words by position
        for (const auto& [row, word] : words_) {
            if (!word->IsDefault())
                ++counts[PositionOf(*word, edge)];
        }
        std::size_t usual = PositionOf(*words_.front().second, edge);
        const auto first = counts.find(usual);
        std::size_t most = first == counts.end() ? 0 : first->second;
        for (const auto& [position, count] : counts) {
            if (count > most) {
                most = count;
                usual = position;
            }
        }
        return usual;
    }

    std::size_t cell_;
    std::vector<std::pair<std::size_t, Word*>> words_; // with the row of each
};

using WordColumns = std::vector<WordColumn>; // in the order of their cells

/// `at`: where the column of the word before is, in whose row; nearly always the next is its own.
std::size_t PositionIn(WordColumns& columns, std::size_t at, std::size_t cell)
{
    if (at < columns.size() && columns[at].GetCell() == cell)
        return at;
    const auto isBefore = [](const WordColumn& column, std::size_t other) {
        return column.GetCell() < other;
    };
    const auto place = std::lower_bound(columns.begin(), columns.end(), cell, isBefore);
    const auto position = static_cast<std::size_t>(place - columns.begin());
    if (place == columns.end() || place->GetCell() != cell)
        columns.emplace(place, cell);
    return position;
}

WordColumns ColumnsOf(std::vector<Word>& words, const TextRow* rows, std::size_t count)
{
    WordColumns columns;
    for (std::size_t row = 0; row < count; ++row) {
        std::size_t at = 0;
        for (std::size_t i = rows[row].begin; i < rows[row].end; ++i) {
            at = PositionIn(columns, at, words[i].cell);
            columns[at++].Add(row, words[i]);
        }
    }
    return columns;
}

bool IsLaidOut(const WordColumns& columns)
{
    std::size_t end = 0;
    for (const WordColumn& column : columns) {
        if (column.GetCell() < TextRow::slash && column.GetBegin() < end)
            return false;
        end = std::max(end, column.GetEnd());
    }
    return true;
}

} // namespace

std::size_t LineColumns::Count(std::size_t offset)
{
    constexpr std::size_t tab = 8;
    for (; offset_ < offset; ++offset_)
        column_ = line_[offset_] == '\t' ? (column_ / tab + 1) * tab : column_ + 1;
    return column_;
}

void TextRows::Write(const TextRow& row, std::string& text)
{
    const std::span<const Word> words = GetWords(row);
    const bool isMoved = std::any_of(
        words.begin(), words.end(), [](const Word& word) { return word.column != word.sourceColumn; });
    if (!row.isChanged && !isMoved) {
        text += row.source;
        return;
    }
    const std::size_t begin = text.size();
    for (const Word& word : words) {
        const std::size_t length = text.size() - begin;
        text.resize(begin + std::max(length == 0 ? 0 : length + 1, word.column), ' ');
        text += word.text;
    }
}

void TextRows::Align(std::size_t first, std::size_t last)
{
    const TextRow* const rows = rows_.data() + first;
    const WordColumns columns = ColumnsOf(words_, rows, last - first);
    if (IsLaidOut(columns))
        return;
    RowEnds ends{0, std::vector<std::size_t>(last - first)};
    for (std::size_t i = first; i < last; ++i) {
        if (words_[rows_[i].begin].column > 0)
            ends.least = 1; // at the start of a line a word may be a keyword
    }
    for (const WordColumn& column : columns) {
        const std::size_t cell = column.GetCell();
        const bool isClose = cell == TextRow::slash && column.IsClose(words_, rows);
        if (cell < TextRow::slash || (!isClose && column.IsAligned(Edge::Begin)))
            column.Align(ends);
        else
            column.Follow(isClose || cell == TextRow::slash, ends);
    }
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/write/DataLines.h"

#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

std::string Blanks(std::size_t width, std::size_t taken)
{
    return std::string(width - std::min(width, taken), ' ');
}

/// What stands before the decimal point, or the exponent.
std::size_t CountWhole(const std::string& number)
{
    return std::min(number.find_first_of(".eE"), number.size());
}

/// Numbers stand with their decimal points below one another, texts begin so.
struct Column {
    std::size_t first; // cell
    std::size_t count; // of cells without a value, or one with
    std::size_t before = 0; // the widest, up to the decimal point of numbers
    std::size_t after = 0;
    bool isNumber = true;

    void Fit(const std::string& text)
    {
        const std::size_t whole = isNumber ? CountWhole(text) : text.size();
        before = std::max(before, whole);
        after = std::max(after, text.size() - whole);
    }
    std::string Pad(const std::string& text) const
    {
        const std::size_t whole = isNumber ? CountWhole(text) : text.size();
        const std::string right = Blanks(after, text.size() - whole);
        return isNumber ? Blanks(before, whole) + text + right : text + Blanks(before, whole);
    }
};

bool HasValue(const TableRow& row, std::size_t cell)
{
    return cell < row.cells.size() && !row.cells[cell].text.empty();
}

bool IsBlank(const TableRow& row, std::size_t cell)
{
    return cell < row.cells.size() && row.cells[cell].isBlank;
}

std::vector<Column> FindColumns(const std::vector<TableRow>& rows)
{
    std::size_t cells = 0;
    for (const TableRow& row : rows)
        cells = std::max(cells, row.cells.size());
    std::vector<Column> columns;
    bool wasEmpty = false;
    for (std::size_t i = 0; i < cells; ++i) {
        const bool isEmpty = std::none_of(rows.begin(), rows.end(),
            [i](const TableRow& row) { return HasValue(row, i) || IsBlank(row, i); });
        if (isEmpty && wasEmpty)
            ++columns.back().count;
        else
            columns.push_back({i, 1});
        wasEmpty = isEmpty;
    }
    return columns;
}

/// Of the column; empty if the row ends before it.
std::string TextOf(const TableRow& row, const Column& column)
{
    if (column.first >= row.cells.size())
        return {};
    if (HasValue(row, column.first) || IsBlank(row, column.first))
        return row.cells[column.first].text;
    return MissingText(std::min(column.count, row.cells.size() - column.first));
}

void MeasureColumns(const std::vector<TableRow>& rows, std::vector<Column>& columns)
{
    for (Column& column : columns) {
        column.isNumber = std::all_of(rows.begin(), rows.end(), [&column](const TableRow& row) {
            return !HasValue(row, column.first) || row.cells[column.first].isNumber;
        });
        for (const TableRow& row : rows)
            column.Fit(TextOf(row, column));
    }
}

} // namespace

DataLines::DataLines(std::string_view name, std::size_t width)
    : width_(width)
    , line_(name)
{
}

void DataLines::Word(std::string_view word)
{
    if (isBroken_ || isBehindSlash_
        || (wraps_ && line_.size() + 1 + word.size() > width_ && line_.size() > indent_))
        EndLine();
    line_ += line_.empty() ? std::string(indent_, ' ') : " ";
    line_ += word;
    isBehindSlash_ = word == "/";
}

void DataLines::Numbers(const std::vector<std::string>& words)
{
    std::size_t width = 0;
    for (const std::string& word : words)
        width = std::max(width, word.size());
    for (const std::string& word : words)
        Word(Blanks(width, word.size()) + word);
}

void DataLines::Comment(std::string_view comment, bool isIndented)
{
    EndLine();
    isBehindSlash_ = false;
    line_ = isIndented ? std::string(indent_, ' ') : std::string();
    line_ += comment;
    isBroken_ = true;
}

void DataLines::After(std::string_view comment)
{
    if (!line_.empty())
        line_ += ' ';
    if (!isBehindSlash_ && !IsComment(comment))
        line_ += "-- ";
    line_ += comment;
    isBroken_ = true;
    isBehindSlash_ = false;
}

void DataLines::EndLine()
{
    isBroken_ = false;
    if (line_.empty())
        return;
    line_.erase(line_.find_last_not_of(' ') + 1);
    text_ += line_;
    text_ += '\n';
    line_.clear();
}

std::string DataLines::Take()
{
    line_.erase(line_.find_last_not_of(' ') + 1);
    return text_ + line_;
}

void WriteTable(const std::vector<TableRow>& rows, DataLines& lines)
{
    std::vector<Column> columns = FindColumns(rows);
    MeasureColumns(rows, columns);
    for (const TableRow& row : rows) {
        for (const auto& [comment, isIndented] : row.above)
            lines.Comment(comment, isIndented);
        lines.Break();
        for (const Column& column : columns) {
            if (column.first < row.cells.size())
                lines.Word(column.Pad(TextOf(row, column)));
        }
        if (row.isEnded)
            lines.Word("/");
        if (!row.after.empty())
            lines.After(row.after);
    }
}

std::string MissingText(std::size_t count)
{
    return fmt::format("{}*", count);
}

} // namespace Veld::Quor::Core::Decks

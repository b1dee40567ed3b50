#include "quor/deck/internal/write/TableLines.h"

#include "quor/deck/internal/write/ValueText.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

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
        const std::string left(isNumber ? before - CountWhole(text) : 0, ' ');
        return left + text + std::string(GetWidth() - left.size() - text.size(), ' ');
    }
    std::size_t GetWidth() const { return before + after; }
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

void WriteTable(const std::vector<TableRow>& rows, DataLines& lines)
{
    std::vector<Column> columns = FindColumns(rows);
    MeasureColumns(rows, columns);
    for (const TableRow& row : rows) {
        for (const TableRow::Comment& comment : row.above)
            lines.Comment(comment.text, comment.isIndented);
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

} // namespace Veld::Quor::Core::Decks

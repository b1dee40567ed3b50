#include "quor/deck/internal/write/TableLines.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/write/SourceWords.h"

#include <algorithm>
#include <optional>

namespace Veld::Quor::Core::Decks {

namespace {

/// A row with kept columns is no longer, else it isn't one.
constexpr std::size_t longestRow = 128;

/// What stands before the decimal point, or the exponent.
std::size_t CountWhole(const std::string& number)
{
    return std::min(number.find_first_of(".eEdD"), number.size());
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
        const std::string left(CountBefore(text), ' ');
        return left + text + std::string(GetWidth() - left.size() - text.size(), ' ');
    }
    /// Blanks before the text.
    std::size_t CountBefore(const std::string& text) const
    {
        return isNumber ? before - CountWhole(text) : 0;
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

/// Where each column begins.
using Layout = std::vector<std::size_t>;

Layout WithoutGaps(const std::vector<Column>& columns, std::size_t indent)
{
    Layout layout;
    for (const Column& column : columns) {
        layout.push_back(indent);
        indent += column.GetWidth() + 1;
    }
    return layout;
}

/// The cells of the row where they were, and the others as before.
Layout WithCellsOf(const TableRow& row, const std::vector<Column>& columns, const Layout& before)
{
    Layout layout;
    std::size_t least = 1;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::size_t cell = columns[i].first;
        std::size_t wanted = before[i];
        if (cell < row.cells.size() && row.cells[cell].column != TableRow::unknown) {
            const std::size_t column = row.cells[cell].column;
            wanted = column - std::min(column, columns[i].CountBefore(TextOf(row, columns[i])));
        }
        layout.push_back(std::max(wanted, least));
        least = layout[i] + columns[i].GetWidth() + 1;
    }
    return layout;
}

bool IsShort(const std::vector<Column>& columns, const Layout& layout)
{
    return columns.empty() || layout.back() + columns.back().GetWidth() + 2 <= longestRow;
}

/// A part of a line.
struct Span {
    std::size_t begin;
    std::size_t end;

    bool Meets(const Span& other) const { return begin < other.end && other.begin < end; }
};

/// The words of a comment.
std::vector<Span> TitlesOf(const TableRow::Comment& comment)
{
    std::vector<Span> titles;
    std::size_t column = comment.column;
    bool isWithin = false;
    for (const char c : comment.text) {
        const bool isWord = !IsWhite(c) && (isWithin || c != '-');
        if (isWord && !isWithin)
            titles.push_back({column, column});
        column = ColumnAfter({&c, 1}, column);
        if (isWord)
            titles.back().end = column;
        isWithin = isWord;
    }
    return titles;
}

/// The values of the row that were on one line; `layout`: where they are to be, or null for where they were.
std::vector<Span> ValuesOf(const TableRow& row, const std::vector<Column>& columns, const Layout* layout)
{
    std::vector<Span> values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::size_t cell = columns[i].first;
        if (!HasValue(row, cell) || row.cells[cell].column == TableRow::unknown)
            continue;
        const std::string& text = row.cells[cell].text;
        const std::size_t begin =
            layout ? (*layout)[i] + columns[i].CountBefore(text) : row.cells[cell].column;
        values.push_back({begin, begin + text.size()});
    }
    return values;
}

/// Whether words of a comment are above values: two of each at least, or the only value.
bool HasHeader(const TableRow& row, const std::vector<Span>& values)
{
    const auto countMet = [](const std::vector<Span>& some, const std::vector<Span>& others) {
        return std::count_if(some.begin(), some.end(), [&others](const Span& span) {
            return std::any_of(
                others.begin(), others.end(), [&span](const Span& other) { return span.Meets(other); });
        });
    };
    const auto given = std::count_if(
        row.cells.begin(), row.cells.end(), [](const TableRow::Cell& cell) { return !cell.text.empty(); });
    const auto least = std::min<std::ptrdiff_t>(given, 2);
    const auto isHeader = [&](const TableRow::Comment& comment) {
        const std::vector<Span> titles = TitlesOf(comment);
        return least > 0 && countMet(titles, values) >= least && countMet(values, titles) >= least;
    };
    return std::any_of(row.above.begin(), row.above.end(), isHeader)
        || std::any_of(row.aboveKeyword.begin(), row.aboveKeyword.end(), isHeader);
}

/// The layout from the row on; empty if it has no header, or can't keep below it. Then the one `before` holds
/// on, also where a second look would find a header.
std::optional<Layout> FindLayout(
    const TableRow& row, const std::vector<Column>& columns, const Layout& before)
{
    if (!HasHeader(row, ValuesOf(row, columns, nullptr)))
        return std::nullopt;
    Layout layout = WithCellsOf(row, columns, before);
    if (!IsShort(columns, layout) || !HasHeader(row, ValuesOf(row, columns, &layout)))
        return std::nullopt;
    return layout;
}

std::string LineOf(const TableRow& row, const std::vector<Column>& columns, const Layout& layout)
{
    std::string line;
    for (std::size_t i = 0; i < columns.size() && columns[i].first < row.cells.size(); ++i) {
        line.resize(std::max(line.size(), layout[i]), ' ');
        line += columns[i].Pad(TextOf(row, columns[i]));
    }
    return line;
}

void WriteRow(const TableRow& row, const std::vector<Column>& columns, const Layout& layout, DataLines& lines)
{
    lines.Break();
    lines.SetWrapping(false);
    if (const std::string line = LineOf(row, columns, layout); !line.empty())
        lines.Line(line);
    if (row.isEnded)
        lines.Word("/");
    if (!row.after.empty())
        lines.After(row.after);
    lines.SetWrapping(true);
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

void WriteTableWithHeaders(const std::vector<TableRow>& rows, DataLines& lines)
{
    std::vector<Column> columns = FindColumns(rows);
    MeasureColumns(rows, columns);
    Layout layout = WithoutGaps(columns, lines.GetIndent());
    if (!IsShort(columns, layout)) {
        WriteTable(rows, lines);
        return;
    }
    for (const TableRow& row : rows) {
        auto found = FindLayout(row, columns, layout);
        for (const TableRow::Comment& comment : row.above) {
            if (found)
                lines.CommentAt(comment.text, comment.column);
            else
                lines.Comment(comment.text, comment.isIndented);
        }
        if (found)
            layout = std::move(*found);
        WriteRow(row, columns, layout, lines);
    }
}

} // namespace Veld::Quor::Core::Decks

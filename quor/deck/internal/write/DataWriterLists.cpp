#include "quor/deck/internal/write/DataWriter.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/write/PlanShape.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordListMD.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

/// Rows whose columns are aligned with one another, and numbers likewise.
constexpr std::size_t mostAlignedRows = 500;
constexpr std::size_t mostAlignedNumbers = 2000;
/// Fewer equal values are written out.
constexpr std::size_t shortestRepeat = 3;

bool AreEqual(const DataPlan& item, const IKeywordListData& list, std::size_t a, std::size_t b)
{
    const bool isDefaulted = list.IsDefaulted(a);
    if (isDefaulted || list.IsDefaulted(b))
        return isDefaulted == list.IsDefaulted(b);
    if (item.type == MDType::Real)
        return *static_cast<const double*>(list.GetData(a)) == *static_cast<const double*>(list.GetData(b));
    return ElementValue(*item.md, list.GetData(a)) == ElementValue(*item.md, list.GetData(b));
}

} // namespace

void DataWriter::WriteList(const DataPlan& plan, const IKeywordListData& list)
{
    if (plan.items.empty())
        return;
    const IKeywordListMD& md = ListMD(plan);
    const DataPlan& item = plan.items.front();
    const bool isNested = &plan != &plan_;
    const bool isOfRows = !item.IsScalar();
    const std::size_t indent = lines_.GetIndent();
    if (isNested && (md.WriteStartingOnNewLine().ValueOr(isOfRows)))
        lines_.Break();
    if (item.type == MDType::Line)
        WriteLines(list);
    else if (item.IsScalar())
        WriteValues(plan, list);
    else if (IsFlat(item) && item.termination != Termination::EOL)
        WriteRows(plan, list);
    else if (IsTabular(item) && !HasCommentWithinRows(item, list))
        WriteTabular(item, list);
    else
        WriteElements(plan, list);
    WriteComments();
    lines_.SetIndent(isNested ? indent : 0);
    WriteEnd(plan, md.WriteTerminationOnNewLine().ValueOr(item.type == MDType::Line));
    lines_.SetIndent(indent);
}

void DataWriter::WriteValues(const DataPlan& plan, const IKeywordListData& list)
{
    const DataPlan& item = plan.items.front();
    const auto* const endWords = ListMD(plan).GetCustomReadTermination();
    lines_.SetWrapping(true);
    const auto size = static_cast<std::size_t>(list.GetSize());
    const bool hasVariables = notes_ && notes_->variables && notes_->variables->GetDataVariables(list);
    for (std::size_t i = 0; i < size;) {
        WriteComments();
        std::string text = ElementOf(item, list, i).text;
        if (bool ignored = false; endWords && endWords->Matches(text, ignored))
            text = Quote(text, true);
        const std::string plain = hasVariables ? ElementOf(item, list, i).text : std::string();
        std::size_t limit = size;
        if (const std::uint64_t next = FindNextSlot(); next > position_.slots)
            limit = static_cast<std::size_t>(std::min<std::uint64_t>(limit, i + next - position_.slots));
        std::size_t end = i + 1;
        while (end < limit
            && (hasVariables ? ElementOf(item, list, end).text == plain : AreEqual(item, list, i, end)))
            ++end;
        const bool isFolded = text.empty() || end - i >= shortestRepeat;
        if (!isFolded)
            end = i + 1;
        std::string word = isFolded ? MissingText(end - i) + text : text;
        position_.slots += end - i;
        i = end;
        if (!IsNumber(item)) {
            lines_.Word(word);
            continue;
        }
        numbers_.push_back(std::move(word));
        if (numbers_.size() == mostAlignedNumbers)
            WriteNumbers();
    }
    WriteNumbers();
}

void DataWriter::WriteNumbers()
{
    lines_.Numbers(std::exchange(numbers_, {}));
}

/// An element that was left to its default has no text.
DataWriter::Cell DataWriter::ElementOf(
    const DataPlan& item, const IKeywordListData& list, std::size_t index) const
{
    if (const auto* const text = FindVariable(list, index))
        return {VariableText(item, *text), IsNumber(item)};
    if (list.IsDefaulted(index))
        return {};
    return {WordOf(*item.md, ElementValue(*item.md, list.GetData(index))), IsNumber(item)};
}

void DataWriter::WriteLines(const IKeywordListData& list)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        WriteComments();
        lines_.Break();
        lines_.Word(*static_cast<const std::string*>(list.GetData(i)));
        lines_.Break();
        ++position_.slots;
    }
}

void DataWriter::WriteElements(const DataPlan& plan, const IKeywordListData& list)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        WriteComments();
        if (i > 0)
            lines_.Break();
        WriteContainer(
            plan.items.front(), *static_cast<const IKeywordData*>(list.GetData(i)), NeedsWords(plan));
    }
}

/// Records of nothing but scalars, below one another.
void DataWriter::WriteRows(const DataPlan& plan, const IKeywordListData& list)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        AddRow(
            plan.items.front(), *static_cast<const IKeywordRecordData*>(list.GetData(i)), NeedsWords(plan));
        if (rows_.size() == mostAlignedRows)
            FinishRows();
    }
    FinishRows();
}

void DataWriter::AddRow(const DataPlan& record, const IKeywordRecordData& data, bool needsWord)
{
    TableRow row;
    TakeRowComments(row);
    if (CountGiven(record, data, needsWord) == 0)
        TakeCommentsWithin(record, row);
    if (!HasCommentWithin(record)) {
        FillRow(record, data, needsWord, row);
        rows_.push_back(std::move(row));
        return;
    }
    FinishRows();
    for (const TableRow::Comment& comment : row.above)
        lines_.Comment(comment.text, comment.isIndented);
    lines_.Break();
    WriteRecord(record, data, needsWord);
    lines_.Break();
}

/// Records of scalars and rows, as one table.
void DataWriter::WriteTabular(const DataPlan& record, const IKeywordListData& list)
{
    const DataPlan& rows = record.items.back();
    const std::size_t lead = record.items.size() - 1;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& data = *static_cast<const IKeywordRecordData*>(list.GetData(i));
        const auto& inner = static_cast<const IKeywordListData&>(NestedIn(data, lead));
        TableRow row;
        TakeRowComments(row);
        for (std::size_t item = 0; item < lead; ++item)
            row.cells.push_back(CellToWrite(record.items[item], data, item));
        position_.slots += lead;
        for (std::size_t j = 0; j < static_cast<std::size_t>(inner.GetSize()); ++j) {
            if (j > 0) {
                TakeRowComments(row);
                row.cells.assign(lead, Cell{{}, false, true});
            }
            const auto& values = *static_cast<const IKeywordRecordData*>(inner.GetData(j));
            FillCells(rows.items.front(), values, false, row);
            if (j + 1 < static_cast<std::size_t>(inner.GetSize()))
                rows_.push_back(std::exchange(row, {}));
        }
        row.isEnded = true;
        ++position_.ends;
        rows_.push_back(std::move(row));
        if (rows_.size() >= mostAlignedRows)
            FinishRows();
    }
    FinishRows();
}

/// The comments before the row, and the one after the row before.
void DataWriter::TakeRowComments(TableRow& row)
{
    while (const DataComment* const comment = FindComment()) {
        std::string text = TextOf(*comment);
        if (comment->kind == CommentKind::OwnLine)
            row.above.push_back(RowCommentOf(*comment));
        else if (rows_.empty())
            lines_.After(text);
        else
            rows_.back().after = std::move(text);
        ++nextComment_;
    }
}

/// Comments in a record of which no word is left are above it.
void DataWriter::TakeCommentsWithin(const DataPlan& record, TableRow& row)
{
    const DataPosition begin = position_;
    position_.slots += record.slots;
    for (; const DataComment* const comment = FindComment(); ++nextComment_)
        row.above.push_back(RowCommentOf(*comment));
    position_ = begin;
}

TableRow::Comment DataWriter::RowCommentOf(const DataComment& comment) const
{
    return {TextOf(comment), IsIndented(comment)};
}

void DataWriter::FillRow(
    const DataPlan& record, const IKeywordRecordData& data, bool needsWord, TableRow& row)
{
    FillCells(record, data, needsWord, row);
    row.isEnded = record.termination == Termination::SLASH;
    position_.ends += row.isEnded ? 1U : 0U;
}

void DataWriter::FillCells(
    const DataPlan& record, const IKeywordRecordData& data, bool needsWord, TableRow& row)
{
    const std::size_t given = CountGiven(record, data, needsWord);
    for (std::size_t i = 0; i < given; ++i)
        row.cells.push_back(CellToWrite(record.items[i], data, i));
    position_.slots += record.slots;
}

void DataWriter::FinishRows()
{
    WriteTable(rows_, lines_);
    rows_.clear();
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/read/DataReader.h"

#include "quor/deck/internal/read/RecordFit.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

// The order of values in the columns of a table.

namespace Veld::Quor::Core::Decks {

namespace {

using Constraint = DataPlan::Constraint;
using Termination = DataPlan::Termination;

bool KeepsOrder(Constraint::Enum constraint, double before, double now)
{
    switch (constraint) {
    case Constraint::StrictlyIncreasing:
        return now > before;
    case Constraint::StrictlyDecreasing:
        return now < before;
    case Constraint::Increasing:
        return now >= before;
    case Constraint::Decreasing:
        return now <= before;
    case Constraint::None:
        break;
    }
    return true;
}

const char* OrderOf(Constraint::Enum constraint)
{
    switch (constraint) {
    case Constraint::StrictlyIncreasing:
        return "must be greater than the value before";
    case Constraint::StrictlyDecreasing:
        return "must be less than the value before";
    case Constraint::Increasing:
        return "must not be less than the value before";
    case Constraint::Decreasing:
        return "must not be greater than the value before";
    case Constraint::None:
        break;
    }
    return "";
}

} // namespace

void DataReader::CheckColumn(const DataPlan& record, std::size_t index, double value)
{
    const DataPlan& item = record.items[index];
    if (item.constraint == Constraint::None || !columns_ || columns_->record != &record)
        return;
    double& last = columns_->last[index];
    if (std::isinf(last))
        return;
    const bool isInOrder = std::isnan(last) || KeepsOrder(item.constraint, last, value);
    if (!isInOrder)
        ReportColumn(
            item, index == 0, fmt::format("{}: {} {}, {}", In(item), value, OrderOf(item.constraint), last));
    last = isInOrder ? value : HUGE_VAL;
}

/// Where the first column of a table begins anew, so may a table.
void DataReader::ReportColumn(const DataPlan& item, bool isFirst, std::string message)
{
    const bool mayBeNew = isFirst && columns_->record->termination == Termination::NONE
        && !columns_->isOutOfStep && !IsOutOfStep(value_.range);
    ReportMisfit(item, Code::ColumnOrder, std::move(message),
        mayBeNew ? "if a new table begins here, put a slash before it" : "");
    if (mayBeNew)
        columns_->isOutOfStep = isShapeReported_ = true;
}

bool DataReader::MayTellOfRow(const TextRange& range, std::string& hint)
{
    if (!columns_ || records_.empty() || columns_->record != records_.back().first)
        return true;
    if (columns_->isOutOfStep)
        return false;
    columns_->isOutOfStep = IsOutOfStep(range);
    isShapeReported_ = isShapeReported_ || columns_->isOutOfStep;
    if (columns_->isOutOfStep)
        hint = "a row on this line or before it has a value too few or too many";
    return true;
}

/// Whether the row of the table that is being read begins or ends within a line, so that one before it has a
/// value too few or too many.
bool DataReader::IsOutOfStep(const TextRange& range) const
{
    const DataPlan& row = *columns_->record;
    if (row.termination != Termination::NONE || begin_.file != range.file || range.file != text_.GetFile())
        return false;
    const std::string_view line = text_.GetLineFrom(begin_);
    if (range.offset >= begin_.offset + line.size())
        return true;
    const bool isFlat =
        std::all_of(row.items.begin(), row.items.end(), [](const DataPlan& item) { return item.IsScalar(); });
    return isFlat && CountValues(FindRecordWords(line)) % row.items.size() != 0;
}

} // namespace Veld::Quor::Core::Decks

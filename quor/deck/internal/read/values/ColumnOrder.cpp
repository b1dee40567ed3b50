#include "quor/deck/internal/read/values/ColumnOrder.h"

#include "quor/deck/internal/text/WordText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

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

std::string OrderText(Constraint::Enum constraint, const std::string& where, double before, double now)
{
    switch (constraint) {
    case Constraint::StrictlyIncreasing:
        return fmt::format("{}: value {} must be greater than the previous value {}", where, now, before);
    case Constraint::StrictlyDecreasing:
        return fmt::format("{}: value {} must be less than the previous value {}", where, now, before);
    case Constraint::Increasing:
        return fmt::format("{}: value {} must not be less than the previous value {}", where, now, before);
    case Constraint::Decreasing:
        return fmt::format("{}: value {} must not be greater than the previous value {}", where, now, before);
    case Constraint::None:
        break;
    }
    return {};
}

} // namespace

ColumnOrder::Within::Within(ColumnOrder& order, const DataPlan& element)
    : order_(order)
    , rows_{&element, std::vector<double>(element.hasConstraints ? element.items.size() : 0, std::nan(""))}
    , around_(std::exchange(order.rows_, &rows_))
{
}

std::optional<ColumnOrder::Disorder> ColumnOrder::Check(
    const DataPlan& record, std::size_t index, double value, const TextRange& range)
{
    const DataPlan& item = record.items[index];
    if (item.constraint == Constraint::None || !HasColumns(record))
        return std::nullopt;
    double& last = rows_->last[index];
    if (std::isinf(last))
        return std::nullopt;
    if (std::isnan(last) || KeepsOrder(item.constraint, last, value)) {
        last = value;
        return std::nullopt;
    }
    // Where the first column begins again, so may a table.
    const bool mayBeNew =
        index == 0 && record.termination == Termination::NONE && !rows_->isOutOfStep && !IsRowShifted(range);
    Misfit misfit{Code::ColumnOrder, OrderText(item.constraint, values_.In(item), last, value),
        mayBeNew ? "if a new table starts here, add a slash before it" : ""};
    last = HUGE_VAL;
    return Disorder{std::move(misfit), mayBeNew};
}

void ColumnOrder::SetOutOfStep()
{
    rows_->isOutOfStep = isShapeReported_ = true;
}

bool ColumnOrder::MayReport(const DataPlan& record, const TextRange& range, std::string& hint)
{
    if (!HasColumns(record))
        return true;
    if (rows_->isOutOfStep)
        return false;
    if (IsRowShifted(range)) {
        SetOutOfStep();
        hint = "a row on this line or before it has too few or too many values";
    }
    return true;
}

/// Whether the row begins or ends within a line, so that one before it has a value too few or too many.
bool ColumnOrder::IsRowShifted(const TextRange& range) const
{
    const DataPlan& row = *rows_->element;
    if (row.termination != Termination::NONE || begin_.file != range.file || range.file != text_.GetFile())
        return false;
    const std::string_view line = text_.GetLineFrom(begin_);
    if (range.offset >= begin_.offset + line.size())
        return true;
    const bool isFlat =
        std::all_of(row.items.begin(), row.items.end(), [](const DataPlan& item) { return item.IsScalar(); });
    return isFlat && CountValues(FindLineWords(line)) % row.items.size() != 0;
}

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/read/values/ValueReader.h"
#include "quor/deck/internal/read/words/DeckText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The order of values in the columns of a table, and whether its rows begin where they should. The rows are
/// the elements of the innermost list of records. Of a table that is out of step nothing more is reported.
class ColumnOrder {
    struct Rows {
        const DataPlan* element;
        std::vector<double> last; // of each column; NaN: none so far, infinite: out of order already; empty
                                  // if no column has an order
        bool isOutOfStep = false; // reported: the rows don't begin where they should
    };

public:
    ColumnOrder(const DeckText& text, const ValueReader& values)
        : text_(text)
        , values_(values)
    {
    }

    /// A keyword begins.
    void Begin() { isShapeReported_ = false; }

    /// As long as this lives, a list of such elements is the innermost one.
    class Within {
    public:
        Within(ColumnOrder& order, const DataPlan& element);
        ~Within() { order_.rows_ = around_; }
        Within(const Within&) = delete;
        Within& operator=(const Within&) = delete;

    private:
        ColumnOrder& order_;
        Rows rows_;
        Rows* around_;
    };

    /// Whether such records are the rows.
    bool IsRow(const DataPlan& record) const { return rows_ && rows_->element == &record; }
    /// The first word of a row is at the range.
    void BeginRow(const TextRange& range) { begin_ = range; }
    const TextRange& GetRowBegin() const { return begin_; }

    struct Disorder {
        Misfit misfit;
        bool mayBeNewTable = false;
    };
    /// The value at the range becomes the last of its column.
    std::optional<Disorder> Check(
        const DataPlan& record, std::size_t index, double value, const TextRange& range);
    /// What was reported explains whatever else is wrong with the rows.
    void SetOutOfStep();

    /// Of what is wrong with a value of the record: false if the rows are out of step, and that was reported.
    /// If they are found to be now, the hint says so instead.
    bool MayReport(const DataPlan& record, const TextRange& range, std::string& hint);
    /// It was reported that the rows are out of step.
    bool IsOutOfStep() const { return rows_ && rows_->isOutOfStep; }
    /// The same of any table of the keyword: sizes are wrong for that reason.
    bool IsShapeReported() const { return isShapeReported_; }

private:
    bool HasColumns(const DataPlan& record) const { return IsRow(record) && !rows_->last.empty(); }
    bool IsRowShifted(const TextRange& range) const;

    const DeckText& text_;
    const ValueReader& values_;
    Rows* rows_ = nullptr;
    TextRange begin_; // of the row being read
    bool isShapeReported_ = false;
};

} // namespace Veld::Quor::Core::Decks

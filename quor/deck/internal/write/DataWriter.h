#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/internal/read/data/DataNotes.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/write/DataLines.h"
#include "quor/deck/internal/write/TableLines.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
class IKeywordListData;
class IKeywordMapData;
class IKeywordRecordData;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Core::Decks {

/// Writes a keyword and its data as the text of a deck: repeats folded, what is not given left out where it
/// may be, rows in columns. Read with the same language, simulator and sizes, the text gives equal data.
class DataWriter {
public:
    /// `plan`: of the data's metadata. `notes`, which may be null, has the comments and variables to keep;
    /// the texts of the comments are those of `files`.
    DataWriter(const DataPlan& plan, const DataNotes* notes, const DeckFiles& files)
        : plan_(plan)
        , notes_(notes)
        , files_(files)
    {
    }

    /// The lines, without the end of the last one. `mayShareLine`: the data may begin on the keyword's line,
    /// if their metadata want that. Throws `std::invalid_argument` for data that no deck can hold: a text
    /// with both kinds of quotes or several lines, no value where there is no default.
    std::string Write(std::string_view name, const Core::Keywords::IKeywordData& data, bool mayShareLine);

private:
    /// A value that is not given is an empty text.
    using Cell = TableRow::Cell;

    void WriteContainer(const DataPlan& plan, const Core::Keywords::IKeywordData& data, bool needsWord);
    void WriteRecord(const DataPlan& plan, const Core::Keywords::IKeywordRecordData& record, bool needsWord);
    void WriteNested(const DataPlan& item, const Core::Keywords::IKeywordData& data, bool needsWord);
    void WriteMissing(std::size_t count);
    void WriteList(const DataPlan& plan, const Core::Keywords::IKeywordListData& list);
    void WriteValues(const DataPlan& plan, const Core::Keywords::IKeywordListData& list);
    void WriteNumbers();
    void WriteLines(const Core::Keywords::IKeywordListData& list);
    void WriteElements(const DataPlan& plan, const Core::Keywords::IKeywordListData& list);
    void WriteRows(const DataPlan& plan, const Core::Keywords::IKeywordListData& list);
    void AddRow(const DataPlan& record, const Core::Keywords::IKeywordRecordData& data, bool needsWord);
    void WriteTabular(const DataPlan& record, const Core::Keywords::IKeywordListData& list);
    void TakeRowComments(TableRow& row);
    void TakeCommentsWithin(const DataPlan& record, TableRow& row);
    void FillRow(const DataPlan& record, const Core::Keywords::IKeywordRecordData& data, bool needsWord,
        TableRow& row);
    void FillCells(const DataPlan& record, const Core::Keywords::IKeywordRecordData& data, bool needsWord,
        TableRow& row);
    TableRow::Comment RowCommentOf(const DataComment& comment) const;
    void FinishRows();
    void WriteMap(const DataPlan& plan, const Core::Keywords::IKeywordMapData& map);
    void WriteNames(const Core::Keywords::IKeywordMapData& map);
    void WriteEnd(const DataPlan& plan, bool isOnNewLine);

    Cell CellToWrite(
        const DataPlan& item, const Core::Keywords::IKeywordRecordData& record, std::size_t index) const;
    Cell ElementOf(
        const DataPlan& item, const Core::Keywords::IKeywordListData& list, std::size_t index) const;
    const std::string* FindVariable(const Core::Keywords::IKeywordData& node, std::size_t index) const;
    /// How many items of the record are to be written. `needsWord`: a slash alone won't do.
    std::size_t CountGiven(
        const DataPlan& plan, const Core::Keywords::IKeywordRecordData& record, bool needsWord) const;
    bool IsItemGiven(
        const DataPlan& item, const Core::Keywords::IKeywordRecordData& record, std::size_t index) const;
    bool IsGiven(const DataPlan& plan, const Core::Keywords::IKeywordData& data) const;

    /// Writes the comments up to here.
    void WriteComments();
    const DataComment* FindComment() const;
    std::uint64_t FindNextSlot() const;
    std::string TextOf(const DataComment& comment) const;
    bool IsIndented(const DataComment& comment) const;
    bool HasCommentWithin(const DataPlan& record) const;
    bool HasCommentWithinRows(const DataPlan& record, const Core::Keywords::IKeywordListData& list) const;

    const DataPlan& plan_;
    const DataNotes* notes_;
    const DeckFiles& files_;

    DataLines lines_{{}};
    DataPosition position_;
    std::size_t nextComment_ = 0;
    std::size_t nextEndWord_ = 0;
    std::vector<std::string> numbers_; // of an array, still to be written
    std::vector<TableRow> rows_; // likewise
};

} // namespace Veld::Quor::Core::Decks

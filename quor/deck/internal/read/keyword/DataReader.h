#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/data/DataNotes.h"
#include "quor/deck/internal/read/keyword/NoteTaker.h"
#include "quor/deck/internal/read/keyword/PlainRecord.h"
#include "quor/deck/internal/read/keyword/RecordWatch.h"
#include "quor/deck/internal/read/keyword/WrongSizes.h"
#include "quor/deck/internal/read/values/ColumnOrder.h"
#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/read/values/SizeText.h"
#include "quor/deck/internal/read/values/ValueReader.h"
#include "quor/deck/internal/read/words/DeckText.h"
#include "quor/deck/internal/read/words/VariableValues.h"
#include "quor/deck/internal/read/words/WordStream.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class ICustomReadTermination;
class IKeywordAssignmentMD;
class IKeywordListData;
class IKeywordMapData;
class IKeywordRawData;
class IKeywordRecordData;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Core::Decks {

/// Where a record of a deck begins.
struct RecordStart {
    std::uint64_t file : 20;
    std::uint64_t offset : 44;

    static RecordStart Of(const TextRange& range)
    {
        return {range.file & ((1U << 20) - 1), range.offset & ((std::uint64_t(1) << 44) - 1)};
    }
};

/// Reads what is after a keyword into its data, as its metadata say, and reports what is wrong. One wrong
/// word is reported once; after it, reading continues.
class DataReader {
public:
    /// What a keyword's data may have.
    struct Traits {
        bool mayLackLayers; ///< an array, whose layers are those above where none is given
        bool isOfMatrix; ///< an array of the cells of the matrix, the upper half of the grid
        bool mayHaveQuantities; ///< a name that the user defines may be in place of a number
    };

    /// `keepsValueRanges`: the notes get the range of each value, at a cost in time and memory.
    /// `maxRepeatedValues`: as in `ReadOptions`.
    DataReader(const Target& target, DeckText& text, FindingReporter& reporter, Decks::SizeOfName sizeOfName,
        VariableTexts variables, bool keepsValueRanges, std::size_t maxRepeatedValues);

    /// The text continues after `keyword`. Where the outermost data are a list, `starts` gets the begin of
    /// each element; `watch` is told of its records, if it is not null.
    void Read(const DataPlan& plan, const Token& keyword, Core::Keywords::IKeywordData& data,
        const Traits& traits, std::vector<RecordStart>& starts, RecordWatch* watch);

    /// What the text of the keyword holds beside its data.
    DataNotes TakeNotes() { return std::move(notesOfKeyword_); }

    /// How many variables of the keyword have no value.
    std::size_t GetUnknownVariableCount() const { return variables_.GetUnknownCount(); }
    /// How many have been reported so far.
    std::size_t GetReportedVariableCount() const { return variables_.GetReportedCount(); }

    void SetUnits(Core::Keywords::UnitSystem::Enum units) { values_.SetUnits(units); }
    /// The sizes of the deck that were found to be wrong since it was last asked.
    std::vector<std::string> TakeWrongSizes() { return wrongSizes_.TakeNames(); }
    /// Whether a list with that size, as a text, was reported to be too short or too long.
    bool HasReported(const std::string& size) const { return wrongSizes_.HasReported(size); }
    /// Sizes that were reported as wrong elsewhere; must outlive it.
    void SetReportedSizes(const std::unordered_set<std::string>& names) { wrongSizes_.SetReported(names); }

    /// Where in its file the keyword ended, if nothing has led away from it in between.
    std::size_t GetEnd() const { return words_.GetEnd().offset; }
    /// The turns of the text before that.
    std::size_t GetTurns() const { return words_.GetTurns(); }

private:
    using Got = WordStream::Got;
    static constexpr long long unknownSize = -1;

    /// How the reading of an element ended.
    enum class Ended {
        Complete,
        BySlash, ///< a slash that belongs to what is around it was taken
        ByStop, ///< reported already
    };
    /// What lacks its end.
    enum class Open { Record, Values, Records, Names, ByWord };
    /// Of a list of numbers: what is reported once, with how many there are.
    struct NumberErrors {
        TextRange firstBeyond; // its limits
        double beyondValue = 0;
        long long beyond = 0;
        TextRange firstSurplus; // beyond the size of the list
        long long surplus = 0;
        bool isShifted = false; // a default may be the count of a repeat and a blank: "2* 0.3"

        void AddBeyond(const TextRange& range, double value, long long count);
    };

    // Any data
    Ended ReadRoot(
        const DataPlan& plan, Core::Keywords::IKeywordData& data, std::vector<RecordStart>& starts);
    Ended ReadContainer(const DataPlan& plan, Core::Keywords::IKeywordData& data);
    Ended SkipToSlash();
    long long SizeOf(const std::string* text) const;
    std::optional<long long> SizeOfName(const std::string& name) const;

    // Records
    Ended ReadRecord(const DataPlan& plan, Core::Keywords::IKeywordRecordData& record);
    Ended ReadItem(const DataPlan& plan, std::size_t index, Core::Keywords::IKeywordRecordData& record);
    Ended ReadWithin(const DataPlan& item, std::size_t index, void* storage);
    Ended ReadLine(bool isFirst, void* storage);
    Ended ReadDefault(const DataPlan& item);
    bool IsText(const DataPlan& item, bool mayBeMissing) const;
    void RemarkBlank();
    Ended ReadMissing(const DataPlan& plan, std::size_t index);
    Ended ReadGiven(const DataPlan& plan, std::size_t index, void* storage);
    bool ReadScalar(const DataPlan& plan, std::size_t index, void* storage);
    template <class T>
    bool ReadScalarAs(const DataPlan& plan, std::size_t index, void* storage);
    void CheckNumber(const DataPlan& plan, std::size_t index, double value);
    bool HasWrongSize(const DataPlan& record) const;
    void CheckValid(const DataPlan& item);
    Ended EndRecord(const DataPlan& plan);
    Got PassDefaults(const DataPlan& plan);
    void CheckMissing(const DataPlan& plan, std::size_t first, const TextRange& range);

    // Text that goes wrong
    void PassRemark(const DataPlan& plan);
    bool BeginsNextRecord(const DataPlan& plan, std::size_t index);
    bool IsKeywordNext(const DataPlan& list);
    bool IsKeywordInRecord();
    bool FitsAfter(const DataPlan& plan, std::size_t index) const;
    std::string FindShift(const DataPlan& item) const;
    long long CountNumbersInWord() const;
    Ended SkipRest();
    bool Report(const DataPlan& item, WordErrors&& errors);
    bool ReportMisfit(const DataPlan& item, Misfit misfit);
    void ReportInRow(Misfit misfit);
    void ReportAt(const TextRange& range, Misfit misfit);
    bool MayReportOfRow(const TextRange& range, std::string& hint);

    // Lists
    Ended ReadList(
        const DataPlan& plan, Core::Keywords::IKeywordListData& list, std::vector<RecordStart>* starts);
    Ended ReadElementsOf(
        const DataPlan& plan, Core::Keywords::IKeywordListData& list, std::vector<RecordStart>* starts);
    Ended ReadElements(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list,
        std::vector<RecordStart>* starts);
    template <class MD, class T>
    Ended ReadValues(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list);
    template <class MD, class T>
    void ReadValue(const DataPlan& plan, Core::Keywords::IKeywordListData& list);
    Ended ReadLines(const DataPlan& plan, Core::Keywords::IKeywordListData& list);
    bool HasMore(
        const DataPlan& plan, long long size, const Core::Keywords::IKeywordListData& list, Ended& ended);
    const Token* PeekForNumber(const DataPlan& element);
    Ended EndListByStop(const DataPlan& plan, long long size, const Core::Keywords::IKeywordListData& list);
    Ended EndListBySlash(const DataPlan& plan, long long size, const Core::Keywords::IKeywordListData& list);
    bool EndsByWord(const Core::Keywords::ICustomReadTermination& endWords);
    void ReportNoDefault(const DataPlan& item);
    void ReadPlainRecords(
        const DataPlan& plan, Core::Keywords::IKeywordListData& list, std::vector<RecordStart>* starts);
    bool TakePlainRecord(const DataPlan& plan, Core::Keywords::IKeywordListData& list);

    // Ends and sizes
    Ended Unclosed(Open what, std::vector<TextEdit> fix = {});
    Ended UnclosedRecord(const DataPlan& plan, std::size_t missing);
    void ReportUnclosed(const TextRange& end, Open what, std::vector<TextEdit> fix);
    std::vector<TextEdit> SlashAfterLast(bool endsRecord, bool endsList) const;
    Ended UnclosedList(const DataPlan& plan);
    static Open OpenListOf(const DataPlan& plan);
    bool MayEndAfter(const std::string& size, long long count) const;
    bool IsUpperHalf(const std::string& size, long long count) const;
    bool IsKnownSize(const std::string& size, long long count);
    void PassSurplus(const DataPlan& plan, long long count);
    void CheckSize(const DataPlan& plan, long long size, long long count, const TextRange& range);

    // Lists of numbers
    Ended ReadNumbers(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list);
    template <class MD, class T>
    Ended ReadNumbersAs(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list);
    template <class T>
    void AppendRepeated(
        Core::Keywords::IKeywordListData& list, T value, long long count, bool isDefault) const;
    template <class T>
    void ReadPlainNumbers(const DataPlan& item, long long most, Core::Keywords::IKeywordListData& list);
    template <class MD, class T>
    void ReadNumber(
        const DataPlan& plan, long long most, Core::Keywords::IKeywordListData& list, NumberErrors& errors);
    template <class MD, class T>
    T DefaultNumber(const DataPlan& plan, const Core::Keywords::IKeywordListData& list);
    void ReportNumbers(const DataPlan& plan, long long size, const NumberErrors& errors);

    // Maps and raw text
    Ended ReadMap(const DataPlan& plan, Core::Keywords::IKeywordMapData& map);
    bool TakeSwitch(Got got, long long count);
    void ReadAssignment(Core::Keywords::IKeywordMapData& map);
    std::optional<std::string_view> ReadAssigned();
    std::optional<int> ConvertAssigned(
        const std::string& name, std::string_view number, const TextRange& range);
    void CheckAssignment(const Core::Keywords::IKeywordAssignmentMD& md, const std::string& name, int value,
        const TextRange& range);
    void ReadRaw(const DataPlan& plan, Core::Keywords::IKeywordRawData& data);

    Target target_;
    DeckText& text_;
    FindingReporter& reporter_;
    Decks::SizeOfName sizeOfName_;
    VariableValues variables_;
    ValueReader values_;
    WordStream words_;
    NoteTaker notes_;
    ColumnOrder order_;
    PlainRecord plain_; // kept for its memory

    // Of the keyword being read
    Token keyword_;
    const DataPlan* root_ = nullptr;
    Traits traits_ = {};
    RecordWatch* watch_ = nullptr;
    long long misfits_ = 0; // values of the list being read that were none
    std::vector<std::pair<const DataPlan*, const Core::Keywords::IKeywordRecordData*>> records_; // being read
    DataNotes notesOfKeyword_;

    WrongSizes wrongSizes_;
};

} // namespace Veld::Quor::Core::Decks

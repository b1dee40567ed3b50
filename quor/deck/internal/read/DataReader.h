#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/DataNotes.h"
#include "quor/deck/internal/read/DataPlan.h"
#include "quor/deck/internal/read/DeckText.h"
#include "quor/deck/internal/read/SizeText.h"
#include "quor/deck/internal/text/NumberText.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {
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

/// Texts that stand for variables, by name with the "$".
using VariableTexts = std::map<std::string, std::string>;

/// Reads what stands after a keyword into its data, as its metadata say, and reports what is wrong. One wrong
/// word is reported once; after it, reading goes on.
class DataReader {
public:
    /// `keepsValueRanges`: the notes get the range of each value, at a cost in time and memory.
    DataReader(const Target& target, DeckText& text, FindingReporter& reporter, Decks::SizeOfName sizeOfName,
        VariableTexts variables, bool keepsValueRanges);

    /// The text stands after `keyword`. Where the outermost data are a list, `places` gets the begin of each
    /// element.
    void Read(const DataPlan& plan, const Token& keyword, Core::Keywords::IKeywordData& data, bool mayBeShort,
        std::vector<RecordStart>& starts);

    /// What stood in the text of the keyword beside its data.
    DataNotes TakeNotes() { return std::move(notes_); }

    /// How many variables of the keyword have no value.
    std::size_t GetUnknownVariableCount() const { return unknownVariables_; }
    /// How many have been reported so far.
    std::size_t GetReportedVariableCount() const { return reportedVariables_.size(); }

    /// Where in its file the keyword ended, if nothing has led away from it in between.
    std::size_t GetEnd() const { return last_.offset + last_.length; }
    /// The turns of the text before that.
    std::size_t GetTurns() const { return lastTurns_; }

    /// Takes a message of the library about a choice that was not the plain word.
    void NoteChoice(const char* message) { choiceMessage_ = message; }

private:
    static constexpr long long unknownSize = -1;
    // What a few bytes of text may grow to where no size bounds it.
    static constexpr long long mostRecords = 10'000;
    static constexpr long long mostValues = 1'000'000;

    /// What came where a value was asked for.
    enum class Got {
        Value, ///< `value_`
        Default, ///< `value_` has the range
        Slash,
        Stop, ///< a keyword, or the end of the deck
    };
    /// How the reading of an element ended.
    enum class Ended {
        Complete,
        BySlash, ///< a slash that belongs to what is around it was taken
        ByStop, ///< reported already
    };

    Ended ReadRoot(
        const DataPlan& plan, Core::Keywords::IKeywordData& data, std::vector<RecordStart>& starts);
    Ended ReadContainer(const DataPlan& plan, Core::Keywords::IKeywordData& data);
    Ended ReadRecord(const DataPlan& plan, Core::Keywords::IKeywordRecordData& record);
    Ended ReadItem(const DataPlan& plan, std::size_t index, Core::Keywords::IKeywordRecordData& record);
    void ReadScalar(const DataPlan& plan, std::size_t index, void* storage);
    Ended EndRecord(const DataPlan& plan);
    bool BeginsNextRecord(const DataPlan& plan, std::size_t index);
    Ended PassOverRest();
    bool FitsAfter(const DataPlan& plan, std::size_t index) const;
    std::string FindShift(const DataPlan& item);
    void CheckMissing(const DataPlan& plan, std::size_t first, const TextRange& range);
    Ended ReadList(
        const DataPlan& plan, Core::Keywords::IKeywordListData& list, std::vector<RecordStart>* starts);
    Ended ReadElementsOf(
        const DataPlan& plan, Core::Keywords::IKeywordListData& list, std::vector<RecordStart>* starts);
    Ended ReadElements(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list,
        std::vector<RecordStart>* starts);
    Ended ReadEachElement(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list,
        std::vector<RecordStart>* starts);
    Ended ReadValues(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list);
    bool HasMore(
        const DataPlan& plan, long long size, const Core::Keywords::IKeywordListData& list, Ended& ended);
    template <class T>
    Ended ReadNumbers(const DataPlan& plan, long long size, Core::Keywords::IKeywordListData& list);
    template <class T>
    void ReadPlainNumbers(const DataPlan& item, long long most, Core::Keywords::IKeywordListData& list);
    Ended ReadLines(const DataPlan& plan, Core::Keywords::IKeywordListData& list);
    Ended ReadMap(const DataPlan& plan, Core::Keywords::IKeywordMapData& map);
    void ReadAssignment(Core::Keywords::IKeywordMapData& map);
    void CheckAssignment(const Core::Keywords::IKeywordAssignmentMD& md, const std::string& name, int value,
        const TextRange& range);
    void ReadRaw(const DataPlan& plan, Core::Keywords::IKeywordRawData& data);

    Got Next();
    Got Peek();
    void SetLast(const TextRange& range);
    Ended SkipToSlash();
    Ended Unclosed(const char* what);
    Ended UnclosedList(const DataPlan& element);
    void ReportUnclosed(const TextRange& last, const char* what);

    /// A slot was passed, or several that `value_` stands for.
    void Pass(std::size_t slots = 1);
    void PassMissing(const DataPlan& record, std::size_t firstItem);
    void NoteComment(const TextRange& range, CommentKind kind);
    void FinishNotes(const Core::Keywords::IKeywordData& data);

    /// Empty if there is no variable in `value_`; else whether it has a value.
    template <class T>
    std::optional<bool> ConvertVariables(const DataPlan& item, T& value);
    std::optional<std::string> ReplaceVariables(const Core::Keywords::VariablesString& text);
    void ReportVariable(const std::string& name);
    void NoteVariable(int index, long long count);

    bool Convert(const DataPlan& item, double& value);
    bool Convert(const DataPlan& item, int& value);
    bool Convert(const DataPlan& item, bool& value);
    bool Convert(const DataPlan& item, std::string& value);
    bool ConvertChoice(const DataPlan& item, int& value);
    template <class T>
    void SetNumber(const DataPlan& record, std::size_t index, void* storage);
    bool CheckLimits(const DataPlan& item, double value);
    void CheckSize(const DataPlan& plan, long long size, long long count, const TextRange& range);
    void CheckColumn(const DataPlan& record, std::size_t index, double value);
    std::string BeyondText(const DataPlan& item, double value) const;
    void ReportBeyond(const DataPlan& item, const TextRange& range, double value, long long more);
    long long SizeOf(const std::string* text) const;
    std::optional<long long> SizeOfName(const std::string& name) const;
    /// "WCONPROD, ORAT" for an item with a name, else the keyword's name.
    std::string In(const DataPlan& item) const;
    void ReportWrong(const DataPlan& item, const char* expected);
    /// Once for each word, however often it is repeated; once for each table whose rows are out of step.
    void ReportMisfit(const DataPlan& item, Code code, std::string message, std::string hint = {});
    /// False if the rows of the table are out of step, and that was reported.
    bool MayTellOfRow(const TextRange& range, std::string& hint);
    void ReportColumn(const DataPlan& item, bool isFirst, std::string message);
    bool IsOutOfStep(const TextRange& range) const;

    Target target_;
    DeckText& text_;
    FindingReporter& reporter_;
    Decks::SizeOfName sizeOfName_;
    VariableTexts variables_;
    std::set<std::string> reportedVariables_;
    std::size_t unknownVariables_ = 0;
    bool keepsValueRanges_;

    // Of the keyword being read
    Token keyword_;
    bool mayBeShort_ = false;
    bool isOneLine_ = false; // the record ends with its line
    Token value_;
    long long repeats_ = 0; // of `value_`, still to come
    long long longestRepeat_ = mostRecords;
    std::size_t taken_ = 0; // words, repeated ones each time
    bool isDefault_ = false; // `value_` stands for a default
    bool isShapeReported_ = false; // of tables: sizes are wrong for a reason that was reported
    bool isMisfitReported_ = false; // of `value_`
    long long misfits_ = 0; // values of the list being read that were none
    bool isShifted_ = false; // the rest of the record fits one place further on, or before
    TextRange last_; // of the last word
    TextRange lastValue_; // of the word before the last slash
    std::size_t lastTurns_ = 0;
    std::string choiceMessage_;
    DataNotes notes_;
    DataPosition position_;
    std::vector<int> path_; // from the root to what is being read
    bool isVariable_ = false; // `value_` was one
    bool isReplaced_ = false; // variables stand no longer in `value_`
    struct VariableUse {
        std::vector<int> path;
        int index;
        int count;
        std::string key; // of a map; else empty
        std::string text;
    };
    std::vector<VariableUse> variableUses_;
    /// The values before, of the records of a list; no number: none so far, infinite: out of order already.
    struct Columns {
        const DataPlan* record;
        std::vector<double> last;
        bool isOutOfStep = false; // reported: the rows don't begin where they should
    };
    Columns* columns_ = nullptr; // of the innermost list of records
    const DataPlan* element_ = nullptr; // of that list
    TextRange begin_; // of the element being read
    std::vector<std::pair<const DataPlan*, const Core::Keywords::IKeywordRecordData*>> records_; // being read
};

} // namespace Veld::Quor::Core::Decks

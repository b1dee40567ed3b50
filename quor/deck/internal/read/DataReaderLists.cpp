#include "quor/deck/internal/read/DataReader.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordStringMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <type_traits>
#include <utility>

// Lists of anything but numbers, and how all lists end.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

void Append(IKeywordListData& list, bool value)
{
    const char byte = value ? 1 : 0;
    list.AddData(&byte);
}

/// Stands for a variable without a value.
template <class MD, class T>
T UnknownValue()
{
    if constexpr (std::is_same_v<MD, IKeywordChoiceMD>)
        return -1;
    else
        return T();
}

template <class T>
void Append(IKeywordListData& list, const T& value)
{
    list.AddData(&value);
}

/// The messages on the number of elements of a list; each gets the keyword and both numbers.
struct SizeTexts {
    const char* tooFew;
    const char* belowLeast;
    const char* aboveMost;
};

const SizeTexts& SizeTextsOf(const DataPlan& element)
{
    static constexpr SizeTexts values = {"{}: too few values (expected {}, found {})",
        "{}: too few values (expected at least {}, found {})",
        "{}: too many values (expected at most {}, found {})"};
    static constexpr SizeTexts records = {"{}: too few records (expected {}, found {})",
        "{}: too few records (expected at least {}, found {})",
        "{}: too many records (expected at most {}, found {})"};
    static constexpr SizeTexts rows = {"{}: too few rows (expected {}, found {})",
        "{}: too few rows (expected at least {}, found {})",
        "{}: too many rows (expected at most {}, found {})"};
    static constexpr SizeTexts tables = {"{}: too few tables (expected {}, found {})",
        "{}: too few tables (expected at least {}, found {})",
        "{}: too many tables (expected at most {}, found {})"};
    if (element.IsScalar())
        return values;
    if (element.type != MDType::Record)
        return tables;
    return element.termination == Termination::NONE ? rows : records;
}

} // namespace

DataReader::Ended DataReader::ReadList(
    const DataPlan& plan, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    if (plan.items.empty())
        return Ended::Complete;
    const bool wasOneLine = words_.SetOneLine(plan.termination == Termination::EOL);
    const long long misfits = std::exchange(misfits_, 0);
    const Ended ended = ReadElementsOf(plan, list, starts);
    words_.SetOneLine(wasOneLine);
    misfits_ = misfits;
    return ended;
}

DataReader::Ended DataReader::ReadElementsOf(
    const DataPlan& plan, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    const long long size = SizeOf(ListMD(plan).GetSize());
    switch (plan.items.front().type) {
    case MDType::Integer:
    case MDType::Real:
        return ReadNumbers(plan, size, list);
    case MDType::Line:
        return ReadLines(plan, list);
    case MDType::Boolean:
        return ReadValues<IKeywordBooleanMD, bool>(plan, size, list);
    case MDType::Choice:
        return ReadValues<IKeywordChoiceMD, int>(plan, size, list);
    case MDType::String:
        return ReadValues<IKeywordStringMD, std::string>(plan, size, list);
    case MDType::Assignment:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return ReadElements(plan, size, list, starts);
}

/// A list of records or lists.
DataReader::Ended DataReader::ReadElements(
    const DataPlan& plan, long long size, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    const DataPlan& item = plan.items.front();
    const ColumnOrder::Within within(order_, item);
    Ended ended = Ended::Complete;
    while (HasMore(plan, size, list, ended)) {
        const TextRange begin = text_.HasPeeked() ? text_.PeekData().range : words_.GetRange();
        if (starts)
            starts->push_back(RecordStart::Of(begin));
        const std::size_t taken = words_.GetTaken();
        notes_.Enter(static_cast<int>(list.GetSize()));
        ended = ReadContainer(item, *static_cast<IKeywordData*>(list.AddData(nullptr)));
        notes_.Leave();
        if (ended == Ended::ByStop)
            return ended;
        if (ended == Ended::BySlash) { // of the list: it came within the element
            CheckSize(plan, size, list.GetSize(), words_.GetRange());
            if (plan.termination == Termination::NONE)
                return ended;
            notes_.PassEnd();
            return Ended::Complete;
        }
        if (taken == words_.GetTaken()) { // elements of no size would go on for ever
            reporter_.Report(begin, Code::TooManyValues,
                fmt::format("{}: too many values (expected none)", keyword_.text),
                "the size of the list is 0");
            return SkipToSlash();
        }
    }
    return ended;
}

/// A list of truth values, choices or texts.
template <class MD, class T>
DataReader::Ended DataReader::ReadValues(const DataPlan& plan, long long size, IKeywordListData& list)
{
    const long long longest = words_.SetLongestRepeat(std::max(size, WordStream::mostValues));
    Ended ended = Ended::Complete;
    while (HasMore(plan, size, list, ended))
        ReadValue<MD, T>(plan, list);
    words_.SetLongestRepeat(longest);
    return ended;
}

template <class MD, class T>
void DataReader::ReadValue(const DataPlan& plan, IKeywordListData& list)
{
    const DataPlan& item = plan.items.front();
    const auto index = static_cast<std::size_t>(list.GetSize());
    if (words_.Next() == Got::Default) {
        if (!ListMD(plan).IsItemDefaultable()) {
            ReportNoDefault(item);
            words_.TakeRepeats();
            return;
        }
        Append(list, static_cast<const MD*>(item.md)->GetDefault(target_.simulator).ValueOr(T()));
        list.SetDefaulted(index, true);
    } else {
        Reading<T> reading = values_.Read<T>(item, words_.GetWord());
        Report(item, std::move(reading.faults));
        if (reading.hasVariables) {
            notes_.AddVariable(static_cast<int>(index), 1, words_.GetWord().text);
            if (!reading.value)
                reading.value = UnknownValue<MD, T>();
        }
        if (reading.value)
            Append(list, *reading.value);
        else
            ++misfits_;
    }
    notes_.Pass(words_.GetRange());
}

DataReader::Ended DataReader::ReadLines(const DataPlan& plan, IKeywordListData& list)
{
    const auto* const words = ListMD(plan).GetCustomReadTermination();
    for (;;) {
        const Token line = text_.NextLine(false);
        if (line.kind != Token::Kind::Word)
            return words || plan.termination != Termination::NONE ? Unclosed(OpenListOf(plan))
                                                                  : Ended::Complete;
        const std::string_view word = line.text.substr(0, line.text.find_first_of(" \t"));
        const bool isAlone = word == "/" || IsEmpty(line.text.substr(word.size()));
        bool ignored = false;
        if (isAlone && (words ? words->Matches(std::string(word), ignored) : word == "/")) {
            if (words)
                notes_.PassEndWord(word);
            else
                notes_.PassEnd();
            words_.SetLast({line.range.file, line.range.offset, word.size()});
            return Ended::Complete;
        }
        words_.TakeLine(line);
        Append(list, std::string(line.text));
        notes_.Pass(line.range);
    }
}

/// Whether the list goes on with another element; a slash or a word that ends it is taken.
bool DataReader::HasMore(const DataPlan& plan, long long size, const IKeywordListData& list, Ended& ended)
{
    ended = Ended::Complete;
    const bool endsByItself = plan.termination == Termination::NONE;
    if (endsByItself && list.GetSize() == size)
        return false;
    const Got got = words_.Peek();
    if (got == Got::Stop) {
        ended = EndListByStop(plan, size, list);
        return false;
    }
    if (const auto* endWords = ListMD(plan).GetCustomReadTermination())
        return !EndsByWord(*endWords);
    const bool isElement = !plan.items.front().IsScalar() && endsByItself;
    if (got != Got::Slash || isElement)
        return true;
    words_.Next();
    ended = EndListBySlash(plan, size, list);
    return false;
}

/// A list of unknown size that nothing closes goes on to the next keyword.
DataReader::Ended DataReader::EndListByStop(
    const DataPlan& plan, long long size, const IKeywordListData& list)
{
    if (plan.termination != Termination::NONE)
        return UnclosedList(plan);
    if (size != unknownSize)
        CheckSize(plan, size, list.GetSize(), words_.GetEnd());
    return Ended::Complete;
}

/// The slash was taken.
DataReader::Ended DataReader::EndListBySlash(
    const DataPlan& plan, long long size, const IKeywordListData& list)
{
    CheckSize(plan, size, list.GetSize(), words_.GetRange());
    if (plan.termination == Termination::NONE)
        return Ended::BySlash;
    if (plan.termination == Termination::SLASH)
        notes_.PassEnd();
    return Ended::Complete;
}

/// Takes the word that ends the list, if it comes next.
bool DataReader::EndsByWord(const ICustomReadTermination& endWords)
{
    const Token* const next = words_.PeekBare();
    bool ignored = false;
    if (!next || !endWords.Matches(std::string(next->text), ignored))
        return false;
    notes_.PassEndWord(next->text);
    words_.TakeBare();
    return true;
}

/// A slash that stands alone on its line was meant to close the list, and has closed its last record.
DataReader::Ended DataReader::UnclosedList(const DataPlan& plan)
{
    const DataPlan& element = plan.items.front();
    const TextRange& last = words_.GetLast();
    const bool isTaken = element.type == MDType::Record && element.termination == Termination::SLASH
        && last.file == text_.GetFile() && text_.GetLineFrom(last).starts_with('/')
        && text_.IsFirstOnLine(last);
    if (!isTaken || text_.MissedInclusion())
        return Unclosed(OpenListOf(plan));
    const TextRange& value = words_.GetLastBeforeSlash();
    ReportUnclosed({value.file, value.offset + value.length, 0}, Open::Record);
    return Ended::ByStop;
}

DataReader::Open DataReader::OpenListOf(const DataPlan& plan)
{
    const auto* const words = ListMD(plan).GetCustomReadTermination();
    bool ignored = false;
    if (words && !words->Matches("/", ignored))
        return Open::ByWord;
    const DataPlan& element = plan.items.front();
    return element.type == MDType::Record && element.termination == Termination::SLASH ? Open::Records
                                                                                       : Open::Values;
}

void DataReader::ReportNoDefault(const DataPlan& item)
{
    reporter_.Report(words_.GetRange(), Code::NoDefault,
        fmt::format("{}: the values have no default", values_.In(item)), "write each value");
}

void DataReader::CheckSize(const DataPlan& plan, long long size, long long count, const TextRange& range)
{
    if (text_.MissedInclusion() || order_.IsShapeReported())
        return;
    const std::string* const least = ListMD(plan).GetMinSize();
    const std::string* const most = ListMD(plan).GetMaxSize();
    const SizeTexts& texts = SizeTextsOf(plan.items.front());
    const bool isShort = size != unknownSize && count + misfits_ < size && !(mayBeShort_ && count > 0);
    // A table without rows stands for the one before it.
    if (isShort && (count > 0 || plan.termination == Termination::NONE || plan.items.front().IsScalar()))
        reporter_.Report(range, Code::WrongSize,
            fmt::format(fmt::runtime(texts.tooFew), keyword_.text, size, count),
            fmt::format("the size is {}", *ListMD(plan).GetSize()));
    else if (const long long fewest = SizeOf(least);
             count > 0 && fewest != unknownSize && count + misfits_ < fewest)
        reporter_.Report(range, Code::WrongSize,
            fmt::format(fmt::runtime(texts.belowLeast), keyword_.text, fewest, count));
    else if (const long long greatest = SizeOf(most); greatest != unknownSize && count > greatest)
        reporter_.Report(range, Code::WrongSize,
            fmt::format(fmt::runtime(texts.aboveMost), keyword_.text, greatest, count));
}

} // namespace Veld::Quor::Core::Decks

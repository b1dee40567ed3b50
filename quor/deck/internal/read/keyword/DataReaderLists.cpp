#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/data/Access.h"
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

template <class T>
void Append(IKeywordListData& list, const T& value)
{
    list.AddData(&value);
}

/// In the place of a variable without a value. A text has one always: its own.
template <class MD>
void AppendUnknown(IKeywordListData& list)
{
    if constexpr (std::is_same_v<MD, IKeywordChoiceMD>)
        Append(list, -1);
    else if constexpr (std::is_same_v<MD, IKeywordBooleanMD>)
        AddUnknown(list);
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
    for (;;) {
        ReadPlainRecords(plan, list, starts);
        if (!HasMore(plan, size, list, ended))
            break;
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
        if (taken == words_.GetTaken()) { // elements of no size would never end
            reporter_.Report(begin, Code::TooManyValues,
                fmt::format("{}: too many values (expected none)", keyword_.text),
                "the size of the list is 0");
            return SkipToSlash();
        }
        if (starts && watch_ && item.type == MDType::Record)
            watch_->Add(list);
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
    const Got got = words_.Next();
    const bool isText = got == Got::Default && IsText(item, ListMD(plan).IsItemDefaultable());
    if (isText)
        words_.TakeAsText();
    if (got == Got::Default && !isText) {
        RemarkBlank();
        if (!ListMD(plan).IsItemDefaultable()) {
            ReportNoDefault(item);
            misfits_ += words_.TakeRepeats();
            return;
        }
        Append(list, static_cast<const MD*>(item.md)->GetDefault(target_.simulator).ValueOr(T()));
        list.SetDefaulted(index, true);
    } else {
        Reading<T> reading = values_.Read<T>(item, words_.GetWord());
        Report(item, std::move(reading.errors));
        if (reading.hasVariables)
            notes_.AddVariable(static_cast<int>(index), 1, words_.GetWord().text);
        if (reading.value)
            Append(list, *reading.value);
        else if (reading.hasVariables)
            AppendUnknown<MD>(list);
        else
            misfits_ += CountNumbersInWord();
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

/// Whether the list continues with another element; a slash or a word that ends it is taken.
bool DataReader::HasMore(const DataPlan& plan, long long size, const IKeywordListData& list, Ended& ended)
{
    ended = Ended::Complete;
    const bool endsByItself = plan.termination == Termination::NONE;
    if (endsByItself && list.GetSize() == size)
        return false;
    const Got got = words_.Peek();
    if (got == Got::Stop || (got == Got::Value && IsKeywordNext(plan))) {
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

/// The next word, if the element begins with a number; else null.
const Token* DataReader::PeekForNumber(const DataPlan& element)
{
    const DataPlan* first = &element;
    while (!first->IsScalar() && !first->items.empty())
        first = &first->items.front();
    return first->type == MDType::Integer || first->type == MDType::Real ? words_.PeekBare() : nullptr;
}

/// A list of unknown size that nothing closes continues to the next keyword.
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

void DataReader::ReportNoDefault(const DataPlan& item)
{
    reporter_.Report(words_.GetRange(), Code::NoDefault,
        fmt::format("{}: the values have no default", values_.In(item)), "write each value");
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <type_traits>

// Records and their items.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

} // namespace

DataReader::Ended DataReader::ReadRecord(const DataPlan& plan, IKeywordRecordData& record)
{
    const bool wasOneLine = words_.SetOneLine(plan.termination == Termination::EOL);
    records_.emplace_back(&plan, &record);
    Ended ended = Ended::Complete;
    std::size_t i = 0;
    while (i < plan.items.size() && ended == Ended::Complete)
        ended = ReadItem(plan, i++, record);
    records_.pop_back();
    if (ended == Ended::BySlash)
        notes_.PassMissing(plan, i, words_.GetMissingRange());
    if (ended == Ended::Complete)
        ended = EndRecord(plan);
    else if (ended == Ended::BySlash && plan.termination != Termination::NONE)
        ended = Ended::Complete;
    if (plan.termination == Termination::SLASH)
        notes_.PassEnd();
    words_.SetOneLine(wasOneLine);
    return ended;
}

/// `BySlash`: the slash came in place of the item.
DataReader::Ended DataReader::ReadItem(const DataPlan& plan, std::size_t index, IKeywordRecordData& record)
{
    const DataPlan& item = plan.items[index];
    void* const storage = record.GetData(static_cast<int>(index));
    if (!item.IsScalar())
        return ReadWithin(item, index, storage);
    if (item.type == MDType::Line)
        return ReadLine(records_.size() == 1 && index == 0, storage);
    if (BeginsNextRecord(plan, index)) {
        Unclosed(Open::Record, SlashAfterLast(plan.MayEndAt(index), false));
        notes_.PassMissing(item, 0, words_.GetRange());
        return Ended::BySlash;
    }
    const Got got = words_.Next();
    if (index == 0 && order_.IsRow(plan))
        order_.BeginRow(words_.GetRange());
    switch (got) {
    case Got::Stop:
        return UnclosedRecord(plan, index);
    case Got::Slash:
        CheckMissing(plan, index, words_.GetRange());
        notes_.PassMissing(item, 0, words_.GetMissingRange());
        return Ended::BySlash;
    case Got::Default:
        if (!IsText(item, item.MayBeMissing()))
            return ReadDefault(item);
        words_.TakeAsText();
        break;
    case Got::Value:
        if (item.type != MDType::String && item.type != MDType::Choice && IsKeywordInRecord())
            return UnclosedRecord(plan, index);
        break;
    }
    return ReadGiven(plan, index, storage);
}

DataReader::Ended DataReader::ReadWithin(const DataPlan& item, std::size_t index, void* storage)
{
    notes_.Enter(static_cast<int>(index));
    const Ended ended = ReadContainer(item, *static_cast<IKeywordData*>(storage));
    notes_.Leave();
    return ended;
}

DataReader::Ended DataReader::ReadLine(bool isFirst, void* storage)
{
    const Token line = text_.NextLine(isFirst);
    if (line.kind == Token::Kind::Word) {
        *static_cast<Optional<std::string>*>(storage) = std::string(line.text);
        words_.TakeLine(line);
    }
    const bool isGiven = line.kind == Token::Kind::Word;
    notes_.Pass(isGiven ? line.range : TextRange{line.range.file, line.range.offset, 0});
    return Ended::Complete;
}

/// Whether what stands for a default elsewhere is a text here: a lone asterisk is the pattern of all names,
/// and a blank text is one, where the text may not be left out.
bool DataReader::IsText(const DataPlan& item, bool mayBeMissing) const
{
    return item.type == MDType::String && !mayBeMissing && (words_.IsAsterisk() || words_.IsBlank());
}

void DataReader::RemarkBlank()
{
    if (!reporter_.IsStrict() || !words_.IsBlank() || !words_.MayReport())
        return;
    const Token& word = words_.GetWord();
    reporter_.Report(word.range, Code::BlankText,
        fmt::format("{}: a blank text is read as a default", keyword_.text),
        fmt::format("write '{}*'", word.repeat.count), {{word.range, fmt::format("{}*", word.repeat.count)}});
}

DataReader::Ended DataReader::ReadDefault(const DataPlan& item)
{
    bool isShifted = false;
    RemarkBlank();
    if (!item.MayBeMissing())
        isShifted = ReportMisfit(item,
            {Code::NoDefault, fmt::format("{}: the item has no default", values_.In(item)), "write a value"});
    notes_.Pass(words_.GetRange());
    return isShifted ? SkipRest() : Ended::Complete;
}

DataReader::Ended DataReader::ReadGiven(const DataPlan& plan, std::size_t index, void* storage)
{
    CheckValid(plan.items[index]);
    const bool isShifted = ReadScalar(plan, index, storage);
    notes_.Pass(words_.GetRange());
    const bool isLost = isShifted || (!words_.GetWord().isClosed && !FitsAfter(plan, index));
    return isLost ? SkipRest() : Ended::Complete;
}

void DataReader::CheckValid(const DataPlan& item)
{
    if (!item.isValid)
        reporter_.Report(words_.GetRange(), Code::ItemNotValid,
            fmt::format("{}: the item is not valid for {}", values_.In(item), NameOf(target_)),
            "write '1*' instead of the value");
    else if (item.isUnsupported)
        reporter_.Report(words_.GetRange(), Code::ItemUnsupported,
            fmt::format("{}: the item has no effect for {}", values_.In(item), NameOf(target_)));
}

/// What the word says goes to the item, if it fits. True if the rest of the record is shifted, by a missing
/// or extra value or because the word is several.
bool DataReader::ReadScalar(const DataPlan& plan, std::size_t index, void* storage)
{
    switch (plan.items[index].type) {
    case MDType::Integer:
    case MDType::Choice:
        return ReadScalarAs<int>(plan, index, storage);
    case MDType::Real:
        return ReadScalarAs<double>(plan, index, storage);
    case MDType::Boolean:
        return ReadScalarAs<bool>(plan, index, storage);
    case MDType::String:
        return ReadScalarAs<std::string>(plan, index, storage);
    case MDType::Assignment:
    case MDType::Line:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return false;
}

template <class T>
bool DataReader::ReadScalarAs(const DataPlan& plan, std::size_t index, void* storage)
{
    Reading<T> reading = values_.Read<T>(plan.items[index], words_.GetWord());
    const bool isShifted = !reading.errors.IsEmpty() && Report(plan.items[index], std::move(reading.errors));
    if (reading.hasVariables)
        notes_.AddVariable(static_cast<int>(index), 1, words_.GetWord().text);
    if (!reading.value)
        return isShifted || (CountNumbersInWord() > 1 && !FitsAfter(plan, index));
    if constexpr (std::is_same_v<T, int> || std::is_same_v<T, double>)
        CheckNumber(plan, index, static_cast<double>(*reading.value));
    *static_cast<Optional<T>*>(storage) = std::move(*reading.value);
    return false;
}

/// Against the limits of the item, and the values before it in its column.
void DataReader::CheckNumber(const DataPlan& plan, std::size_t index, double value)
{
    const DataPlan& item = plan.items[index];
    if (!IsWithinLimits(item, value))
        return ReportInRow(values_.Beyond(item, value));
    if (item.constraint == DataPlan::Constraint::None)
        return;
    if (auto disorder = order_.Check(plan, index, value, words_.GetRange())) {
        if (HasWrongSize(plan)) { // so that the rows begin elsewhere
            reporter_.CountError();
            return order_.SetOutOfStep();
        }
        ReportInRow(std::move(disorder->misfit));
        if (disorder->mayBeNewTable)
            order_.SetOutOfStep();
    }
}

/// Whether a list in the record has a size of which it was reported that it is wrong.
bool DataReader::HasWrongSize(const DataPlan& record) const
{
    return std::any_of(record.items.begin(), record.items.end(), [this](const DataPlan& item) {
        return item.type == MDType::List && ListMD(item).GetSize()
            && wrongSizes_.HasReported(*ListMD(item).GetSize());
    });
}

DataReader::Ended DataReader::EndRecord(const DataPlan& plan)
{
    if (plan.termination == Termination::NONE || plan.items.empty())
        return Ended::Complete;
    if (plan.items.back().type == MDType::Line)
        return Ended::Complete; // with its line
    if (BeginsNextRecord(plan, plan.items.size())) {
        Unclosed(Open::Record, SlashAfterLast(true, false));
        return Ended::Complete;
    }
    Got got = words_.Next();
    if (got == Got::Default)
        got = PassDefaults(plan);
    switch (got) {
    case Got::Slash:
        return Ended::Complete;
    case Got::Stop:
        return UnclosedRecord(plan, plan.items.size());
    case Got::Value:
        if (IsKeywordInRecord())
            return UnclosedRecord(plan, plan.items.size());
        break;
    case Got::Default:
        break;
    }
    reporter_.Report(words_.GetRange(), Code::TooManyValues,
        fmt::format("{}: too many values (expected at most {})", keyword_.text, plan.items.size()),
        "end the record with a slash before this value");
    return SkipToSlash();
}

/// What comes after the defaults beyond the last item, which do no harm. The first of them was taken.
DataReader::Got DataReader::PassDefaults(const DataPlan& plan)
{
    const TextRange first = words_.GetRange();
    Got got = Got::Default;
    while (got == Got::Default)
        got = words_.Next();
    if (got == Got::Slash && reporter_.IsStrict())
        reporter_.Report(first, Code::ExtraDefault,
            fmt::format("{}: a default after the last item (expected at most {} values)", keyword_.text,
                plan.items.size()),
            "remove the default");
    return got;
}

/// One message for all items that are missing.
void DataReader::CheckMissing(const DataPlan& plan, std::size_t first, const TextRange& range)
{
    std::string missing;
    for (std::size_t i = first; i < plan.items.size(); ++i) {
        const DataPlan& item = plan.items[i];
        if (item.IsScalar() && !item.MayBeMissing() && item.isValid)
            missing += (missing.empty() ? "" : ", ") + NameOf(item);
    }
    if (!missing.empty() && !order_.IsOutOfStep())
        reporter_.Report(range, Code::TooFewValues,
            fmt::format("{}: too few values (missing: {})", keyword_.text, missing),
            "only items with a default can be omitted");
}

} // namespace Veld::Quor::Core::Decks

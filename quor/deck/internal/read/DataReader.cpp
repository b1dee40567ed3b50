#include "quor/deck/internal/read/DataReader.h"

#include "quor/deck/internal/read/VisitData.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

bool StartsWithLine(const DataPlan& plan)
{
    return !plan.items.empty() && plan.items.front().type == MDType::Line;
}

} // namespace

DataReader::DataReader(const Target& target, DeckText& text, FindingReporter& reporter,
    Decks::SizeOfName sizeOfName, VariableTexts variables, bool keepsValueRanges)
    : target_(target)
    , text_(text)
    , reporter_(reporter)
    , sizeOfName_(std::move(sizeOfName))
    , variables_(std::move(variables))
    , keepsValueRanges_(keepsValueRanges)
{
    text_.SetCommentSink([this](const TextRange& range, CommentKind kind) { NoteComment(range, kind); });
}

void DataReader::Read(const DataPlan& plan, const Token& keyword, IKeywordData& data, bool mayBeShort,
    std::vector<RecordStart>& starts)
{
    keyword_ = keyword;
    SetLast(keyword.range);
    mayBeShort_ = mayBeShort;
    repeats_ = 0;
    records_.clear();
    notes_ = {};
    position_ = {};
    unknownVariables_ = 0;
    isShapeReported_ = false;
    if (plan.termination == Termination::EOL && !StartsWithLine(plan) && text_.IsAtLineEnd())
        text_.PeekData(); // the line is the next one
    const bool endsByItself = plan.type != MDType::Raw && plan.termination == Termination::NONE;
    if (ReadRoot(plan, data, starts) == Ended::Complete && endsByItself && Peek() == Got::Slash)
        text_.NextData(); // a slash after data that end by themselves does no harm; it isn't part of them
    if (repeats_ > 0)
        reporter_.Report(value_.range, Code::TooManyValues,
            fmt::format("{}: the repeat goes on beyond the end of the data by {}", keyword_.text, repeats_));
    FinishNotes(data);
}

DataReader::Ended DataReader::ReadRoot(
    const DataPlan& plan, IKeywordData& data, std::vector<RecordStart>& starts)
{
    if (plan.type == MDType::List)
        return ReadList(plan, static_cast<IKeywordListData&>(data), &starts);
    return ReadContainer(plan, data);
}

DataReader::Ended DataReader::ReadContainer(const DataPlan& plan, IKeywordData& data)
{
    return VisitData(data,
        Overloaded{[&](IKeywordRecordData& record) { return ReadRecord(plan, record); },
            [&](IKeywordListData& list) { return ReadList(plan, list, nullptr); },
            [&](IKeywordMapData& map) { return ReadMap(plan, map); },
            [&](IKeywordRawData& raw) {
                ReadRaw(plan, raw);
                return Ended::Complete;
            }});
}

// Words

DataReader::Got DataReader::Next()
{
    if (repeats_ > 0) {
        --repeats_;
        ++taken_;
        return isDefault_ ? Got::Default : Got::Value;
    }
    if (isOneLine_ && text_.IsAtLineEnd())
        return Got::Slash;
    value_ = text_.NextData();
    isDefault_ = isMisfitReported_ = false;
    switch (value_.kind) {
    case Token::Kind::Keyword:
    case Token::Kind::End:
        return Got::Stop;
    case Token::Kind::Slash:
    case Token::Kind::Quoted:
    case Token::Kind::Word:
        break;
    }
    ++taken_;
    if (value_.kind == Token::Kind::Slash)
        lastValue_ = last_;
    SetLast(value_.range);
    if (value_.kind != Token::Kind::Word)
        return value_.kind == Token::Kind::Slash ? Got::Slash : Got::Value;
    Repeat repeat = FindRepeat(value_.text);
    if (repeat.length == 0)
        return Got::Value;
    if (repeat.count == 0 || repeat.count > longestRepeat_) {
        reporter_.Report(value_.range, Code::BadRepeat,
            fmt::format("{}: the repeat count of {} is not from 1 to {}", keyword_.text, Shorten(value_.text),
                longestRepeat_));
        repeat.count = 1;
    }
    repeats_ = repeat.count - 1;
    value_.text.remove_prefix(repeat.length);
    isDefault_ = value_.text.empty();
    if (isDefault_ && !text_.GetRest().empty() && IsQuote(text_.GetRest().front())) {
        const std::size_t begin = value_.range.offset;
        value_ = text_.NextData();
        value_.range.length += value_.range.offset - begin;
        value_.range.offset = begin;
        SetLast(value_.range);
        isDefault_ = false;
    }
    return isDefault_ ? Got::Default : Got::Value;
}

DataReader::Got DataReader::Peek()
{
    if (repeats_ > 0)
        return isDefault_ ? Got::Default : Got::Value;
    if (isOneLine_ && text_.IsAtLineEnd())
        return Got::Slash;
    switch (text_.PeekData().kind) {
    case Token::Kind::Keyword:
    case Token::Kind::End:
        return Got::Stop;
    case Token::Kind::Slash:
        return Got::Slash;
    case Token::Kind::Quoted:
    case Token::Kind::Word:
        break;
    }
    return Got::Value;
}

void DataReader::SetLast(const TextRange& range)
{
    last_ = range;
    lastTurns_ = text_.GetTurns();
}

// Records

DataReader::Ended DataReader::ReadRecord(const DataPlan& plan, IKeywordRecordData& record)
{
    const bool wasOneLine = std::exchange(isOneLine_, plan.termination == Termination::EOL);
    records_.emplace_back(&plan, &record);
    Ended ended = Ended::Complete;
    std::size_t i = 0;
    while (i < plan.items.size() && ended == Ended::Complete)
        ended = ReadItem(plan, i++, record);
    records_.pop_back();
    if (ended == Ended::BySlash)
        PassMissing(plan, i);
    if (ended == Ended::Complete)
        ended = EndRecord(plan);
    else if (ended == Ended::BySlash && plan.termination != Termination::NONE)
        ended = Ended::Complete;
    if (plan.termination == Termination::SLASH)
        ++position_.ends;
    isOneLine_ = wasOneLine;
    return ended;
}

/// `BySlash`: the slash came in place of the item.
DataReader::Ended DataReader::ReadItem(const DataPlan& plan, std::size_t index, IKeywordRecordData& record)
{
    const DataPlan& item = plan.items[index];
    void* const storage = record.GetData(static_cast<int>(index));
    if (!item.IsScalar()) {
        path_.push_back(static_cast<int>(index));
        const Ended ended = ReadContainer(item, *static_cast<IKeywordData*>(storage));
        path_.pop_back();
        return ended;
    }
    if (item.type == MDType::Line) {
        const Token line = text_.NextLine(records_.size() == 1 && index == 0);
        if (line.kind == Token::Kind::Word) {
            *static_cast<Optional<std::string>*>(storage) = std::string(line.text);
            SetLast(line.range);
            ++taken_;
        }
        value_ = line;
        Pass();
        return Ended::Complete;
    }
    if (BeginsNextRecord(plan, index)) {
        Unclosed("record");
        PassMissing(item, 0);
        return Ended::BySlash;
    }
    const Got got = Next();
    if (index == 0 && element_ == &plan)
        begin_ = value_.range;
    switch (got) {
    case Got::Stop:
        return Unclosed("record");
    case Got::Slash:
        CheckMissing(plan, index, value_.range);
        PassMissing(item, 0);
        return Ended::BySlash;
    case Got::Default:
        isShifted_ = false;
        if (!item.MayBeMissing())
            ReportMisfit(item, Code::NoDefault, fmt::format("{} has no default", In(item)), "give its value");
        Pass();
        return std::exchange(isShifted_, false) ? PassOverRest() : Ended::Complete;
    case Got::Value:
        break;
    }
    if (!item.isValid)
        reporter_.Report(value_.range, Code::ItemNotValid,
            fmt::format("{} is not valid for {}", In(item), NameOf(target_)), "leave it to its default");
    else if (item.isUnsupported)
        reporter_.Report(value_.range, Code::ItemUnsupported,
            fmt::format("{} has no effect for {}", In(item), NameOf(target_)));
    isShifted_ = false;
    ReadScalar(plan, index, storage);
    if (isVariable_)
        NoteVariable(static_cast<int>(index), 1);
    Pass();
    const bool isLost = std::exchange(isShifted_, false) || (!value_.isClosed && !FitsAfter(plan, index));
    return isLost ? PassOverRest() : Ended::Complete;
}

/// What `value_` says goes to the place of the item, if it fits.
void DataReader::ReadScalar(const DataPlan& plan, std::size_t index, void* storage)
{
    const DataPlan& item = plan.items[index];
    switch (item.type) {
    case MDType::Integer:
    case MDType::Choice:
        return SetNumber<int>(plan, index, storage);
    case MDType::Real:
        return SetNumber<double>(plan, index, storage);
    case MDType::Boolean: {
        bool value = false;
        if (Convert(item, value))
            *static_cast<Optional<bool>*>(storage) = value;
        break;
    }
    case MDType::String: {
        std::string value;
        if (Convert(item, value))
            *static_cast<Optional<std::string>*>(storage) = std::move(value);
        break;
    }
    case MDType::Assignment:
    case MDType::Line:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
}

template <class T>
void DataReader::SetNumber(const DataPlan& record, std::size_t index, void* storage)
{
    T value = T();
    if (!Convert(record.items[index], value))
        return;
    if (CheckLimits(record.items[index], static_cast<double>(value)))
        CheckColumn(record, index, static_cast<double>(value));
    *static_cast<Optional<T>*>(storage) = value;
}

DataReader::Ended DataReader::EndRecord(const DataPlan& plan)
{
    if (plan.termination == Termination::NONE || plan.items.empty())
        return Ended::Complete;
    if (plan.items.back().type == MDType::Line)
        return Ended::Complete; // with its line
    if (BeginsNextRecord(plan, plan.items.size())) {
        Unclosed("record");
        return Ended::Complete;
    }
    switch (Next()) {
    case Got::Slash:
        return Ended::Complete;
    case Got::Stop:
        return Unclosed("record");
    case Got::Value:
    case Got::Default:
        break;
    }
    reporter_.Report(value_.range, Code::TooManyValues,
        fmt::format("{}: the record has {} item{}, and here is one more", keyword_.text, plan.items.size(),
            plan.items.size() == 1 ? "" : "s"),
        "end the record with a slash before it");
    return SkipToSlash();
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
    if (!missing.empty() && !(columns_ && columns_->isOutOfStep))
        reporter_.Report(range, Code::TooFewValues,
            fmt::format("{}: the record ends before {}", keyword_.text, missing),
            "only what has a default may be left out");
}

} // namespace Veld::Quor::Core::Decks

#include "tools/deck/DataReader.h"

#include "tools/deck/LineText.h"
#include "tools/deck/RecordFit.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

// What is made of a record that went wrong: where it ends, and what is wrong with it.

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

} // namespace

/// Behind one word too many.
DataReader::Ended DataReader::SkipToSlash()
{
    for (;;) {
        repeats_ = 0;
        const Got got = [this] {
            const Teller::Muted muted(teller_, true);
            return Next();
        }();
        repeats_ = 0;
        if (got == Got::Slash)
            return Ended::Complete;
        if (got == Got::Stop)
            return Unclosed("record");
    }
}

/// Of the record: what was told explains whatever else is wrong with it.
DataReader::Ended DataReader::PassOverRest()
{
    return SkipToSlash() == Ended::ByStop ? Ended::ByStop : Ended::BySlash;
}

DataReader::Ended DataReader::Unclosed(const char* what)
{
    if (!text_.MissedInclusion()) // which may have held the end
        TellUnclosed(last_, what);
    return Ended::ByStop;
}

/// A slash that stands alone on its line was meant to close the list, and has closed its last record.
DataReader::Ended DataReader::UnclosedList(const DataPlan& element)
{
    const bool isTaken = element.type == MDType::Record && element.termination == Termination::SLASH
        && last_.file == text_.GetFile() && text_.GetLineFrom(last_).starts_with('/')
        && text_.IsFirstOnLine(last_);
    if (!isTaken || text_.MissedInclusion())
        return Unclosed("list");
    TellUnclosed(lastValue_, "record");
    return Ended::ByStop;
}

void DataReader::TellUnclosed(const Spot& last, const char* what)
{
    teller_.Tell({last.file, last.offset + last.length, 0}, Code::UnclosedData,
        fmt::format("{}: the {} is not closed", keyword_.text, what), "put a slash behind its last value");
}

/// Whether the slash of the record is missing: the next line makes no sense as the rest of it, but does as
/// the next record.
bool DataReader::BeginsNextRecord(const DataPlan& plan, std::size_t index)
{
    const bool mayBegin = index > 0 && element_ == &plan && plan.termination == Termination::SLASH
        && repeats_ == 0 && !isOneLine_ && text_.IsAtLineEnd();
    if (!mayBegin)
        return false;
    const Token& next = text_.PeekData();
    if ((next.kind != Token::Kind::Word && next.kind != Token::Kind::Quoted) || next.spot.file != begin_.file)
        return false;
    const RecordWords line = FindRecordWords(text_.GetLineFrom(next.spot));
    const auto isNumber = [](char c) { return !IsLetter(c) && !IsQuote(c); };
    const bool beginsAlike =
        isNumber(text_.GetLineFrom(begin_).front()) == isNumber(text_.GetLineFrom(next.spot).front());
    return line.isEnded && beginsAlike && !Fits(plan, index, line.words) && Fits(plan, 0, line.words);
}

/// Whether what is left of the line can be the rest of the record.
bool DataReader::FitsBehind(const DataPlan& plan, std::size_t index) const
{
    const Spot behind{value_.spot.file, value_.spot.offset + value_.spot.length, 0};
    return Fits(plan, index + 1, FindRecordWords(text_.GetLineFrom(behind)).words);
}

/// The hint for a value that doesn't fit, where all behind it would if one were there before it, or if it
/// weren't there itself.
std::string DataReader::FindShift(const DataPlan& item)
{
    if (records_.empty() || text_.HasPeeked())
        return {};
    const DataPlan& record = *records_.back().first;
    const auto at = std::find_if(
        record.items.begin(), record.items.end(), [&item](const DataPlan& other) { return &other == &item; });
    RecordWords line = FindRecordWords(text_.GetLineFrom(value_.spot));
    if (at == record.items.end() || !line.isEnded || line.words.empty())
        return {};
    const auto index = static_cast<std::size_t>(at - record.items.begin());
    line.words.front().count = repeats_;
    if (Fits(record, index + 1, line.words))
        return {};
    isShifted_ = true;
    if (Fits(record, index, std::span(line.words).subspan(1)))
        return "it seems to be one too many";
    line.words.front().count = repeats_ + 1;
    for (std::size_t first = index + 1; first < record.items.size(); ++first) {
        if (Fits(record, first, line.words))
            return first == index + 1 ? "a value seems to be missing before it"
                                      : fmt::format("{} values seem to be missing before it", first - index);
    }
    isShifted_ = false;
    return {};
}

} // namespace Veld::Quor::Tools::Deck

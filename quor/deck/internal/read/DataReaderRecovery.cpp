#include "quor/deck/internal/read/DataReader.h"

#include "quor/deck/internal/read/RecordFit.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

// What is made of a record that went wrong: where it ends, and what is wrong with it.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

} // namespace

/// After one word too many.
DataReader::Ended DataReader::SkipToSlash()
{
    for (;;) {
        repeats_ = 0;
        const Got got = [this] {
            const FindingReporter::Muted muted(reporter_, true);
            return Next();
        }();
        repeats_ = 0;
        if (got == Got::Slash)
            return Ended::Complete;
        if (got == Got::Stop)
            return Unclosed("record");
    }
}

/// Of the record: what was reported explains whatever else is wrong with it.
DataReader::Ended DataReader::PassOverRest()
{
    return SkipToSlash() == Ended::ByStop ? Ended::ByStop : Ended::BySlash;
}

DataReader::Ended DataReader::Unclosed(const char* what)
{
    if (!text_.MissedInclusion()) // which may have held the end
        ReportUnclosed(last_, what);
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
    ReportUnclosed(lastValue_, "record");
    return Ended::ByStop;
}

void DataReader::ReportUnclosed(const TextRange& last, const char* what)
{
    reporter_.Report({last.file, last.offset + last.length, 0}, Code::UnclosedData,
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
    if ((next.kind != Token::Kind::Word && next.kind != Token::Kind::Quoted)
        || next.range.file != begin_.file)
        return false;
    const RecordWords line = FindRecordWords(text_.GetLineFrom(next.range));
    const auto isNumber = [](char c) { return !IsLetter(c) && !IsQuote(c); };
    const bool beginsAlike =
        isNumber(text_.GetLineFrom(begin_).front()) == isNumber(text_.GetLineFrom(next.range).front());
    return line.isEnded && beginsAlike && !Fits(plan, index, line.words) && Fits(plan, 0, line.words);
}

/// Whether what is left of the line can be the rest of the record.
bool DataReader::FitsAfter(const DataPlan& plan, std::size_t index) const
{
    const TextRange after{value_.range.file, value_.range.offset + value_.range.length, 0};
    return Fits(plan, index + 1, FindRecordWords(text_.GetLineFrom(after)).words);
}

/// The hint for a value that doesn't fit, where all after it would if one were there before it, or if it
/// weren't there itself.
std::string DataReader::FindShift(const DataPlan& item)
{
    if (records_.empty() || text_.HasPeeked())
        return {};
    const DataPlan& record = *records_.back().first;
    const auto at = std::find_if(
        record.items.begin(), record.items.end(), [&item](const DataPlan& other) { return &other == &item; });
    RecordWords line = FindRecordWords(text_.GetLineFrom(value_.range));
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

} // namespace Veld::Quor::Core::Decks

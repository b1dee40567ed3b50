#include "quor/deck/internal/read/DataReader.h"

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <utility>

// What is reported of records and lists that have no end, or a wrong size.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

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

DataReader::Ended DataReader::Unclosed(Open what)
{
    if (!text_.MissedInclusion()) // which may have held the end
        ReportUnclosed(words_.GetEnd(), what);
    return Ended::ByStop;
}

void DataReader::ReportUnclosed(const TextRange& end, Open what)
{
    const auto report = [&](std::string message, const char* hint) {
        reporter_.Report(end, Code::UnclosedData, std::move(message), hint);
    };
    switch (what) {
    case Open::Record:
        return report(fmt::format("{}: missing slash at the end of the record", keyword_.text),
            "add a slash after the last value");
    case Open::Values:
    case Open::Records:
        return report(fmt::format("{}: missing slash at the end of the list", keyword_.text),
            what == Open::Values ? "add a slash after the last value"
                                 : "add a line with a slash after the last record");
    case Open::Names:
        return report(fmt::format("{}: missing slash at the end of the list of names", keyword_.text),
            "add a slash after the last name");
    case Open::ByWord:
        return report(fmt::format("{}: missing end word of the list", keyword_.text),
            "add the word that ends the list of this keyword");
    }
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

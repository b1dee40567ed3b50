#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/deck/internal/text/NumberText.h"
#include "quor/deck/internal/text/TextLines.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <optional>
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
    const char* surplus; // without the second number
};

const SizeTexts& SizeTextsOf(const DataPlan& element)
{
    static constexpr SizeTexts values = {"{}: too few values (expected {}, found {})",
        "{}: too few values (expected at least {}, found {})",
        "{}: too many values (expected at most {}, found {})", "{}: too many values (expected {})"};
    static constexpr SizeTexts records = {"{}: too few records (expected {}, found {})",
        "{}: too few records (expected at least {}, found {})",
        "{}: too many records (expected at most {}, found {})", "{}: too many records (expected {})"};
    static constexpr SizeTexts rows = {"{}: too few rows (expected {}, found {})",
        "{}: too few rows (expected at least {}, found {})",
        "{}: too many rows (expected at most {}, found {})", "{}: too many rows (expected {})"};
    static constexpr SizeTexts tables = {"{}: too few tables (expected {}, found {})",
        "{}: too few tables (expected at least {}, found {})",
        "{}: too many tables (expected at most {}, found {})", "{}: too many tables (expected {})"};
    if (element.IsScalar())
        return values;
    if (element.type != MDType::Record)
        return tables;
    return element.termination == Termination::NONE ? rows : records;
}

} // namespace

DataReader::Ended DataReader::Unclosed(Open what, std::vector<TextEdit> fix)
{
    if (!text_.MissedInclusion()) // which may have held the end
        ReportUnclosed(words_.GetEnd(), what, std::move(fix));
    return Ended::ByStop;
}

/// The deck continues with a keyword; the items of the record from `missing` on were not read. The list of
/// the record has no end either.
DataReader::Ended DataReader::UnclosedRecord(const DataPlan& plan, std::size_t missing)
{
    const bool isInList = root_->type == MDType::List && &plan == &root_->items.front();
    const bool isSure =
        (isInList || &plan == root_) && plan.termination == Termination::SLASH && plan.MayEndAt(missing);
    const bool endsList = isInList && root_->termination == Termination::SLASH;
    return Unclosed(Open::Record, isSure ? SlashAfterLast(true, endsList) : std::vector<TextEdit>());
}

/// Ends the record with its last word, and the list on the next line. Empty if nothing was read of them.
std::vector<TextEdit> DataReader::SlashAfterLast(bool endsRecord, bool endsList) const
{
    const TextRange end = words_.GetEnd();
    const bool isKeyword =
        end.file == keyword_.range.file && end.offset == keyword_.range.offset + keyword_.range.length;
    if (isKeyword || end.file != text_.GetFile() || !(endsRecord || endsList))
        return {};
    std::vector<TextEdit> fix;
    if (endsRecord)
        fix.push_back({end, " /"});
    if (endsList) {
        const std::string_view rest = RestOfLine(text_.GetLineFrom(end), 0);
        const std::string line = text_.GetLineFrom(end).ends_with('\r') ? "\r\n/" : "\n/";
        if (endsRecord && rest.empty())
            fix.back().text += line;
        else
            fix.push_back({{end.file, end.offset + rest.size(), 0}, line});
    }
    return fix;
}

void DataReader::ReportUnclosed(const TextRange& end, Open what, std::vector<TextEdit> fix)
{
    const auto report = [&](std::string message, const char* hint) {
        reporter_.Report(end, Code::UnclosedData, std::move(message), hint, std::move(fix));
    };
    switch (what) {
    case Open::Record:
        return report(fmt::format("{}: missing slash at the end of the record", keyword_.text),
            "add a slash after the last value");
    case Open::Values:
        return report(fmt::format("{}: missing slash at the end of the list", keyword_.text),
            "add a slash after the last value");
    case Open::Records: // which are whole
        return reporter_.Report(end, Code::UnclosedList,
            fmt::format("{}: missing slash after the last record", keyword_.text),
            "add a line with a slash after the last record", std::move(fix));
    case Open::Names:
        return report(fmt::format("{}: missing slash at the end of the list of names", keyword_.text),
            "add a slash after the last name");
    case Open::ByWord:
        return report(fmt::format("{}: missing end word of the list", keyword_.text),
            "add the word that ends the list of this keyword");
    }
}

/// A slash that is alone on its line was meant to close the list, and has closed its last record.
DataReader::Ended DataReader::UnclosedList(const DataPlan& plan)
{
    const DataPlan& element = plan.items.front();
    const TextRange& last = words_.GetLast();
    const bool isTaken = element.type == MDType::Record && element.termination == Termination::SLASH
        && last.file == text_.GetFile() && text_.GetLineFrom(last).starts_with('/')
        && text_.IsFirstOnLine(last);
    if (!isTaken || text_.MissedInclusion()) {
        const Open open = OpenListOf(plan);
        const bool isSure = &plan == root_ && plan.termination == Termination::SLASH;
        return Unclosed(open,
            isSure ? SlashAfterLast(open == Open::Values, open == Open::Records) : std::vector<TextEdit>());
    }
    const TextRange& value = words_.GetLastBeforeSlash();
    const TextRange end{value.file, value.offset + value.length, 0};
    ReportUnclosed(end, Open::Record, {{end, " /"}});
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

/// Whether the values of an array are whole layers, and the others those above.
bool DataReader::MayEndAfter(const std::string& size, long long count) const
{
    if (count == 0)
        return false;
    if (!traits_.mayLackLayers)
        return IsUpperHalf(size, count);
    const std::optional<long long> columns = SizeOfName("NX");
    const std::optional<long long> rows = SizeOfName("NY");
    return !columns || !rows || *columns * *rows <= 0 || count % (*columns * *rows) == 0;
}

/// Whether the values are those of the matrix, and those of the fractures may be left out.
bool DataReader::IsUpperHalf(const std::string& size, long long count) const
{
    constexpr long long both = 2; // matrix and fractures
    const std::optional<long long> layers = SizeOfName("NZ");
    if (!layers || !(traits_.isOfMatrix || SizeOfName("NHALVES") == both))
        return false;
    return EvaluateSize(size, [&](const std::string& name) {
        return name == "NZ" ? std::optional(*layers / both) : SizeOfName(name);
    }) == count;
}

/// Whether a number of the deck is wrong, which was reported, so that a list with the size has so many
/// elements.
bool DataReader::IsKnownSize(const std::string& size, long long count)
{
    const bool isKnown = count > 0
        && wrongSizes_.IsKnown(size, count, [this](const std::string& name) { return SizeOfName(name); });
    if (isKnown)
        reporter_.CountError();
    return isKnown;
}

void DataReader::CheckSize(const DataPlan& plan, long long size, long long count, const TextRange& range)
{
    if (text_.MissedInclusion() || order_.IsShapeReported())
        return;
    const std::string* const least = ListMD(plan).GetMinSize();
    const std::string* const most = ListMD(plan).GetMaxSize();
    const SizeTexts& texts = SizeTextsOf(plan.items.front());
    const bool isShort = size != unknownSize && count + misfits_ < size
        && !MayEndAfter(*ListMD(plan).GetSize(), count + misfits_);
    if (isShort && IsKnownSize(*ListMD(plan).GetSize(), count))
        return;
    // A table without rows stands for the one before it.
    if (isShort && (count > 0 || plan.termination == Termination::NONE || plan.items.front().IsScalar()))
        reporter_.Report(range, Code::WrongSize,
            fmt::format(fmt::runtime(texts.tooFew), keyword_.text, size, count),
            fmt::format("the size is {}", *ListMD(plan).GetSize()));
    else if (const long long fewest = SizeOf(least);
             count > 0 && fewest != unknownSize && count + misfits_ < fewest && !IsKnownSize(*least, count))
        reporter_.Report(range, Code::WrongSize,
            fmt::format(fmt::runtime(texts.belowLeast), keyword_.text, fewest, count));
    else if (const long long greatest = SizeOf(most);
             greatest != unknownSize && count > greatest && !IsKnownSize(*most, count))
        reporter_.Report(range, Code::WrongSize,
            fmt::format(fmt::runtime(texts.aboveMost), keyword_.text, greatest, count));
}

/// Passes over numbers after the data that would be more of them: the number of tables is too small, or an
/// array has a slash between its values, which is too short then.
void DataReader::PassSurplus(const DataPlan& plan, long long count)
{
    const std::string* const text = ListMD(plan).GetSize();
    const long long size = plan.items.empty() ? unknownSize : SizeOf(text);
    const bool isWhole = plan.termination == Termination::NONE && count == size;
    const bool isShort = plan.termination == Termination::SLASH && count < size;
    const Token* const next = isWhole || isShort ? PeekForNumber(plan.items.front()) : nullptr;
    if (!next || FindLeadingReal(next->text).length == 0)
        return;
    if (isShort || wrongSizes_.IsKnown(*text))
        reporter_.CountError();
    else
        reporter_.Report(next->range, Code::WrongSize,
            fmt::format(fmt::runtime(SizeTextsOf(plan.items.front()).surplus), keyword_.text, size),
            fmt::format("the size is {}", *text));
    text_.SkipData();
}

} // namespace Veld::Quor::Core::Decks

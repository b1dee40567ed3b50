#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/deck/internal/read/values/RecordFit.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <fmt/format.h>

#include <algorithm>

// Words that don't fit: what is reported of them, and where the record continues.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

bool IsBareWord(std::string_view text)
{
    const DataWord word = FindDataWord(text);
    return word.length == text.size() && word.repeat.length == 0 && word.quotes == DataWord::Quotes::None;
}

/// Not so are arrays and output vectors, which records may name.
bool NeedsRecords(const Entry& entry)
{
    return std::all_of(entry.syntaxes.begin(), entry.syntaxes.end(), [](const IKeywordSyntax* syntax) {
        return syntax->GetDataMD() && !syntax->IsWildcard() && !syntax->GetCellPropertyInfo()
            && !syntax->GetSummaryMnemonicInfo();
    });
}

} // namespace

/// Text on the line of the keyword that can't be the beginning of its data is a remark.
void DataReader::PassRemark(const DataPlan& plan)
{
    if (text_.HasPeeked() || text_.IsAtLineEnd() || plan.type == MDType::Raw)
        return;
    const TextRange rest{keyword_.range.file, keyword_.range.offset + keyword_.range.length, 0};
    const std::string_view line = text_.GetLineFrom(rest);
    if (MayBegin(plan, line, text_.GetRest().substr(std::min(line.size() + 1, text_.GetRest().size()))))
        return;
    const Token remark = text_.TakeRestOfLine();
    notes_.AddComment(remark.range, CommentKind::AfterText);
    reporter_.Report(remark.range, Code::TextAfterKeyword,
        fmt::format("{}: the text '{}' is read as a remark", keyword_.text, Shorten(remark.text)),
        "write '--' before a remark, and data on the next line",
        {{{remark.range.file, remark.range.offset, 0}, "-- "}});
}

/// Of the last word. True if the rest of the record is shifted.
bool DataReader::Report(const DataPlan& item, WordErrors&& errors)
{
    for (Misfit& remark : errors.remarks) {
        if (!words_.GetWord().isOdd) // which was reported, and makes it longer
            ReportAt(words_.GetRange(), std::move(remark));
    }
    return errors.misfit && ReportMisfit(item, std::move(*errors.misfit));
}

/// Once for each word, however often it is repeated. True if the rest of the record is shifted: it fits some
/// items further on, or one before.
bool DataReader::ReportMisfit(const DataPlan& item, Misfit misfit)
{
    if (!words_.MayReport())
        return false;
    std::string shift = FindShift(item);
    const bool isShifted = !shift.empty();
    if (isShifted)
        misfit.hint = std::move(shift);
    ReportAt(words_.GetRange(), std::move(misfit));
    return isShifted;
}

/// Once for each word, and once for each table whose rows are out of step.
void DataReader::ReportInRow(Misfit misfit)
{
    if (words_.MayReport() && MayReportOfRow(words_.GetRange(), misfit.hint))
        ReportAt(words_.GetRange(), std::move(misfit));
}

bool DataReader::MayReportOfRow(const TextRange& range, std::string& hint)
{
    return records_.empty() || order_.MayReport(*records_.back().first, range, hint);
}

void DataReader::ReportAt(const TextRange& range, Misfit misfit)
{
    std::vector<TextEdit> fix;
    const Token& word = words_.GetWord();
    if (!misfit.instead.empty() && (word.kind == Token::Kind::Quoted || IsBareWord(misfit.instead)))
        fix.push_back({text_.RangeOf(word.text), std::move(misfit.instead)});
    reporter_.Report(range, misfit.code, std::move(misfit.message), std::move(misfit.hint), std::move(fix));
}

/// How many values the word may stand for, which is none: three in "2,2,1" and "2x2x1", any number in
/// "1O0*5".
long long DataReader::CountNumbersInWord() const
{
    if (words_.GetWord().text.find('*') != std::string_view::npos)
        return mostRepeats;
    const auto isInNumber = [](char c) { return IsDigit(c) || c == '.'; };
    long long count = 0;
    bool wasInNumber = false;
    for (const char c : words_.GetWord().text) {
        count += isInNumber(c) && !wasInNumber ? 1 : 0;
        wasInNumber = isInNumber(c);
    }
    return std::max(count, 1LL);
}

/// Of the record: what was reported explains whatever else is wrong with it.
DataReader::Ended DataReader::SkipRest()
{
    return SkipToSlash() == Ended::ByStop ? Ended::ByStop : Ended::BySlash;
}

/// Whether the slash of the record is missing: the next line makes no sense as the rest of it, but does as
/// the next record.
bool DataReader::BeginsNextRecord(const DataPlan& plan, std::size_t index)
{
    const bool mayBegin = index > 0 && order_.IsRow(plan) && plan.termination == Termination::SLASH
        && words_.GetRepeats() == 0 && !words_.IsOneLine() && text_.IsAtLineEnd();
    if (!mayBegin)
        return false;
    const Token& next = text_.PeekData();
    if ((next.kind != Token::Kind::Word && next.kind != Token::Kind::Quoted)
        || next.range.file != order_.GetRowBegin().file)
        return false;
    const std::string_view text = text_.GetLineFrom(next.range);
    const LineWords line = FindLineWords(text);
    const auto isNumber = [](char c) { return !IsLetter(c) && !IsQuote(c); };
    const bool beginsAlike =
        isNumber(text_.GetLineFrom(order_.GetRowBegin()).front()) == isNumber(text.front());
    return line.isEnded && beginsAlike && !Fits(plan, index, line.words) && Fits(plan, 0, line.words);
}

/// Whether a word is next that seems to be a keyword: one that the language doesn't have, where a list that
/// ends by itself expects a number, or one that is indented and has data.
bool DataReader::IsKeywordNext(const DataPlan& list)
{
    const DataPlan& element = list.items.front();
    const Token* const next = PeekForNumber(element);
    if (next && !IsLetter(next->text.front()))
        return false;
    if (next && list.termination == Termination::NONE && text_.IsLoneUpperWord(next->range))
        return true;
    const bool isRecordOfRoot = &list == root_ && element.type == MDType::Record;
    if (!next && !isRecordOfRoot)
        return false;
    const Token* const word = words_.PeekBare();
    const Entry* const entry = word ? text_.FindIndentedKeyword(word->range) : nullptr;
    return entry && (next || NeedsRecords(*entry));
}

/// Whether the last word, which can't be a value, is an indented keyword; then it comes again.
bool DataReader::IsKeywordInRecord()
{
    const Token& word = words_.GetWord();
    const bool isKeyword = word.kind == Token::Kind::Word && words_.GetRepeats() == 0
        && IsLetter(word.text.front()) && text_.FindIndentedKeyword(word.range);
    if (isKeyword)
        words_.GiveBack();
    return isKeyword;
}

/// Whether what is left of the line can be the rest of the record.
bool DataReader::FitsAfter(const DataPlan& plan, std::size_t index) const
{
    const TextRange& word = words_.GetRange();
    const TextRange after{word.file, word.offset + word.length, 0};
    return Fits(plan, index + 1, FindLineWords(text_.GetLineFrom(after)).words);
}

/// The hint for a value of the item that doesn't fit.
std::string DataReader::FindShift(const DataPlan& item) const
{
    if (records_.empty() || text_.HasPeeked())
        return {};
    const DataPlan& record = *records_.back().first;
    const auto at = std::find_if(
        record.items.begin(), record.items.end(), [&item](const DataPlan& other) { return &other == &item; });
    if (at == record.items.end())
        return {};
    return Decks::FindShift(record, static_cast<std::size_t>(at - record.items.begin()), words_.GetRepeats(),
        FindLineWords(text_.GetLineFrom(words_.GetRange())));
}

} // namespace Veld::Quor::Core::Decks

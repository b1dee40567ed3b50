#include "quor/deck/internal/write/KeptText.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/TextLines.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/deck/internal/write/DataLines.h"
#include "quor/deck/internal/write/PlanShape.h"
#include "quor/deck/internal/write/ValueText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

using MDType = DataPlan::MDType;
using Termination = DataPlan::Termination;

/// Whether all of it is numbers, of which the layout stays as it is.
bool IsOfNumbers(const DataPlan& plan)
{
    return plan.type == MDType::List && IsNumber(plan.items.front());
}

bool HasLines(const DataPlan& plan)
{
    return plan.type == MDType::Line || plan.type == MDType::Raw
        || std::any_of(plan.items.begin(), plan.items.end(), HasLines);
}

/// The record that is written on a line; null if there is none. `headers`: how many are before the first one.
const DataPlan* FindRowRecord(const DataPlan& plan, std::size_t& headers)
{
    if (plan.type == MDType::List)
        return FindRowRecord(plan.items.front(), headers);
    if (plan.type != MDType::Record || plan.items.empty() || IsOneLine(plan))
        return nullptr;
    const bool isHeaded = plan.termination == Termination::NONE && !plan.items.front().IsScalar();
    if (!isHeaded)
        return &plan;
    headers = plan.items.size() - 1;
    return FindRowRecord(plan.items.back(), headers);
}

std::string_view WithoutLineEnd(std::string_view line)
{
    while (line.ends_with('\n') || line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

/// The words of an assignment in one pair of quotes; empty if it needs them.
std::string Unquoted(const DataWord& word)
{
    std::string text(word.text);
    text.erase(std::remove_if(text.begin(), text.end(), IsWhite), text.end());
    const bool isAssignment = word.IsQuoted() && text.find('=') != std::string::npos && IsWord(text);
    return isAssignment ? text : std::string();
}

} // namespace

KeptText::KeptText(const DataPlan& plan, std::string_view text, std::size_t name, std::size_t remark)
    : plan_(plan)
    , text_(text)
    , name_(name)
    , remark_(remark)
    , record_(FindRowRecord(plan, headers_)) // sets both
    , hasItems_(record_ && record_->termination == Termination::SLASH && IsFlat(*record_))
{
}

std::string KeptText::Write()
{
    if (HasLines(plan_) || IsOfNumbers(plan_)) {
        const std::size_t head = remark_ == 0 ? text_.size() : remark_;
        return fmt::format("{}{}{}", text_.substr(0, head), remark_ == 0 ? "" : "-- ", text_.substr(head));
    }
    for (std::size_t begin = 0; begin < text_.size();) {
        const std::size_t end = EndOfLine(text_, begin);
        ReadLine(WithoutLineEnd(text_.substr(begin, end - begin)), begin == 0);
        begin = end;
    }
    Align();
    std::string written;
    written.reserve(text_.size());
    const char* copied = text_.data();
    for (const TextRow& row : rows_.GetAll()) {
        written.append(copied, row.source.data()); // the line end before it
        rows_.Write(row, written);
        copied = row.source.data() + row.source.size();
    }
    return written.append(copied, text_.data() + text_.size());
}

void KeptText::ReadLine(std::string_view line, bool isFirst)
{
    rows_.Begin(line);
    columns_ = LineColumns(line);
    std::size_t offset = 0;
    if (isFirst) {
        rows_.Add({line.substr(0, name_)});
        offset = name_;
    }
    const std::size_t before = value_;
    bool mayBeRow = record_ && !isFirst && headers_ == 0;
    bool isEnded = false;
    isCut_ = false;
    while (offset < line.size() && !isEnded) {
        const bool isRemark = isFirst && remark_ > 0 && offset == remark_;
        if (isRemark || IsCommentAt(line, offset)) {
            AddComment(offset, isRemark ? "-- " : "");
            break;
        }
        mayBeRow = mayBeRow && line[offset] != ',';
        isEnded = line[offset] == '/';
        if (isEnded)
            AddSlash(offset);
        else
            offset = IsSeparator(line[offset]) ? offset + 1 : ReadWord(line, offset);
    }
    if (mayBeRow)
        FindRow(before, isEnded);
    if (isEnded)
        EndRecord();
}

std::size_t KeptText::ReadWord(std::string_view line, std::size_t offset)
{
    const DataWord word = FindDataWord(line.substr(offset));
    const std::string_view spelling = line.substr(offset, word.length);
    const bool isKept = !word.IsQuoted() && !word.IsDefault();
    TextRow::Word read{isKept ? spelling : Fixed(word, spelling), columns_.At(offset), value_};
    read.isNumber = isKept ? !IsLetter(spelling[0]) && ToReal(word.text) : !word.IsQuoted();
    read.whole = read.isNumber ? CountWhole(read.text) : 0;
    read.isRepeated = word.repeat.count > 1;
    TextRow& row = rows_.GetLast();
    row.isChanged = row.isChanged || (!isKept && read.text != spelling);
    isCut_ = isCut_ || read.text.empty() || (plan_.type == MDType::Map && row.isChanged);
    if (!read.text.empty())
        rows_.Add(read);
    value_ += static_cast<std::size_t>(std::max(word.repeat.count, 1LL));
    return offset + word.length;
}

/// A default or a word in quotes as it is to be written; empty: left out.
std::string_view KeptText::Fixed(const DataWord& word, std::string_view spelling)
{
    if (std::string unquoted = plan_.type == MDType::Map ? Unquoted(word) : std::string(); !unquoted.empty())
        return rows_.Keep(std::move(unquoted));
    if (word.IsPadded() && !word.text.empty()) {
        const char quote = spelling.back();
        return rows_.Keep(
            fmt::format("{0}{1}{2}{1}", spelling.substr(0, word.repeat.length), quote, word.text));
    }
    if (!hasItems_ || headers_ > 0 || !word.IsDefault())
        return spelling;
    const std::size_t size = record_->items.size();
    const auto count = static_cast<std::size_t>(std::max(word.repeat.count, 1LL));
    if (value_ + count > size)
        return value_ >= size ? std::string_view() : rows_.Keep(MissingText(size - value_));
    const bool isBlank = word.IsQuoted() && record_->items[value_].MayBeMissing();
    return isBlank ? rows_.Keep(MissingText(count)) : spelling;
}

void KeptText::AddSlash(std::size_t offset)
{
    TextRow& row = rows_.GetLast();
    std::size_t column = columns_.At(offset);
    if (isCut_ && row.begin != row.end)
        column = rows_.GetWords(row).back().GetEnd() + 1;
    row.isChanged = row.isChanged || isCut_;
    rows_.Add({"/", column, TextRow::slash});
    AddComment(offset + 1, "");
}

/// What is left of the line; `hyphens`: to be put before it.
void KeptText::AddComment(std::size_t offset, std::string_view hyphens)
{
    TextRow& row = rows_.GetLast();
    const std::string_view text = row.source.substr(offset);
    const std::string_view comment = TrimBlanks(text);
    if (comment.empty())
        return;
    const auto begin = static_cast<std::size_t>(comment.data() - row.source.data());
    row.isChanged = row.isChanged || !hyphens.empty();
    rows_.Add({hyphens.empty() ? comment : rows_.Keep(fmt::format("{}{}", hyphens, comment)),
        columns_.At(begin), TextRow::comment});
}

void KeptText::EndRecord()
{
    if (headers_ > 0)
        --headers_;
    value_ = 0;
}

/// A row that is ended is one with other such rows, one that isn't with those of as many values. The words of
/// the latter are counted from the last one, since values may be before those of a first row.
void KeptText::FindRow(std::size_t before, bool isEnded)
{
    TextRow& row = rows_.GetLast();
    const std::size_t values = value_ - before;
    if (values == 0)
        return;
    if (record_->termination == Termination::SLASH) {
        row.isRow = before == 0 && isEnded;
        return;
    }
    constexpr std::size_t last = std::size_t(1) << 40;
    row.isRow = true;
    for (TextRow::Word& word : rows_.GetWords(row)) {
        if (word.cell < last)
            word.cell += last - value_;
    }
}

bool KeptText::AreOfOneForm(const TextRow& first, const TextRow& second)
{
    if (!first.isRow || !second.isRow)
        return false;
    const auto [least, most] =
        std::minmax(rows_.GetWords(first).front().cell, rows_.GetWords(second).front().cell);
    const std::size_t lead = IsTabular(*record_) ? record_->items.size() - 1 : 0;
    return record_->termination == Termination::SLASH || most == least || most == least + lead;
}

void KeptText::Align()
{
    const std::vector<TextRow>& rows = rows_.GetAll();
    for (std::size_t first = 1, i = 2; i <= rows.size(); ++i) { // 0: the line of the keyword
        if (i < rows.size() && AreOfOneForm(rows[first], rows[i]))
            continue;
        if (rows[first].isRow)
            rows_.Align(first, i);
        first = i;
    }
}

} // namespace Veld::Quor::Core::Decks

#include "tools/deck/DataWriter.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordNumericMD.h"
#include "tools/deck/LineText.h"
#include "tools/deck/NumberText.h"
#include "tools/deck/ValueText.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

/// Rows whose columns are aligned with one another, and numbers likewise.
constexpr std::size_t mostAlignedRows = 500;
constexpr std::size_t mostAlignedNumbers = 2000;
/// Fewer equal values are written out.
constexpr std::size_t shortestRepeat = 3;

const IKeywordListMD& ListMD(const DataPlan& plan)
{
    return static_cast<const IKeywordListMD&>(*plan.md);
}

const IKeywordNumericMD& NumericMD(const DataPlan& item)
{
    return static_cast<const IKeywordNumericMD&>(*item.md);
}

const IKeywordData& NestedIn(const IKeywordRecordData& record, std::size_t index)
{
    return *static_cast<const IKeywordData*>(record.GetData(static_cast<int>(index)));
}

/// Whether it ends with its line, and isn't a line itself.
bool IsOneLine(const DataPlan& plan)
{
    return plan.termination == Termination::EOL
        && (plan.items.empty() || plan.items.front().type != MDType::Line);
}

/// Whether a slash in place of the item would end what is in it, and not the record.
bool TakesSlash(const DataPlan& item)
{
    if (item.IsScalar())
        return false;
    if (item.termination != Termination::NONE)
        return true;
    return !item.items.empty()
        && (item.type == MDType::Record ? TakesSlash(item.items.front()) : !item.items.front().IsScalar());
}

/// A slash alone, or an empty line, would not be an element of the list.
bool NeedsWords(const DataPlan& list)
{
    return list.termination != Termination::NONE || IsOneLine(list.items.front());
}

bool IsNumber(const DataPlan& item)
{
    return item.type == MDType::Integer || item.type == MDType::Real;
}

TableRow::Cell MakeCell(const DataPlan& item, int value)
{
    if (item.type == MDType::Choice)
        return {Quote(static_cast<const IKeywordChoiceMD&>(*item.md).GetChoice(value)), false};
    return {NumberToText(value, NumericMD(item)), true};
}

TableRow::Cell MakeCell(const DataPlan& item, double value)
{
    return {NumberToText(value, NumericMD(item)), true};
}

TableRow::Cell MakeCell(const DataPlan& /*item*/, bool value)
{
    return {value ? "YES" : "NO", false};
}

TableRow::Cell MakeCell(const DataPlan& item, const std::string& value)
{
    return {item.type == MDType::Line ? value : Quote(value), false};
}

template <class T>
TableRow::Cell CellOfOptional(const DataPlan& item, const void* place)
{
    const auto& value = *static_cast<const Optional<T>*>(place);
    return value.HasValue() ? MakeCell(item, *value) : TableRow::Cell();
}

/// Whether a text that begins with no quote is read as the one word that it is.
bool IsWord(const std::string& text)
{
    return FindRepeat(text).length == 0 && text.find("--") == std::string::npos
        && std::none_of(
            text.begin(), text.end(), [](char c) { return IsSeparator(c) || IsQuote(c) || c == '/'; });
}

/// A text with a variable is a bare word where it may be, unless it is the value of a text.
std::string VariableText(const DataPlan& item, const std::string& text)
{
    return item.type != MDType::String && IsWord(text) ? text : Quote(text);
}

bool IsFlat(const DataPlan& record)
{
    return record.type == MDType::Record
        && std::all_of(record.items.begin(), record.items.end(),
            [](const DataPlan& item) { return item.IsScalar() && item.type != MDType::Line; });
}

/// Whether it holds scalars, and behind them a list of rows that may stand beside them.
bool IsTabular(const DataPlan& record)
{
    if (record.type != MDType::Record || record.termination != Termination::NONE || record.items.size() < 2)
        return false;
    const DataPlan& last = record.items.back();
    const bool isLead = std::all_of(record.items.begin(), record.items.end() - 1,
        [](const DataPlan& item) { return item.IsScalar() && item.type != MDType::Line; });
    return isLead && last.type == MDType::List && last.termination == Termination::SLASH
        && IsFlat(last.items.front()) && last.items.front().termination == Termination::NONE
        && !ListMD(last).WriteStartingOnNewLine().ValueOr(false)
        && !ListMD(last).WriteTerminationOnNewLine().ValueOr(false);
}

bool IsMapGiven(const IKeywordMapData& map)
{
    for (int i = 0; i < map.GetSize(); ++i) {
        if (map.GetValue(i))
            return true;
    }
    return false;
}

bool EqualAt(const DataPlan& item, const IKeywordListData& list, std::size_t a, std::size_t b)
{
    const bool isDefaulted = list.IsDefaulted(a);
    if (isDefaulted != list.IsDefaulted(b))
        return false;
    if (isDefaulted)
        return true;
    const void* const first = list.GetData(a);
    const void* const second = list.GetData(b);
    switch (item.type) {
    case MDType::Boolean:
        return *static_cast<const char*>(first) == *static_cast<const char*>(second);
    case MDType::Choice:
    case MDType::Integer:
        return *static_cast<const int*>(first) == *static_cast<const int*>(second);
    case MDType::Real:
        return *static_cast<const double*>(first) == *static_cast<const double*>(second);
    case MDType::String:
        return *static_cast<const std::string*>(first) == *static_cast<const std::string*>(second);
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

} // namespace

std::string DataWriter::Write(std::string_view name, const IKeywordData& data, bool mayShareLine)
{
    lines_ = DataLines(name);
    position_ = {};
    nextComment_ = nextEndWord_ = 0;
    const bool sharesLine =
        mayShareLine && plan_.type == MDType::List && !ListMD(plan_).WriteStartingOnNewLine().ValueOr(true);
    WriteComments();
    if (!sharesLine)
        lines_.Break();
    if (IsOneLine(plan_) && !IsGiven(plan_, data))
        lines_.Word("/"); // else the line of the next keyword would be taken for it
    else
        WriteContainer(plan_, data, false);
    position_ = {~std::uint64_t(0), ~std::uint64_t(0)};
    WriteComments();
    return lines_.Take();
}

/// `needsWord`: a slash alone would end what is around it.
void DataWriter::WriteContainer(const DataPlan& plan, const IKeywordData& data, bool needsWord)
{
    switch (plan.type) {
    case MDType::Record:
        WriteRecord(plan, static_cast<const IKeywordRecordData&>(data), needsWord);
        break;
    case MDType::List:
        WriteList(plan, static_cast<const IKeywordListData&>(data));
        break;
    case MDType::Map:
        WriteMap(plan, static_cast<const IKeywordMapData&>(data));
        break;
    case MDType::Raw: // its text is kept as it stands
    case MDType::Assignment:
    case MDType::Boolean:
    case MDType::Choice:
    case MDType::Integer:
    case MDType::Line:
    case MDType::None:
    case MDType::Real:
    case MDType::String:
        break;
    }
}

// Records

void DataWriter::WriteRecord(const DataPlan& plan, const IKeywordRecordData& record, bool needsWord)
{
    const std::size_t given = CountGiven(plan, record, needsWord);
    lines_.SetWrapping(plan.termination != Termination::EOL);
    std::size_t missing = 0;
    for (std::size_t i = 0; i < given; ++i) {
        const DataPlan& item = plan.items[i];
        const Cell cell = item.IsScalar() ? CellToWrite(item, record, i) : Cell();
        const bool isMissing = item.IsScalar() && item.type != MDType::Line && cell.text.empty();
        if (FindComment() || !isMissing) {
            WriteMissing(std::exchange(missing, 0));
            WriteComments();
        }
        if (isMissing)
            ++missing;
        else if (!item.IsScalar())
            WriteNested(item, NestedIn(record, i), needsWord && i == 0);
        else if (!cell.text.empty()
            || i == 0) // an empty line is one if it stands directly behind its keyword
            lines_.Word(cell.text);
        position_.slots += item.IsScalar() ? 1U : 0U;
        if (item.type == MDType::Line)
            lines_.Break();
    }
    WriteMissing(missing);
    for (std::size_t i = given; i < plan.items.size(); ++i)
        position_.slots += plan.items[i].slots;
    lines_.SetWrapping(true);
    WriteEnd(plan, false);
}

/// Below the record's own words.
void DataWriter::WriteNested(const DataPlan& item, const IKeywordData& data, bool needsWord)
{
    const std::size_t indent = lines_.GetIndent();
    lines_.SetIndent(indent + 2);
    WriteContainer(item, data, needsWord);
    lines_.SetIndent(indent);
}

void DataWriter::WriteMissing(std::size_t count)
{
    if (count > 0)
        lines_.Word(MissingText(count));
}

std::size_t DataWriter::CountGiven(
    const DataPlan& plan, const IKeywordRecordData& record, bool needsWord) const
{
    std::size_t given = plan.items.size();
    if (plan.termination == Termination::NONE)
        return given;
    while (given > 0 && !IsItemGiven(plan.items[given - 1], record, given - 1))
        --given;
    if (needsWord && !plan.items.empty())
        given = std::max<std::size_t>(given, 1);
    while (given < plan.items.size() && TakesSlash(plan.items[given]))
        ++given;
    return given;
}

bool DataWriter::IsItemGiven(const DataPlan& item, const IKeywordRecordData& record, std::size_t index) const
{
    if (item.IsScalar())
        return item.type == MDType::Line || !CellOf(item, record, index).text.empty();
    return IsGiven(item, NestedIn(record, index));
}

/// Whether a container holds any value.
bool DataWriter::IsGiven(const DataPlan& plan, const IKeywordData& data) const
{
    if (notes_ && notes_->variables && notes_->variables->GetDataVariables(data))
        return true;
    if (plan.type == MDType::List)
        return static_cast<const IKeywordListData&>(data).GetSize() > 0;
    if (plan.type == MDType::Map)
        return IsMapGiven(static_cast<const IKeywordMapData&>(data));
    if (plan.type != MDType::Record)
        return false;
    const auto& record = static_cast<const IKeywordRecordData&>(data);
    for (std::size_t i = 0; i < plan.items.size(); ++i) {
        if (IsItemGiven(plan.items[i], record, i))
            return true;
    }
    return false;
}

DataWriter::Cell DataWriter::CellToWrite(
    const DataPlan& item, const IKeywordRecordData& record, std::size_t index) const
{
    Cell cell = CellOf(item, record, index);
    if (cell.text.empty() && item.type != MDType::Line && !item.MayBeMissing())
        throw std::invalid_argument(fmt::format("{} has neither a value nor a default", NameOf(item)));
    return cell;
}

DataWriter::Cell DataWriter::CellOf(
    const DataPlan& item, const IKeywordRecordData& record, std::size_t index) const
{
    if (notes_ && notes_->variables) {
        if (const auto* const text = notes_->variables->Find(record, static_cast<int>(index)))
            return {VariableText(item, *text), IsNumber(item)};
    }
    const void* const place = record.GetData(static_cast<int>(index));
    switch (item.type) {
    case MDType::Boolean:
        return CellOfOptional<bool>(item, place);
    case MDType::Choice:
    case MDType::Integer:
        return CellOfOptional<int>(item, place);
    case MDType::Real:
        return CellOfOptional<double>(item, place);
    case MDType::Line:
    case MDType::String:
        return CellOfOptional<std::string>(item, place);
    case MDType::Assignment:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return {};
}

// Lists

void DataWriter::WriteList(const DataPlan& plan, const IKeywordListData& list)
{
    if (plan.items.empty())
        return;
    const IKeywordListMD& md = ListMD(plan);
    const DataPlan& item = plan.items.front();
    const bool isNested = &plan != &plan_;
    const bool isOfRows = !item.IsScalar();
    const std::size_t indent = lines_.GetIndent();
    if (isNested && (md.WriteStartingOnNewLine().ValueOr(isOfRows)))
        lines_.Break();
    if (item.type == MDType::Line)
        WriteLines(list);
    else if (item.IsScalar())
        WriteValues(plan, list);
    else if (IsFlat(item) && item.termination != Termination::EOL)
        WriteRows(plan, list);
    else if (IsTabular(item) && !HasCommentWithinRows(item, list))
        WriteTabular(item, list);
    else
        WriteElements(plan, list);
    WriteComments();
    lines_.SetIndent(isNested ? indent : 0);
    WriteEnd(plan, md.WriteTerminationOnNewLine().ValueOr(item.type == MDType::Line));
    lines_.SetIndent(indent);
}

void DataWriter::WriteValues(const DataPlan& plan, const IKeywordListData& list)
{
    const DataPlan& item = plan.items.front();
    const auto* const endWords = ListMD(plan).GetCustomReadTermination();
    lines_.SetWrapping(true);
    const auto size = static_cast<std::size_t>(list.GetSize());
    const bool hasVariables = notes_ && notes_->variables && notes_->variables->GetDataVariables(list);
    for (std::size_t i = 0; i < size;) {
        WriteComments();
        std::string text = ElementOf(item, list, i).text;
        if (bool ignored = false; endWords && endWords->Matches(text, ignored))
            text = Quote(text, true);
        std::size_t limit = size;
        if (const std::uint64_t next = FindNextSlot(); next > position_.slots)
            limit = static_cast<std::size_t>(std::min<std::uint64_t>(limit, i + next - position_.slots));
        std::size_t end = i + 1;
        while (end < limit
            && (hasVariables ? ElementOf(item, list, end).text == text : EqualAt(item, list, i, end)))
            ++end;
        const bool isFolded = text.empty() || end - i >= shortestRepeat;
        if (!isFolded)
            end = i + 1;
        std::string word = isFolded ? MissingText(end - i) + text : text;
        position_.slots += end - i;
        i = end;
        if (!IsNumber(item)) {
            lines_.Word(word);
            continue;
        }
        numbers_.push_back(std::move(word));
        if (numbers_.size() == mostAlignedNumbers)
            WriteNumbers();
    }
    WriteNumbers();
}

void DataWriter::WriteNumbers()
{
    lines_.Numbers(std::exchange(numbers_, {}));
}

/// An element that was left to its default has no text.
DataWriter::Cell DataWriter::ElementOf(
    const DataPlan& item, const IKeywordListData& list, std::size_t index) const
{
    if (notes_ && notes_->variables) {
        if (const auto* const text = notes_->variables->Find(list, static_cast<int>(index)))
            return {VariableText(item, *text), IsNumber(item)};
    }
    if (list.IsDefaulted(index))
        return {};
    const void* const value = list.GetData(index);
    switch (item.type) {
    case MDType::Boolean:
        return MakeCell(item, *static_cast<const char*>(value) != 0);
    case MDType::Choice:
    case MDType::Integer:
        return MakeCell(item, *static_cast<const int*>(value));
    case MDType::Real:
        return MakeCell(item, *static_cast<const double*>(value));
    case MDType::Line:
    case MDType::String:
        return MakeCell(item, *static_cast<const std::string*>(value));
    case MDType::Assignment:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return {};
}

void DataWriter::WriteLines(const IKeywordListData& list)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        WriteComments();
        lines_.Break();
        lines_.Word(*static_cast<const std::string*>(list.GetData(i)));
        lines_.Break();
        ++position_.slots;
    }
}

void DataWriter::WriteElements(const DataPlan& plan, const IKeywordListData& list)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        WriteComments();
        if (i > 0)
            lines_.Break();
        WriteContainer(
            plan.items.front(), *static_cast<const IKeywordData*>(list.GetData(i)), NeedsWords(plan));
    }
}

/// Records of nothing but scalars, below one another.
void DataWriter::WriteRows(const DataPlan& plan, const IKeywordListData& list)
{
    const DataPlan& record = plan.items.front();
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& data = *static_cast<const IKeywordRecordData*>(list.GetData(i));
        TableRow row;
        TakeRowComments(row);
        if (CountGiven(record, data, NeedsWords(plan)) == 0)
            TakeCommentsWithin(record, row);
        if (HasCommentWithin(record)) {
            FinishRows();
            for (const auto& [comment, isIndented] : row.above)
                lines_.Comment(comment, isIndented);
            lines_.Break();
            WriteRecord(record, data, NeedsWords(plan));
            lines_.Break();
            continue;
        }
        FillRow(record, data, NeedsWords(plan), row);
        rows_.push_back(std::move(row));
        if (rows_.size() == mostAlignedRows)
            FinishRows();
    }
    FinishRows();
}

/// Records of scalars and rows, as one table.
void DataWriter::WriteTabular(const DataPlan& record, const IKeywordListData& list)
{
    const DataPlan& rows = record.items.back();
    const std::size_t lead = record.items.size() - 1;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& data = *static_cast<const IKeywordRecordData*>(list.GetData(i));
        const auto& inner = static_cast<const IKeywordListData&>(NestedIn(data, lead));
        TableRow row;
        TakeRowComments(row);
        for (std::size_t item = 0; item < lead; ++item)
            row.cells.push_back(CellToWrite(record.items[item], data, item));
        position_.slots += lead;
        for (std::size_t j = 0; j < static_cast<std::size_t>(inner.GetSize()); ++j) {
            if (j > 0) {
                TakeRowComments(row);
                row.cells.assign(lead, Cell{{}, false, true});
            }
            const auto& values = *static_cast<const IKeywordRecordData*>(inner.GetData(j));
            FillRow(rows.items.front(), values, false, row);
            if (j + 1 < static_cast<std::size_t>(inner.GetSize()))
                rows_.push_back(std::exchange(row, {}));
        }
        row.isEnded = true;
        ++position_.ends;
        rows_.push_back(std::move(row));
        if (rows_.size() >= mostAlignedRows)
            FinishRows();
    }
    FinishRows();
}

/// The comments before the row, and the one behind the row before.
void DataWriter::TakeRowComments(TableRow& row)
{
    while (const DataComment* const comment = FindComment()) {
        std::string text = TextOf(*comment);
        if (comment->kind == CommentKind::OwnLine)
            row.above.emplace_back(std::move(text), IsIndented(*comment));
        else if (rows_.empty())
            lines_.Behind(text);
        else
            rows_.back().behind = std::move(text);
        ++nextComment_;
    }
}

/// Comments in a record of which no word is left stand above it.
void DataWriter::TakeCommentsWithin(const DataPlan& record, TableRow& row)
{
    const DataPosition begin = position_;
    position_.slots += record.slots;
    for (; const DataComment* const comment = FindComment(); ++nextComment_)
        row.above.emplace_back(TextOf(*comment), IsIndented(*comment));
    position_ = begin;
}

void DataWriter::FillRow(
    const DataPlan& record, const IKeywordRecordData& data, bool needsWord, TableRow& row)
{
    const std::size_t given = CountGiven(record, data, needsWord);
    for (std::size_t i = 0; i < given; ++i)
        row.cells.push_back(CellToWrite(record.items[i], data, i));
    row.isEnded = record.termination == Termination::SLASH;
    position_.slots += record.slots;
    position_.ends += row.isEnded ? 1U : 0U;
}

void DataWriter::FinishRows()
{
    WriteTable(rows_, lines_);
    rows_.clear();
}

// Maps

void DataWriter::WriteMap(const DataPlan& plan, const IKeywordMapData& map)
{
    const bool isOneLine = plan.termination == Termination::EOL;
    lines_.SetWrapping(!isOneLine);
    const DataVariables* const variables = notes_ ? notes_->variables.get() : nullptr;
    for (int i = 0; i < map.GetSize(); ++i) {
        const auto value = map.GetValue(i);
        const std::string& key = map.GetItemMD(i)->GetKeys().front();
        if (value && !(variables && variables->Find(map, key)))
            lines_.Word(*value == 1 ? key : fmt::format("{}={}", key, *value));
    }
    if (const auto* const keyed = variables
            ? dynamic_cast<const IKeywordMapDataVariables*>(variables->GetDataVariables(map))
            : nullptr) {
        for (const std::string& key : keyed->GetKeys()) {
            const std::string& text = keyed->GetVariablesString(key).GetString();
            lines_.Word(
                IsWord(text) ? fmt::format("{}={}", key, text) : fmt::format("{}= {}", key, Quote(text)));
        }
    }
    lines_.SetWrapping(true);
    WriteEnd(plan, false);
}

// Ends and comments

void DataWriter::WriteEnd(const DataPlan& plan, bool isOnNewLine)
{
    WriteComments();
    switch (plan.termination) {
    case Termination::NONE:
        return;
    case Termination::EOL:
        lines_.Break();
        return;
    case Termination::SLASH:
    case Termination::CUSTOMIZED:
        break;
    }
    if (isOnNewLine)
        lines_.Break();
    const bool hasWord =
        plan.termination == Termination::CUSTOMIZED && notes_ && nextEndWord_ < notes_->endWords.size();
    const std::string word = hasWord ? notes_->endWords[nextEndWord_++] : "/";
    if (word != "/" && lines_.GetIndent() == 0)
        lines_.SetIndent(2); // at the start of a line it may be a keyword
    lines_.Word(word);
    ++position_.ends;
}

const DataComment* DataWriter::FindComment() const
{
    const bool isHere = notes_ && nextComment_ < notes_->comments.size()
        && notes_->comments[nextComment_].position.IsUpTo(position_);
    return isHere ? &notes_->comments[nextComment_] : nullptr;
}

/// The slots before the next comment.
std::uint64_t DataWriter::FindNextSlot() const
{
    const bool isThere = notes_ && nextComment_ < notes_->comments.size();
    return isThere ? notes_->comments[nextComment_].position.slots : 0;
}

/// The same for rows as `WriteTabular` writes them.
bool DataWriter::HasCommentWithinRows(const DataPlan& record, const IKeywordListData& list) const
{
    DataPosition position = position_;
    std::size_t next = nextComment_;
    const auto countUpTo = [&](const DataPosition& place) {
        const std::size_t before = next;
        while (notes_ && next < notes_->comments.size() && notes_->comments[next].position.IsUpTo(place))
            ++next;
        return next - before;
    };
    const std::size_t lead = record.items.size() - 1;
    for (std::size_t i = 0; notes_ && i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& data = *static_cast<const IKeywordRecordData*>(list.GetData(i));
        const auto rows = static_cast<const IKeywordListData&>(NestedIn(data, lead)).GetSize();
        const std::size_t slots = record.items.back().items.front().slots;
        countUpTo(position);
        position.slots += lead;
        for (std::int64_t j = 0; j < rows; ++j) {
            position.slots += slots;
            if (countUpTo({position.slots - 1, position.ends}) > 0)
                return true;
            if (j + 1 < rows)
                countUpTo(position);
        }
        if (countUpTo(position) > 0)
            return true;
        ++position.ends;
    }
    return false;
}

/// Whether a comment stands between the first and the last word of the record that comes next.
bool DataWriter::HasCommentWithin(const DataPlan& record) const
{
    if (!notes_ || nextComment_ == notes_->comments.size())
        return false;
    const DataPosition& next = notes_->comments[nextComment_].position;
    const std::uint64_t last =
        position_.slots + record.slots - (record.termination == Termination::SLASH ? 0 : 1);
    return next.slots <= last && next.ends <= position_.ends;
}

void DataWriter::WriteComments()
{
    while (const DataComment* const comment = FindComment()) {
        WriteNumbers();
        if (comment->kind == CommentKind::OwnLine)
            lines_.Comment(TextOf(*comment), IsIndented(*comment));
        else
            lines_.Behind(TextOf(*comment));
        ++nextComment_;
    }
}

std::string DataWriter::TextOf(const DataComment& comment) const
{
    return std::string(files_.GetText(comment.spot));
}

bool DataWriter::IsIndented(const DataComment& comment) const
{
    return files_.LineOf(comment.spot).second != comment.spot.offset;
}

} // namespace Veld::Quor::Tools::Deck

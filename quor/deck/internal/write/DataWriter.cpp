#include "quor/deck/internal/write/DataWriter.h"

#include "quor/deck/internal/read/data/VisitData.h"
#include "quor/deck/internal/write/PlanShape.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

bool IsMapGiven(const IKeywordMapData& map)
{
    for (int i = 0; i < map.GetSize(); ++i) {
        if (map.GetValue(i))
            return true;
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
    VisitData(data,
        Overloaded{[&](const IKeywordRecordData& record) { WriteRecord(plan, record, needsWord); },
            [&](const IKeywordListData& list) { WriteList(plan, list); },
            [&](const IKeywordMapData& map) { WriteMap(plan, map); },
            [](const IKeywordRawData& /*raw*/) {}}); // its text is kept as it is
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
        else if (!cell.text.empty() || i == 0) // an empty line is one if it is directly after its keyword
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
    if (!item.IsScalar())
        return IsGiven(item, NestedIn(record, index));
    return item.type == MDType::Line || FindVariable(record, index)
        || Decks::IsGiven(ItemValue(*item.md, record.GetData(static_cast<int>(index))));
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

/// An item that is not given has no text.
DataWriter::Cell DataWriter::CellToWrite(
    const DataPlan& item, const IKeywordRecordData& record, std::size_t index) const
{
    const std::string* const variable = FindVariable(record, index);
    const ScalarValue value = ItemValue(*item.md, record.GetData(static_cast<int>(index)));
    Cell cell{variable ? VariableText(item, *variable) : WordOf(*item.md, value), IsNumber(item)};
    if (cell.text.empty() && item.type != MDType::Line && !item.MayBeMissing())
        throw std::invalid_argument(fmt::format("{}: missing value; the item has no default", NameOf(item)));
    return cell;
}

const std::string* DataWriter::FindVariable(const IKeywordData& node, std::size_t index) const
{
    return notes_ && notes_->variables ? notes_->variables->Find(node, static_cast<int>(index)) : nullptr;
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

} // namespace Veld::Quor::Core::Decks

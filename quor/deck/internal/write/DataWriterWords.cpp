#include "quor/deck/internal/write/DataWriter.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/write/PlanShape.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/IKeywordAssignmentMD.h"

#include <fmt/format.h>

// Values that keep their spelling, and maps.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

/// The next word of the text, if it is that of the value. Without a text: it isn't, or there is no value.
DataWriter::Cell DataWriter::SpeltCell(
    const DataPlan& item, const ScalarValue& value, const std::string* variable)
{
    Cell cell;
    cell.isNumber = IsNumber(item);
    if (item.type == DataPlan::MDType::Line)
        words_.Lose();
    if (!words_.IsThere())
        return cell;
    const bool isText = item.type == DataPlan::MDType::String && !item.MayBeMissing();
    const bool isGiven = variable || Decks::IsGiven(value);
    const SourceWord* const word = isGiven ? words_.TakeValue(isText) : words_.TakeDefault();
    if (!word)
        return cell;
    cell.column = ColumnOf(*word);
    if (!isGiven || word->word.IsPadded())
        return cell;
    if (variable ? word->word.text == *variable : Spells(item, word->word, value))
        cell.text = word->spelling;
    return cell;
}

/// Of a word on the line of the row's first one, if a comment is above the row.
std::size_t DataWriter::ColumnOf(const SourceWord& word)
{
    if (!isBelowComment_ || !word.isFirst)
        return TableRow::unknown;
    const std::size_t line = words_.LineOf(word.offset);
    if (rowLine_ == TableRow::unknown)
        rowLine_ = line;
    return line == rowLine_ ? words_.ColumnOf(word.offset) : TableRow::unknown;
}

/// An element that was left to its default has no text.
std::string DataWriter::ElementToWrite(const DataPlan& item, const IKeywordListData& list, std::size_t index)
{
    if (!words_.IsThere())
        return ElementOf(item, list, index).text;
    const std::string* const variable = FindVariable(list, index);
    const ScalarValue value =
        list.IsDefaulted(index) ? ScalarValue() : ElementValue(*item.md, list.GetData(index));
    std::string text = SpeltCell(item, value, variable).text;
    return text.empty() ? ElementOf(item, list, index).text : text;
}

void DataWriter::WriteMap(const DataPlan& plan, const IKeywordMapData& map)
{
    const bool isOneLine = plan.termination == DataPlan::Termination::EOL;
    lines_.SetWrapping(!isOneLine);
    if (words_.IsThere()) {
        for (const std::string& name : words_.TakeNames(isOneLine))
            lines_.Word(name);
    } else {
        WriteNames(map);
    }
    lines_.SetWrapping(true);
    WriteEnd(plan, false);
}

void DataWriter::WriteNames(const IKeywordMapData& map)
{
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
}

} // namespace Veld::Quor::Core::Decks

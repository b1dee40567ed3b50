#include "quor/deck/internal/edit/WritableValues.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/deck/internal/write/ValueText.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/variables/VariablesString.h"

#include <fmt/format.h>

#include <cmath>
#include <stdexcept>
#include <variant>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// A line is read without the blanks around it, and ends where another text would begin.
void CheckLine(const std::string& line)
{
    const std::string shown = Shorten(line);
    if (line.find_first_of("\r\n") != std::string::npos)
        throw std::invalid_argument(
            fmt::format("can't write the line '{}': it contains a line break", shown));
    if (IsEmpty(line))
        throw std::invalid_argument(
            fmt::format("can't write the line '{}': a blank line or a comment is not read", shown));
    if (TrimBlanks(line) != line)
        throw std::invalid_argument(
            fmt::format("can't write the line '{}': the blanks around it are not read", shown));
    if (line[0] == '/')
        throw std::invalid_argument(
            fmt::format("can't write the line '{}': a slash at its start may end the data", shown));
}

void CheckReadBack(const std::string& text, const std::string& word, bool mayBeMissing)
{
    const std::string shown = Shorten(text);
    if (!VariablesString(text).GetVariables().empty())
        throw std::invalid_argument(
            fmt::format("can't write the text '{}': it is read as a variable", shown));
    if (text.empty() && !mayBeMissing)
        return;
    const DataWord read = FindDataWord(word);
    if (read.IsDefault())
        throw std::invalid_argument(
            fmt::format("can't write the text '{}': a blank text is read as the default", shown));
    if (read.text != text || read.length != word.size())
        throw std::invalid_argument(
            fmt::format("can't write the text '{}': the blanks around it are not read", shown));
}

void CheckNumber(const ScalarValue& value)
{
    const auto* const real = std::get_if<double>(&value);
    const auto* const integer = std::get_if<int>(&value);
    if (real && !CanBeWritten(*real))
        throw std::invalid_argument(fmt::format("a deck can't hold the number {}", *real));
    if (integer && !CanBeWritten(*integer))
        throw std::invalid_argument(fmt::format("a deck can't hold the number {}", *integer));
}

} // namespace

bool CanBeWritten(int value)
{
    return Service::Optional<int>(value).HasValue();
}

bool CanBeWritten(double value)
{
    return std::isfinite(value) && Service::Optional<double>(value).HasValue();
}

std::string MakeWord(const IKeywordDataMD& md, const ScalarValue& value, bool mayBeMissing)
{
    CheckNumber(value);
    if (md.GetType() == MDType::Line)
        CheckLine(ToText(md, value));
    std::string word = WordOf(md, value);
    if (md.GetType() == MDType::String || md.GetType() == MDType::Choice)
        CheckReadBack(ToText(md, value), word, mayBeMissing);
    return word;
}

void CheckValues(const DataPlan& plan, const IKeywordData& data)
{
    const bool isList = plan.type == MDType::List;
    for (std::size_t i = 0; i < CountChildren(data); ++i) {
        const DataPlan& item = plan.items[isList ? 0 : i];
        if (!item.IsScalar()) {
            CheckValues(item, ChildOf(data, i));
            continue;
        }
        if (isList && IsUnknown(static_cast<const IKeywordListData&>(data), i))
            throw std::invalid_argument(fmt::format("element index {} has no value", i));
        const ScalarValue value = ScalarSlot{item.md, &data, i}.GetValue();
        if (IsGiven(value))
            MakeWord(*item.md, value, isList ? ListMD(plan).IsItemDefaultable() : item.MayBeMissing());
    }
}

} // namespace Veld::Quor::Core::Decks

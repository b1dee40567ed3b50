#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/deck/internal/read/values/WordHints.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRawMD.h"

#include <fmt/format.h>

#include <limits>

// Maps and raw text.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using Termination = DataPlan::Termination;

} // namespace

DataReader::Ended DataReader::ReadMap(const DataPlan& plan, IKeywordMapData& map)
{
    const bool wasOneLine = words_.SetOneLine(plan.termination == Termination::EOL);
    Ended ended = Ended::Complete;
    for (bool mayBeSwitch = true;;) {
        const Got got = words_.Next();
        const long long count = words_.TakeRepeats();
        mayBeSwitch = mayBeSwitch && TakeSwitch(got, count);
        if (mayBeSwitch)
            continue;
        if (count > 1)
            reporter_.Report(words_.GetRange(), Code::BadRepeat,
                fmt::format("{}: a name can't have a repeat count", keyword_.text));
        if (got == Got::Value)
            ReadAssignment(map);
        else if (got == Got::Stop && plan.termination != Termination::NONE)
            ended = Unclosed(Open::Names);
        if (got == Got::Stop || got == Got::Slash)
            break;
    }
    if (plan.termination == Termination::SLASH)
        notes_.PassEnd();
    words_.SetOneLine(wasOneLine);
    return ended;
}

/// The older form of a map is a list of whole numbers, each for what its position says. False if the last
/// word is none of them.
bool DataReader::TakeSwitch(Got got, long long count)
{
    const bool isFirst = !notes_.HasSwitches();
    const Token& word = words_.GetWord();
    const bool isDefault = got == Got::Default && !isFirst;
    const auto value =
        got == Got::Value && word.kind == Token::Kind::Word ? ToNumber<int>(word.text) : std::optional<int>();
    if (!value && !isDefault)
        return false;
    notes_.AddSwitches(value.value_or(0), count);
    if (isFirst)
        reporter_.Report(word.range, Code::OldForm,
            fmt::format("{}: numbers in place of names", keyword_.text), "write the names of what is wanted");
    return true;
}

/// `NAME`, which counts as 1, or `NAME=value`, blanks around the sign allowed.
void DataReader::ReadAssignment(IKeywordMapData& map)
{
    const TextRange range = words_.GetRange();
    const std::string_view word = words_.GetWord().text;
    const std::string name(TrimBlanks(word.substr(0, word.find('='))));
    const bool isQuoted = words_.GetWord().kind == Token::Kind::Quoted && name.size() < word.size();
    const std::optional<std::string_view> number = ReadAssigned();
    const std::optional<int> value = number ? ConvertAssigned(name, *number, range) : 1;
    if (!value)
        return;
    if (isQuoted && reporter_.IsStrict())
        reporter_.Report(range, Code::QuotedAssignment,
            fmt::format("{}, {}: name and value are in one pair of quotes", keyword_.text, Shorten(name)),
            "remove the quotes", {{range, fmt::format("{}={}", name, *value)}});
    const auto& mapMD = static_cast<const IKeywordMapMD&>(*map.GetMD());
    if (!map.SetValue(name, *value)) {
        reporter_.Report(range, Code::UnknownName,
            name.empty() ? fmt::format("{}: missing name before '='", keyword_.text)
                         : fmt::format("{}: unknown name '{}'", keyword_.text, Shorten(name)),
            HintOfKey(mapMD, name));
        return;
    }
    if (const IKeywordAssignmentMD* md = FindAssignment(mapMD, name))
        CheckAssignment(*md, name, *value, range);
}

/// What is after the sign in the word or after it; empty if there is no sign.
std::optional<std::string_view> DataReader::ReadAssigned()
{
    std::string_view word = words_.GetWord().text;
    std::size_t sign = word.find('=');
    const auto isValueNext = [this] { return words_.Peek() == Got::Value; };
    if (sign == std::string_view::npos) {
        if (!isValueNext() || !text_.PeekData().text.starts_with('='))
            return std::nullopt;
        word = text_.NextData().text;
        sign = 0;
    }
    const std::string_view number = TrimBlanks(word.substr(sign + 1));
    return number.empty() && isValueNext() ? text_.NextData().text : number;
}

/// Empty, and reported, if it is no whole number.
std::optional<int> DataReader::ConvertAssigned(
    const std::string& name, std::string_view number, const TextRange& range)
{
    std::optional<int> value = ToNumber<int>(number);
    if (value)
        return value;
    if (VariablesString::ContainsVariables(std::string(number))) {
        const VariablesString text((std::string(number)));
        notes_.AddVariable(name, text.GetString());
        const auto replaced = variables_.Replace(text, range);
        if (!replaced)
            return std::nullopt;
        value = ToNumber<int>(*replaced);
    }
    if (!value)
        reporter_.Report(range, Code::WrongType,
            number.empty() ? fmt::format(
                "{}, {}: missing value after '='; expected a whole number", keyword_.text, Shorten(name))
                           : fmt::format("{}, {}: invalid value '{}'; expected a whole number", keyword_.text,
                               Shorten(name), Shorten(number)));
    return value;
}

void DataReader::CheckAssignment(
    const IKeywordAssignmentMD& md, const std::string& name, int value, const TextRange& range)
{
    if (target_.simulator != SimulatorType::Any && !md.IsValid(target_.simulator))
        reporter_.Report(range, Code::ItemNotValid,
            fmt::format("{}: name {} is not valid for {}", keyword_.text, name, NameOf(target_)),
            "remove the name");
    else if ((md.GetMin() && value < *md.GetMin()) || (md.GetMax() && value > *md.GetMax()))
        reporter_.Report(range, Code::OutOfRange,
            OutOfRangeText(fmt::format("{}, {}", keyword_.text, name), value,
                md.GetMin().ValueOr(std::numeric_limits<int>::min()),
                md.GetMax().ValueOr(std::numeric_limits<int>::max())));
}

void DataReader::ReadRaw(const DataPlan& plan, IKeywordRawData& data)
{
    const std::string end = static_cast<const IKeywordRawMD&>(*plan.md).GetTerminationString();
    const Token text = text_.NextRaw(end);
    data.SetData(std::string(text.text));
    const TextRange rest{text.range.file, text.range.offset + text.range.length, 0};
    const std::string_view last = text_.GetLineFrom(rest); // the line that ends it
    words_.SetLast({rest.file, rest.offset, last.size() - (last.ends_with('\r') ? 1 : 0)});
    if (text.kind == Token::Kind::End)
        reporter_.Report(keyword_.range, Code::UnclosedText,
            fmt::format("{}: missing {} at the end of the text", keyword_.text, end),
            fmt::format("add {} at the start of a line", end));
}

} // namespace Veld::Quor::Core::Decks

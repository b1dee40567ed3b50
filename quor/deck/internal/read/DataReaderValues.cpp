#include "quor/deck/internal/read/DataReader.h"

#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/deck/internal/read/RecordFit.h"
#include "quor/deck/internal/read/WordHints.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/IValidityMD.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

} // namespace

// Maps and raw text

DataReader::Ended DataReader::ReadMap(const DataPlan& plan, IKeywordMapData& map)
{
    const bool wasOneLine = std::exchange(isOneLine_, plan.termination == Termination::EOL);
    Ended ended = Ended::Complete;
    for (;;) {
        const Got got = Next();
        if (repeats_ > 0) {
            reporter_.Report(
                value_.range, Code::BadRepeat, fmt::format("{}: names can't be repeated", keyword_.text));
            repeats_ = 0;
        }
        if (got == Got::Value)
            ReadAssignment(map);
        else if (got == Got::Stop && plan.termination != Termination::NONE)
            ended = Unclosed("list of names");
        if (got == Got::Stop || got == Got::Slash)
            break;
    }
    if (plan.termination == Termination::SLASH)
        ++position_.ends;
    isOneLine_ = wasOneLine;
    return ended;
}

/// `NAME`, which counts as 1, or `NAME=value`, blanks around the sign allowed.
void DataReader::ReadAssignment(IKeywordMapData& map)
{
    const TextRange range = value_.range;
    const std::size_t sign = value_.text.find('=');
    const std::string name(value_.text.substr(0, sign));
    std::string_view number =
        sign == std::string_view::npos ? std::string_view() : value_.text.substr(sign + 1);
    bool isGiven = sign != std::string_view::npos;
    if (!isGiven && Peek() == Got::Value && text_.PeekData().text.starts_with('=')) {
        number = text_.NextData().text.substr(1);
        isGiven = true;
    }
    if (isGiven && number.empty() && Peek() == Got::Value)
        number = text_.NextData().text;
    std::optional<int> value = isGiven ? ToInteger(number) : 1;
    if (!value && VariablesString::ContainsVariables(std::string(number))) {
        const VariablesString text((std::string(number)));
        variableUses_.push_back({path_, 0, 1, name, text.GetString()});
        const auto replaced = ReplaceVariables(text);
        if (!replaced)
            return;
        value = ToInteger(*replaced);
    }
    if (!value) {
        reporter_.Report(range, Code::WrongType,
            fmt::format("{}, {}: '{}' is no whole number", keyword_.text, Shorten(name), Shorten(number)));
        return;
    }
    if (!map.SetValue(name, *value)) {
        reporter_.Report(range, Code::UnknownName,
            fmt::format("{}: {} is none of its names", keyword_.text, Shorten(name)),
            HintOfKey(static_cast<const IKeywordMapMD&>(*map.GetMD()), name));
        return;
    }
    if (const IKeywordAssignmentMD* md = FindAssignment(map, name))
        CheckAssignment(*md, name, *value, range);
}

void DataReader::CheckAssignment(
    const IKeywordAssignmentMD& md, const std::string& name, int value, const TextRange& range)
{
    if (target_.simulator != SimulatorType::Any && !md.IsValid(target_.simulator))
        reporter_.Report(range, Code::ItemNotValid,
            fmt::format("{}: {} is not valid for {}", keyword_.text, name, NameOf(target_)), "leave it out");
    else if ((md.GetMin() && value < *md.GetMin()) || (md.GetMax() && value > *md.GetMax()))
        reporter_.Report(range, Code::OutOfRange,
            fmt::format("{}, {}: {} is {}", keyword_.text, name, value,
                md.GetMin() && value < *md.GetMin() ? fmt::format("less than {}", *md.GetMin())
                                                    : fmt::format("greater than {}", *md.GetMax())));
}

void DataReader::ReadRaw(const DataPlan& plan, IKeywordRawData& data)
{
    const std::string end = static_cast<const IKeywordRawMD&>(*plan.md).GetTerminationString();
    const Token text = text_.NextRaw(end);
    data.SetData(std::string(text.text));
    if (text.kind == Token::Kind::End)
        reporter_.Report(keyword_.range, Code::UnclosedText,
            "the text of this keyword goes on to the end of the file",
            fmt::format("end it with {} at the start of a line", end));
}

// Values

bool DataReader::Convert(const DataPlan& item, double& value)
{
    const auto real = value_.kind == Token::Kind::Word ? ToReal(value_.text) : std::nullopt;
    if (!real) {
        if (const auto converted = ConvertVariables(item, value))
            return *converted;
        ReportWrong(item, "a number");
        return false;
    }
    value = *real;
    return true;
}

bool DataReader::Convert(const DataPlan& item, int& value)
{
    if (item.type == MDType::Choice)
        return ConvertChoice(item, value);
    const auto number = value_.kind == Token::Kind::Word ? ToInteger(value_.text) : std::nullopt;
    if (!number) {
        if (const auto converted = ConvertVariables(item, value))
            return *converted;
        ReportWrong(item, "a whole number");
        return false;
    }
    value = *number;
    return true;
}

bool DataReader::Convert(const DataPlan& item, bool& value)
{
    const std::optional<bool> word = ToBoolean(value_.text);
    if (!word) {
        if (const auto converted = ConvertVariables(item, value))
            return *converted;
        ReportWrong(item, "YES or NO");
        return false;
    }
    value = *word;
    return true;
}

bool DataReader::Convert(const DataPlan& item, std::string& value)
{
    if (const auto converted = ConvertVariables(item, value); converted && *converted)
        return true;
    value = value_.text;
    if (item.longest > 0 && CountCharacters(value_.text) > static_cast<std::size_t>(item.longest))
        reporter_.Report(value_.range, Code::LongText,
            fmt::format("{}: of the text only the first {} characters count", In(item), item.longest),
            "shorten it");
    return true;
}

bool DataReader::ConvertChoice(const DataPlan& item, int& value)
{
    const auto& choice = static_cast<const IKeywordChoiceMD&>(*item.md);
    const std::string word(value_.text);
    std::string message;
    choiceMessage_.clear();
    value = choice.GetIndex(word, message);
    if (value < 0) {
        if (const auto converted = ConvertVariables(item, value))
            return *converted;
        ReportMisfit(item, Code::NotAChoice,
            fmt::format("{}: {} is not one of its words", In(item), Shorten(word)),
            HintOfChoice(choice, word));
        return false;
    }
    if (!choiceMessage_.empty()) {
        const bool isDeprecated = choiceMessage_.find(" is a deprecated synonym for ") != std::string::npos;
        reporter_.Report(value_.range, isDeprecated ? Code::DeprecatedWord : Code::AbbreviatedWord,
            fmt::format("{}: {} stands for {}{}", In(item), Shorten(word), choice.GetChoice(value),
                isDeprecated ? ", and may not be understood in future" : ""),
            fmt::format("write {}", choice.GetChoice(value)));
    }
    if (target_.simulator == SimulatorType::Any)
        return true;
    if (!choice.GetValidity(value).IsValid(target_.simulator, target_.mode))
        reporter_.Report(value_.range, Code::ChoiceNotValid,
            fmt::format("{}: {} is not valid for {}", In(item), choice.GetChoice(value), NameOf(target_)),
            "choose another word");
    else if (choice.GetUnsupportedBy(value).IsUnsupportedBy(target_.simulator, target_.mode))
        reporter_.Report(value_.range, Code::ChoiceUnsupported,
            fmt::format("{}: {} has no effect for {}", In(item), choice.GetChoice(value), NameOf(target_)));
    return true;
}

void DataReader::ReportWrong(const DataPlan& item, const char* expected)
{
    ReportMisfit(item, Code::WrongType,
        fmt::format("{}: {} is expected, and here is {}", In(item), expected,
            value_.kind == Token::Kind::Quoted ? "a text in quotes" : Shorten(value_.text)));
}

void DataReader::ReportMisfit(const DataPlan& item, Code code, std::string message, std::string hint)
{
    if (std::exchange(isMisfitReported_, true))
        return;
    if (code == Code::ColumnOrder || code == Code::OutOfRange) {
        if (!MayTellOfRow(value_.range, hint))
            return;
    } else if (std::string shift = FindShift(item); !shift.empty()) {
        hint = std::move(shift);
    }
    reporter_.Report(value_.range, code, std::move(message), std::move(hint));
}

/// False, and reported, if the value is beyond them.
bool DataReader::CheckLimits(const DataPlan& item, double value)
{
    const bool isWithin = value >= item.min && value <= item.max;
    if (!isWithin)
        ReportMisfit(item, Code::OutOfRange, BeyondText(item, value));
    return isWithin;
}

std::string DataReader::BeyondText(const DataPlan& item, double value) const
{
    return value < item.min ? fmt::format("{}: {} is less than {}", In(item), value, item.min)
                            : fmt::format("{}: {} is greater than {}", In(item), value, item.max);
}

void DataReader::ReportBeyond(const DataPlan& item, const TextRange& range, double value, long long more)
{
    std::string hint;
    if (!MayTellOfRow(range, hint))
        return;
    std::string message = BeyondText(item, value);
    if (more > 0)
        message += fmt::format(", and {} more are beyond the limits", more);
    reporter_.Report(range, Code::OutOfRange, std::move(message), std::move(hint));
}

std::string DataReader::In(const DataPlan& item) const
{
    return item.md->GetName().empty() ? std::string(keyword_.text)
                                      : fmt::format("{}, {}", keyword_.text, item.md->GetName());
}

} // namespace Veld::Quor::Core::Decks

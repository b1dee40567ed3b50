#include "quor/deck/internal/read/values/ValueReader.h"

#include "quor/deck/internal/read/values/WordHints.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/IValidityMD.h"
#include "quor/metadata/Units.h"

#include <fmt/format.h>

#include <limits>
#include <type_traits>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
constexpr bool isText = std::is_same_v<T, std::string>;

const IKeywordChoiceMD& ChoiceMD(const DataPlan& item)
{
    return static_cast<const IKeywordChoiceMD&>(*item.md);
}

/// Empty if nothing matched.
std::optional<int> IndexOf(const ChoiceMatch& match)
{
    return match.kind == ChoiceMatch::Kind::None ? std::nullopt : std::optional<int>(match.index);
}

/// The value of the item that a word stands for.
template <class T>
std::optional<T> FindValue(const DataPlan& item, std::string_view text, bool isQuoted)
{
    if constexpr (isText<T>)
        return std::string(text);
    else if constexpr (std::is_same_v<T, bool>)
        return ToBoolean(text);
    else if (item.type == MDType::Choice)
        return static_cast<std::optional<T>>(IndexOf(ChoiceMD(item).Match(text)));
    else
        return isQuoted ? std::nullopt : ToNumber<T>(text);
}

bool MayHoldVariables(std::string_view text)
{
    return text.find('$') != std::string_view::npos;
}

template <class T>
bool IsValue(const DataPlan& item, const DataWord& word)
{
    const std::optional<T> value = FindValue<T>(item, word.text, word.IsQuoted());
    return value && IsWithinLimits(item, static_cast<double>(*value));
}

/// A name that the user defines: what it is of, U, and up to six characters more.
bool IsUserQuantity(std::string_view text)
{
    constexpr std::size_t shortest = 3;
    constexpr std::size_t longest = 8;
    return text.size() >= shortest && text.size() <= longest && text[1] == 'U'
        && std::string_view("ABCFGRSW").find(text[0]) != std::string_view::npos
        && FindLeadingWord(text).size() == text.size();
}

bool IsWholeNumber(std::string_view text)
{
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

Misfit NotAWholeNumber(const std::string& where, std::string_view word, bool isQuoted)
{
    const std::string text = Shorten(word);
    if (isQuoted)
        return {Code::WrongType,
            fmt::format("{}: invalid text '{}' in quotes; expected a whole number", where, text),
            ToNumber<int>(word) ? "remove the quotes" : ""};
    if (IsWholeNumber(word))
        return {Code::WrongType,
            fmt::format("{}: whole number '{}' is out of range (expected {} to {})", where, text,
                std::numeric_limits<int>::min(), std::numeric_limits<int>::max())};
    return {Code::WrongType, fmt::format("{}: invalid value '{}'; expected a whole number", where, text)};
}

Misfit NotANumber(const std::string& where, std::string_view word, bool isQuoted)
{
    const std::string text = Shorten(word);
    if (isQuoted)
        return {Code::WrongType,
            fmt::format("{}: invalid text '{}' in quotes; expected a number", where, text),
            ToNumber<double>(word) ? "remove the quotes" : ""};
    return {Code::WrongType, fmt::format("{}: invalid value '{}'; expected a number", where, text)};
}

} // namespace

std::optional<bool> ToBoolean(std::string_view text)
{
    const std::string word = ToUpper(text);
    if (word == "YES" || word == "Y" || word == "TRUE" || word == "T")
        return true;
    if (word == "NO" || word == "N" || word == "FALSE" || word == "F")
        return false;
    return std::nullopt;
}

/// As `FindValue`; keeps how a choice matched.
template <class T>
std::optional<T> ValueReader::Find(const DataPlan& item, const Text& word)
{
    if constexpr (std::is_same_v<T, int>) {
        if (item.type == MDType::Choice) {
            match_ = ChoiceMD(item).Match(word.text);
            return IndexOf(match_);
        }
    }
    return FindValue<T>(item, word.text, word.isQuoted);
}

template <class T>
Reading<T> ValueReader::Read(const DataPlan& item, const Token& word)
{
    Text text{word.text, word.kind == Token::Kind::Quoted};
    Reading<T> reading;
    reading.value = Find<T>(item, text);
    std::optional<std::string> replaced;
    if ((isText<T> || !reading.value) && MayHoldVariables(text.text)) {
        const VariablesString variables((std::string(text.text)));
        reading.hasVariables = !variables.GetVariables().empty();
        if (reading.hasVariables)
            replaced = variables_.Replace(variables, word.range);
        if (replaced) {
            text = {*replaced, false};
            reading.value = Find<T>(item, text);
        } else if (reading.hasVariables && !isText<T>) {
            return reading;
        }
    }
    if (std::is_same_v<T, double> && !reading.value && mayHaveQuantities_ && IsUserQuantity(text.text)) {
        reading.hasVariables = true;
        return reading;
    }
    if (reading.value)
        Remark(item, text, *reading.value, reading.errors.remarks);
    else
        reading.errors.misfit = MisfitOf<T>(item, text);
    for (Misfit& remark : reading.errors.remarks) {
        if (replaced)
            remark.instead.clear(); // the word comes from a variable
    }
    return reading;
}

template Reading<bool> ValueReader::Read(const DataPlan&, const Token&);
template Reading<int> ValueReader::Read(const DataPlan&, const Token&);
template Reading<double> ValueReader::Read(const DataPlan&, const Token&);
template Reading<std::string> ValueReader::Read(const DataPlan&, const Token&);

template <class T>
Misfit ValueReader::MisfitOf(const DataPlan& item, const Text& word) const
{
    const bool isChoice = item.type == MDType::Choice;
    if (word.text.empty())
        return {isChoice ? Code::NotAChoice : Code::WrongType, fmt::format("{}: empty value", In(item)),
            isChoice ? HintOfChoice(ChoiceMD(item), {}) : "write a value"};
    if (isChoice)
        return {Code::NotAChoice, fmt::format("{}: unknown value '{}'", In(item), Shorten(word.text)),
            HintOfChoice(ChoiceMD(item), std::string(word.text))};
    if constexpr (std::is_same_v<T, bool>)
        return {Code::WrongType,
            fmt::format("{}: invalid value '{}'; expected YES or NO", In(item), Shorten(word.text))};
    else if constexpr (std::is_same_v<T, int>)
        return NotAWholeNumber(In(item), word.text, word.isQuoted);
    else
        return NotANumber(In(item), word.text, word.isQuoted);
}

void ValueReader::Remark(
    const DataPlan& item, const Text& word, const std::string& /*value*/, std::vector<Misfit>& to)
{
    if (item.longest > 0 && CountCharacters(word.text) > static_cast<std::size_t>(item.longest))
        to.push_back({Code::LongText,
            fmt::format("{}: '{}' is longer than {} characters; the rest is ignored", In(item),
                Shorten(word.text), item.longest),
            "shorten the text"});
}

void ValueReader::Remark(const DataPlan& item, const Text& word, int value, std::vector<Misfit>& to)
{
    if (item.type != MDType::Choice)
        return;
    const IKeywordChoiceMD& choice = ChoiceMD(item);
    if (match_.needsWarning
        && match_.kind != ChoiceMatch::Kind::Alias) { // an alias is a word like the others
        const bool isDeprecated = match_.kind == ChoiceMatch::Kind::Deprecated;
        to.push_back({isDeprecated ? Code::DeprecatedWord : Code::AbbreviatedWord,
            isDeprecated ? fmt::format(
                "{}: '{}' is a deprecated name of {}", In(item), Shorten(word.text), choice.GetChoice(value))
                         : fmt::format("{}: '{}' is an abbreviation of {}", In(item), Shorten(word.text),
                             choice.GetChoice(value)),
            fmt::format("write {}", choice.GetChoice(value)), choice.GetChoice(value)});
    }
    if (target_.simulator == SimulatorType::Any)
        return;
    if (!choice.GetValidity(value).IsValid(target_.simulator, target_.mode))
        to.push_back({Code::ChoiceNotValid,
            fmt::format(
                "{}: value {} is not valid for {}", In(item), choice.GetChoice(value), NameOf(target_)),
            "choose another value"});
    else if (choice.GetUnsupportedBy(value).IsUnsupportedBy(target_.simulator, target_.mode))
        to.push_back({Code::ChoiceUnsupported,
            fmt::format(
                "{}: value {} has no effect for {}", In(item), choice.GetChoice(value), NameOf(target_))});
}

Misfit ValueReader::Beyond(const DataPlan& item, double value, long long others) const
{
    return {Code::OutOfRange, OutOfRangeText(In(item), value, item.min, item.max, others, UnitAfter(item))};
}

std::string ValueReader::UnitAfter(const DataPlan& item) const
{
    if (!units_ || item.type != MDType::Real)
        return {};
    const std::string* const measurement = static_cast<const IKeywordRealMD&>(*item.md).GetMeasurement();
    const Unit* const unit = measurement ? Units::Find(*measurement, *units_) : nullptr;
    return unit && unit->factor != 0 ? fmt::format(" {}", unit->name) : std::string();
}

std::string ValueReader::In(const DataPlan& item) const
{
    return item.md->GetName().empty() ? std::string(keyword_)
                                      : fmt::format("{}, {}", keyword_, item.md->GetName());
}

std::string OutOfRangeText(const std::string& where, double value, double least, double most,
    long long others, const std::string& unit)
{
    if (value < least && others == 0)
        return fmt::format("{}: value {}{} is too small (expected at least {})", where, value, unit, least);
    if (value < least)
        return fmt::format(
            "{}: value {}{} is too small (expected at least {}); other values out of range: {}", where, value,
            unit, least, others);
    if (others == 0)
        return fmt::format("{}: value {}{} is too large (expected at most {})", where, value, unit, most);
    return fmt::format("{}: value {}{} is too large (expected at most {}); other values out of range: {}",
        where, value, unit, most, others);
}

bool CanBeValue(const DataPlan& item, const DataWord& word)
{
    if (MayHoldVariables(word.text))
        return true;
    switch (item.type) {
    case MDType::Boolean:
        return FindValue<bool>(item, word.text, word.IsQuoted()).has_value();
    case MDType::Choice:
    case MDType::Integer:
        return IsValue<int>(item, word);
    case MDType::Real:
        return IsValue<double>(item, word) || IsUserQuantity(word.text);
    case MDType::Assignment:
    case MDType::Line:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
    case MDType::String:
        break;
    }
    return true;
}

} // namespace Veld::Quor::Core::Decks

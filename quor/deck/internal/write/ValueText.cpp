#include "quor/deck/internal/write/ValueText.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/metadata/IKeywordNumericMD.h"

#include <fmt/format.h>
#include <fmt/printf.h>

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Empty if the format can't print such a number, or changes it.
template <class T>
std::string Format(const std::string& format, T value)
{
    try {
        std::string text = fmt::sprintf(format, value);
        text.erase(0, text.find_first_not_of(' '));
        return ToNumber<T>(text) == value ? text : std::string();
    } catch (const fmt::format_error&) {
        return {};
    }
}

template <class T>
std::string FormatOrShortest(T value, const IKeywordNumericMD& md)
{
    if (const std::string* const format = md.GetFormatting()) {
        if (std::string text = Format(*format, value); !text.empty())
            return text;
    }
    return fmt::to_string(value);
}

bool IsPlain(const std::string& text)
{
    constexpr std::string_view others = "_.+-";
    return !text.empty() && IsLetter(text[0]) && text.find("--") == std::string::npos
        && std::all_of(text.begin(), text.end(), [&](char c) {
               return std::isalnum(static_cast<unsigned char>(c)) || others.find(c) != std::string_view::npos;
           });
}

} // namespace

std::string NumberToText(double value, const IKeywordNumericMD& md)
{
    std::string text = FormatOrShortest(value, md);
    const std::size_t exponent = text.find('e');
    if (exponent == std::string::npos)
        return text;
    text[exponent] = 'E';
    std::size_t digits = exponent + 1;
    if (text[digits] == '+')
        text.erase(digits, 1);
    else if (text[digits] == '-')
        ++digits;
    text.erase(digits, std::min(text.find_first_not_of('0', digits), text.size() - 1) - digits);
    return text;
}

std::string NumberToText(int value, const IKeywordNumericMD& md)
{
    return FormatOrShortest(value, md);
}

std::string WordOf(const IKeywordDataMD& md, const ScalarValue& value)
{
    if (const auto* const real = std::get_if<double>(&value))
        return NumberToText(*real, static_cast<const IKeywordNumericMD&>(md));
    const auto* const integer = std::get_if<int>(&value);
    if (integer && md.GetType() == IKeywordDataMD::MDType::Integer)
        return NumberToText(*integer, static_cast<const IKeywordNumericMD&>(md));
    const bool isQuoted = IsGiven(value) && md.GetType() != IKeywordDataMD::MDType::Line;
    const std::string text = ToText(md, value);
    return isQuoted ? Quote(text) : text;
}

std::size_t CountWhole(std::string_view number)
{
    const auto isEnd = [](char c) { return c == '.' || c == 'e' || c == 'E' || c == 'd' || c == 'D'; };
    return static_cast<std::size_t>(std::find_if(number.begin(), number.end(), isEnd) - number.begin());
}

bool IsWord(const std::string& text)
{
    return FindRepeat(text).length == 0 && text.find("--") == std::string::npos
        && std::none_of(
            text.begin(), text.end(), [](char c) { return IsSeparator(c) || IsQuote(c) || c == '/'; });
}

std::string VariableText(const DataPlan& item, const std::string& text)
{
    return item.type != DataPlan::MDType::String && IsWord(text) ? text : Quote(text);
}

std::string Quote(const std::string& text, bool always)
{
    if (!always && IsPlain(text))
        return text;
    const bool hasApostrophe = text.find('\'') != std::string::npos;
    if (text.find_first_of("\r\n") != std::string::npos)
        throw std::invalid_argument(
            fmt::format("can't write the text '{}': it contains a line break", Printable(text)));
    if (hasApostrophe && text.find('"') != std::string::npos)
        throw std::invalid_argument(
            fmt::format("can't write the text '{}': it contains both kinds of quotes", Printable(text)));
    const char quote = hasApostrophe ? '"' : '\'';
    return quote + text + quote;
}

} // namespace Veld::Quor::Core::Decks

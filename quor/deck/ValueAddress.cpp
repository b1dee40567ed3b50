#include "quor/deck/ValueAddress.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace Veld::Quor::Core::Decks {

namespace {

bool IsQuote(char c)
{
    return c == '\'' || c == '"';
}

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Whether the text can stand without quotes.
bool IsBare(std::string_view text)
{
    constexpr std::string_view special = "[],.@#";
    return !text.empty() && std::none_of(text.begin(), text.end(), [&](char c) {
        return IsBlank(c) || IsQuote(c) || special.find(c) != std::string_view::npos;
    });
}

bool IsBareDate(std::string_view text)
{
    constexpr std::string_view plain = "0123456789-:. ";
    return !text.empty() && text.front() != ' ' && text.back() != ' '
        && text.find_first_not_of(plain) == std::string_view::npos;
}

std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text)
        quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + '\'';
}

std::string Printed(const std::string& text)
{
    return IsBare(text) ? text : Quoted(text);
}

class AddressParser {
public:
    explicit AddressParser(std::string_view text)
        : text_(text)
    {
    }

    ValueAddress Parse();

private:
    bool Take(char c);
    void SkipBlanks();
    std::string TakeText(std::string_view ends, const char* what);
    std::string TakeQuoted();
    void TakeIdentifiers(ValueAddress& address);
    std::string TakeDate();
    std::size_t TakeNumber();
    [[noreturn]] void Fail(const std::string& expected, std::size_t position) const;

    std::string_view text_;
    std::size_t position_ = 0;
};

ValueAddress AddressParser::Parse()
{
    ValueAddress address{TakeText("[].,@#", "the name of a keyword")};
    if (Take('['))
        TakeIdentifiers(address);
    while (Take('.'))
        address.items.push_back(TakeText("[].,@#", "the name of an item"));
    if (Take('@'))
        address.date = TakeDate();
    if (Take('#'))
        address.number = TakeNumber();
    if (position_ < text_.size())
        Fail(address.number > 0         ? "the end"
                : !address.date.empty() ? "'#' or the end"
                                        : "'[', '.', '@', '#' or the end",
            position_);
    return address;
}

bool AddressParser::Take(char c)
{
    if (position_ == text_.size() || text_[position_] != c)
        return false;
    ++position_;
    return true;
}

void AddressParser::SkipBlanks()
{
    while (position_ < text_.size() && IsBlank(text_[position_]))
        ++position_;
}

/// In quotes, or up to one of `ends` or a blank.
std::string AddressParser::TakeText(std::string_view ends, const char* what)
{
    if (position_ < text_.size() && IsQuote(text_[position_]))
        return TakeQuoted();
    const std::size_t begin = position_;
    while (position_ < text_.size() && !IsBlank(text_[position_])
        && ends.find(text_[position_]) == std::string_view::npos && !IsQuote(text_[position_]))
        ++position_;
    if (position_ == begin)
        Fail(what, begin);
    return std::string(text_.substr(begin, position_ - begin));
}

std::string AddressParser::TakeQuoted()
{
    const char quote = text_[position_++];
    std::string text;
    for (; position_ < text_.size(); ++position_) {
        if (text_[position_] == quote && (++position_ == text_.size() || text_[position_] != quote))
            return text;
        text += text_[position_];
    }
    Fail(fmt::format("a closing {}", quote), position_);
}

void AddressParser::TakeIdentifiers(ValueAddress& address)
{
    do {
        SkipBlanks();
        address.identifiers.push_back(TakeText("[],", "an identifier or a number"));
        SkipBlanks();
    } while (Take(','));
    if (!Take(']'))
        Fail("',' or ']'", position_);
}

std::string AddressParser::TakeDate()
{
    if (position_ < text_.size() && IsQuote(text_[position_])) {
        const std::size_t begin = position_;
        std::string date = TakeQuoted();
        if (date.empty())
            Fail("a date", begin);
        return date;
    }
    const std::string_view date = text_.substr(position_, text_.find('#', position_) - position_);
    if (!IsBareDate(date))
        Fail("a date, as in 2024-04-01,", position_);
    position_ += date.size();
    return std::string(date);
}

std::size_t AddressParser::TakeNumber()
{
    std::size_t number = 0;
    const char* const begin = text_.data() + position_;
    const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), number);
    if (error != std::errc() || number == 0)
        Fail("a number from 1", position_);
    position_ += static_cast<std::size_t>(end - begin);
    return number;
}

void AddressParser::Fail(const std::string& expected, std::size_t position) const
{
    const std::string where =
        position == text_.size() ? "at its end" : fmt::format("at character {}", position + 1);
    throw AddressError(
        fmt::format("'{}' is not an address: {} is expected {}", text_, expected, where), position);
}

} // namespace

AddressError::AddressError(const std::string& message, std::size_t position)
    : Service::Exception(message)
    , position_(position)
{
}

AddressError::~AddressError() = default;

ValueAddress ValueAddress::Parse(std::string_view text)
{
    return AddressParser(text).Parse();
}

std::string ValueAddress::ToString() const
{
    std::string text = Printed(keyword);
    for (std::size_t i = 0; i < identifiers.size(); ++i)
        text.append(i == 0 ? "[" : ",").append(Printed(identifiers[i]));
    text.append(identifiers.empty() ? "" : "]");
    for (const std::string& item : items)
        text.append(".").append(Printed(item));
    if (!date.empty())
        text.append("@").append(IsBareDate(date) ? date : Quoted(date));
    if (number > 0)
        text.append(fmt::format("#{}", number));
    return text;
}

bool operator==(const ValueAddress& a, const ValueAddress& b)
{
    return a.keyword == b.keyword && a.identifiers == b.identifiers && a.items == b.items && a.date == b.date
        && a.number == b.number;
}

bool operator!=(const ValueAddress& a, const ValueAddress& b)
{
    return !(a == b);
}

} // namespace Veld::Quor::Core::Decks

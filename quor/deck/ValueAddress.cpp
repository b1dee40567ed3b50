#include "quor/deck/ValueAddress.h"

#include "quor/deck/internal/text/DateForm.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace Veld::Quor::Core::Decks {

namespace {

/// Whether the text needs no quotes.
bool IsBare(std::string_view text)
{
    constexpr std::string_view special = "[],.@#";
    return !text.empty() && std::none_of(text.begin(), text.end(), [&](char c) {
        return IsWhite(c) || IsQuote(c) || special.find(c) != std::string_view::npos;
    });
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

/// Has the address, and where it is wrong: "character 3" or "the end".
using Sentence = fmt::format_string<const std::string_view&, const std::string&>;

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
    std::string TakeText(std::string_view ends, Sentence missing);
    std::string TakeQuoted();
    void TakeIdentifiers(ValueAddress& address);
    std::string TakeDate();
    std::size_t TakeNumber();
    [[noreturn]] void Fail(Sentence sentence, std::size_t position) const;
    [[noreturn]] void FailAfter(const ValueAddress& address) const;

    std::string_view text_;
    std::size_t position_ = 0;
};

ValueAddress AddressParser::Parse()
{
    if (text_.empty())
        throw AddressError("the address is empty; expected the name of a keyword, as in DIMENS.NX", 0);
    ValueAddress address{TakeText("[].,@#", "invalid address '{}': expected the name of a keyword at {}")};
    if (Take('['))
        TakeIdentifiers(address);
    while (Take('.'))
        address.items.push_back(
            TakeText("[].,@#", "invalid address '{}': expected the name of an item at {}"));
    if (Take('@'))
        address.date = TakeDate();
    if (Take('#'))
        address.number = TakeNumber();
    if (position_ < text_.size())
        FailAfter(address);
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
    while (position_ < text_.size() && IsWhite(text_[position_]))
        ++position_;
}

/// In quotes, or up to one of `ends` or a blank.
std::string AddressParser::TakeText(std::string_view ends, Sentence missing)
{
    if (position_ < text_.size() && IsQuote(text_[position_]))
        return TakeQuoted();
    const std::size_t begin = position_;
    while (position_ < text_.size() && !IsWhite(text_[position_])
        && ends.find(text_[position_]) == std::string_view::npos && !IsQuote(text_[position_]))
        ++position_;
    if (position_ == begin)
        Fail(missing, begin);
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
    Fail("invalid address '{}': expected a closing quote at {}", position_);
}

void AddressParser::TakeIdentifiers(ValueAddress& address)
{
    do {
        SkipBlanks();
        address.identifiers.push_back(
            TakeText("[],", "invalid address '{}': expected an identifier or a number at {}"));
        SkipBlanks();
    } while (Take(','));
    if (!Take(']'))
        Fail("invalid address '{}': expected ',' or ']' at {}", position_);
}

std::string AddressParser::TakeDate()
{
    const std::size_t begin = position_;
    position_ = std::min(text_.find('#', begin), text_.size());
    const auto time = ToTime(text_.substr(begin, position_ - begin));
    if (!time)
        Fail("invalid address '{}': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at {}",
            begin);
    return DateText(*time);
}

std::size_t AddressParser::TakeNumber()
{
    std::size_t number = 0;
    const char* const begin = text_.data() + position_;
    const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), number);
    if (error != std::errc() || number == 0)
        Fail("invalid address '{}': expected a number, 1 or greater, at {}", position_);
    position_ += static_cast<std::size_t>(end - begin);
    return number;
}

/// Something follows that can't. After a date it is a part of the date.
void AddressParser::FailAfter(const ValueAddress& address) const
{
    if (address.number > 0)
        Fail("invalid address '{}': expected the end at {}", position_);
    if (!address.items.empty() || !address.identifiers.empty())
        Fail("invalid address '{}': expected '.', '@', '#' or the end at {}", position_);
    Fail("invalid address '{}': expected '[', '.', '@', '#' or the end at {}", position_);
}

void AddressParser::Fail(Sentence sentence, std::size_t position) const
{
    const std::string where =
        position == text_.size() ? "the end" : fmt::format("character {}", position + 1);
    const std::string shown = Printable(text_);
    const std::string_view address = shown;
    throw AddressError(fmt::vformat(sentence, fmt::make_format_args(address, where)), position);
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
        text.append("@").append(date);
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

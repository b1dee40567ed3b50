#include "quor/deck/internal/text/DateForm.h"

#include "quor/deck/DeckKeyword.h"
#include "quor/deck/internal/text/LineText.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace Veld::Quor::Core::Decks {

namespace {

constexpr std::string_view afterYear = "-00-00 00:00:00.000";
constexpr int lastYear = 32767; // of the calendar of `Service::Time`

/// The digits of the year; 0 if it has no form of a year.
std::size_t CountYearDigits(std::string_view text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const auto count = static_cast<std::size_t>(end - text.begin());
    return count == 4 || (count == 5 && text.front() != '0') ? count : 0;
}

} // namespace

std::optional<Service::Time> ToTime(std::string_view text)
{
    const std::size_t year = CountYearDigits(text);
    const std::string_view rest = text.substr(year);
    if (year == 0 || (rest.size() != 6 && rest.size() != 15 && rest.size() != afterYear.size()))
        return std::nullopt;
    const auto fits = [](char c, char form) { return form == '0' ? IsDigit(c) : c == form; };
    if (!std::equal(rest.begin(), rest.end(), afterYear.begin(), fits))
        return std::nullopt;
    const std::string whole = std::string(rest).append(afterYear.substr(rest.size()));
    const auto number = [&whole](std::size_t at, std::size_t length) {
        return std::stoi(whole.substr(at, length));
    };
    try {
        return Service::Time(std::stoi(std::string(text.substr(0, year))), number(1, 2), number(4, 2),
            number(7, 2), number(10, 2), number(13, 2), number(16, 3));
    } catch (const std::invalid_argument&) { // 30 February
        return std::nullopt;
    }
}

std::string DateText(const Service::Time& time)
{
    static const Service::Time first(0, 1, 1, 0, 0, 0, 0);
    static const Service::Time last(lastYear, 12, 31, 23, 59, 59, 999);
    if (time < first || time > last)
        return {};
    std::string text = time.GetAsString();
    for (const std::string_view nothing : {".000", " 00:00:00"}) {
        if (text.ends_with(nothing))
            text.resize(text.size() - nothing.size());
    }
    return text;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/data/internal/DateRecord.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/foundation/service/Optional.h"
#include "quor/foundation/service/Strings.h"
#include "quor/foundation/service/TimeFormat.h"

#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

using Service::Time;

namespace {

struct Month {
    const char* text;
    int number;
};

/// By the first three characters, in upper case; July has two rows. 0 for any other text.
int MonthOf(const std::string& text)
{
    static constexpr Month months[] = {{"JAN", 1}, {"FEB", 2}, {"MAR", 3}, {"APR", 4}, {"MAY", 5}, {"JUN", 6},
        {"JUL", 7}, {"JLY", 7}, {"AUG", 8}, {"SEP", 9}, {"OCT", 10}, {"NOV", 11}, {"DEC", 12}};
    const std::string start = text.substr(0, 3);
    for (const Month& month : months) {
        if (start == month.text)
            return month.number;
    }
    return 0;
}

std::string DateOf(const Time& time)
{
    std::vector<std::string> parts;
    Service::StringSplit(time.GetAsString(), parts, " ", false);
    return parts.front();
}

/// Fills the fraction of a second up to three digits, so that ".5" is half a second; returns whether there is
/// one.
bool CompleteFraction(std::string& text)
{
    const auto point = text.find('.');
    if (point == std::string::npos)
        return false;
    while (text.size() - point - 1 < 3)
        text += '0';
    return true;
}

/// Throws a `std::exception` for what is no time of day.
Time WithTimeOfDay(const Time& date, std::string timeOfDay)
{
    Service::StringTrimBlank(timeOfDay, true, true);
    if (timeOfDay.empty())
        return date;
    const char* const format = CompleteFraction(timeOfDay) ? "%Y-%m-%d %H:%M:%S.%L" : "%Y-%m-%d %H:%M:%S";
    const std::string full = DateOf(date) + " " + timeOfDay;
    Time time;
    std::istringstream stream(full);
    if (!(stream >> Service::TimeFormat(format)(time)))
        throw std::invalid_argument("Invalid time (YYYY-MM-DD HH24:MM:SS.mmm): " + full);
    return time;
}

template <class T>
const Service::Optional<T>& ItemOf(const IKeywordRecordData& record, int i)
{
    return *static_cast<const Service::Optional<T>*>(record.GetData(i));
}

} // namespace

Time ReadDateRecord(const IKeywordRecordData& record)
{
    // A day, month or year that was not given reads as the value that stands for "not given", which is no
    // date.
    const int day = *ItemOf<int>(record, 0);
    const int month = MonthOf(*ItemOf<std::string>(record, 1));
    const int year = *ItemOf<int>(record, 2);
    const Service::Optional<std::string>& timeOfDay = ItemOf<std::string>(record, 3);
    if (month == 0)
        return Time::MinTime();
    try {
        const Time date(year, month, day, 0, 0, 0, 0);
        return timeOfDay ? WithTimeOfDay(date, *timeOfDay) : date;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return Time::MinTime();
    }
}

} // namespace Veld::Quor::Core::Keywords

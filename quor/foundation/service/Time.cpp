#include "quor/foundation/service/Time.h"

#include <chrono>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace Veld::Quor::Core::Service {

namespace {

using Ticks = std::chrono::duration<long long, std::micro>;
using Point = std::chrono::time_point<std::chrono::system_clock, Ticks>;
static_assert(Ticks::period::den == Time::TicksPerSecond);

constexpr long long undefined = std::numeric_limits<long long>::min();
constexpr long long least = undefined + 1;
constexpr long long greatest = std::numeric_limits<long long>::max();

bool IsTimeOfDay(int hour, int minute, int second, int millisecond)
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60
        && millisecond >= 0 && millisecond < 1000;
}

/// `year_month_day` holds a month and a day in a byte: 257 would pass for 1.
bool IsByte(int value)
{
    return value >= 0 && value <= 255;
}

bool IsYear(int value)
{
    return value >= int(std::chrono::year::min()) && value <= int(std::chrono::year::max());
}

} // namespace

Time::Time()
    : ticks_(undefined)
{
}

Time::Time(int year, int month, int day, int hour, int minute, int second, int millisecond)
    : Time()
{
    using namespace std::chrono;
    if (!IsYear(year) || !IsByte(month) || !IsByte(day))
        throw std::invalid_argument("Time: a date that cannot be");
    const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
        std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok())
        throw std::invalid_argument("Time: a date that cannot be");
    if (!IsTimeOfDay(hour, minute, second, millisecond))
        throw std::invalid_argument("Time: a time of day that cannot be");
    const Point point =
        Point(sys_days(date)) + hours(hour) + minutes(minute) + seconds(second) + milliseconds(millisecond);
    ticks_ = point.time_since_epoch().count();
}

Time::Time(const Time&) = default;
Time::Time(Time&&) noexcept = default;
Time& Time::operator=(const Time&) = default;
Time& Time::operator=(Time&&) noexcept = default;
Time::~Time() = default;

Time Time::MinTime()
{
    return Time();
}

bool Time::IsDef() const
{
    return ticks_ != undefined;
}

std::string Time::GetAsString() const
{
    using namespace std::chrono;
    if (!IsDef())
        return {};
    const Point point{Ticks(ticks_)};
    const sys_days day = floor<days>(point);
    const year_month_day date(day);
    const hh_mm_ss timeOfDay(point - Point(day));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d.%03d", int(date.year()),
        unsigned(date.month()), unsigned(date.day()), int(timeOfDay.hours().count()),
        int(timeOfDay.minutes().count()), int(timeOfDay.seconds().count()),
        int(duration_cast<milliseconds>(timeOfDay.subseconds()).count()));
    return text;
}

Time& Time::operator+=(const long long& ticks)
{
    if (!IsDef())
        return *this;
    long long sum = 0;
    if (__builtin_add_overflow(ticks_, ticks, &sum) || sum < least)
        sum = ticks > 0 ? greatest : least;
    ticks_ = sum;
    return *this;
}

void Time::Serialize(Serializer& serializer)
{
    serializer.Transfer(ticks_);
}

} // namespace Veld::Quor::Core::Service

#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Serialization.h"

#include <string>

namespace Veld::Quor::Core::Service {

/// A point in time on the proleptic Gregorian calendar, in ticks of a microsecond; no time zone, no leap
/// seconds.
class VELD_QUOR_EXPORT Time : public ISerializable {
public:
    /// The unit of every number of ticks here.
    static constexpr long long TicksPerSecond = 1'000'000;

    /// Undefined.
    Time();
    /// Throws `std::invalid_argument` for a date or a time of day that cannot be (30 February, hour 24,
    /// second 60).
    Time(int year, int month, int day, int hour, int minute, int second, int millisecond);
    Time(const Time&);
    Time(Time&&) noexcept;
    Time& operator=(const Time&);
    Time& operator=(Time&&) noexcept;
    ~Time() override;

    /// The smallest time, less than every defined one; itself undefined.
    static Time MinTime();

    /// False after the default constructor, and for `MinTime()`.
    bool IsDef() const;
    /// "YYYY-MM-DD HH:MM:SS.mmm", cut to milliseconds; empty when undefined.
    std::string GetAsString() const;
    /// Moves the time on. An undefined time stays undefined; a defined one stops at the ends of its range.
    Time& operator+=(const long long& ticks);
    /// Transfers the ticks since 1970-01-01 00:00:00; the smallest number stands for undefined.
    void Serialize(Serializer& serializer) override;

    /// As `+=`.
    friend Time operator+(Time time, long long ticks)
    {
        time += ticks;
        return time;
    }
    /// By the ticks. Undefined is less than all others, and equal to itself.
    /// @{
    friend bool operator==(const Time& a, const Time& b) { return a.ticks_ == b.ticks_; }
    friend bool operator!=(const Time& a, const Time& b) { return a.ticks_ != b.ticks_; }
    friend bool operator<(const Time& a, const Time& b) { return a.ticks_ < b.ticks_; }
    friend bool operator<=(const Time& a, const Time& b) { return a.ticks_ <= b.ticks_; }
    friend bool operator>(const Time& a, const Time& b) { return a.ticks_ > b.ticks_; }
    friend bool operator>=(const Time& a, const Time& b) { return a.ticks_ >= b.ticks_; }
    /// @}

private:
    long long ticks_; // since 1970-01-01 00:00:00; the smallest value means undefined
};

} // namespace Veld::Quor::Core::Service

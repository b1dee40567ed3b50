#include "quor/Keywords.h"

#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <sstream>

using namespace Veld::Quor::Core::Service;
using namespace Veld::Quor::Tests;

namespace {

struct Date {
    const char* name;
    int year, month, day, hour, minute, second, millisecond;
};

class ImpossibleDate : public testing::TestWithParam<Date> { };

} // namespace

TEST_P(ImpossibleDate, IsRefused)
{
    const Date& d = GetParam();
    EXPECT_THROW(
        Time(d.year, d.month, d.day, d.hour, d.minute, d.second, d.millisecond), std::invalid_argument);
}

INSTANTIATE_TEST_SUITE_P(Dates, ImpossibleDate,
    testing::Values(Date{"FebruaryInACommonYear", 2023, 2, 29, 0, 0, 0, 0},
        Date{"FebruaryIn1900", 1900, 2, 29, 0, 0, 0, 0}, Date{"MonthZero", 2024, 0, 1, 0, 0, 0, 0},
        Date{"MonthThatWrapsAByte", 2024, 257, 1, 0, 0, 0, 0},
        Date{"DayThatWrapsAByte", 2024, 1, 257, 0, 0, 0, 0}, Date{"NegativeDay", 2024, 1, -1, 0, 0, 0, 0},
        Date{"DayThatIsNoValue", 2024, 1, INT_MIN, 0, 0, 0, 0},
        Date{"YearThatIsNoValue", INT_MIN, 1, 1, 0, 0, 0, 0}, Date{"HourTwentyFour", 2024, 1, 1, 24, 0, 0, 0},
        Date{"SecondSixty", 2024, 1, 1, 0, 0, 60, 0}, Date{"Millisecond", 2024, 1, 1, 0, 0, 0, 1000}),
    CaseName<Date>);

TEST(Time, TellsDateAndTimeOfDay)
{
    EXPECT_EQ(Time(2024, 2, 29, 23, 59, 59, 7).GetAsString(), "2024-02-29 23:59:59.007");
    EXPECT_EQ(Time(1899, 12, 31, 0, 0, 0, 0).GetAsString(), "1899-12-31 00:00:00.000");
    EXPECT_EQ(Time().GetAsString(), "");
}

TEST(Time, MovesByTicks)
{
    Time time(1999, 12, 31, 23, 59, 59, 999);
    time += Time::TicksPerSecond / 1000;
    EXPECT_EQ(time, Time(2000, 1, 1, 0, 0, 0, 0));
    time += -366LL * 86400 * Time::TicksPerSecond;
    EXPECT_EQ(time, Time(1998, 12, 31, 0, 0, 0, 0));
    EXPECT_LT(Time::MinTime(), time);
    EXPECT_FALSE(Time::MinTime().IsDef());

    Time undefined;
    undefined += 1;
    EXPECT_FALSE(undefined.IsDef());
    time += std::numeric_limits<long long>::max();
    time += std::numeric_limits<long long>::max();
    EXPECT_TRUE(time.IsDef());
    time += std::numeric_limits<long long>::min();
    time += std::numeric_limits<long long>::min();
    time += std::numeric_limits<long long>::min();
    EXPECT_TRUE(time.IsDef()) << "the least time is not the undefined one";
}

TEST(Time, GoesThroughASerializer)
{
    struct Memory : Serializer {
        long long kept = 0;
        bool reading = false;
        void Transfer(long long& value) override { reading ? value = kept : kept = value; }
    } memory;
    Time written(2024, 5, 6, 7, 8, 9, 10);
    written.Serialize(memory);
    memory.reading = true;
    Time read;
    read.Serialize(memory);
    EXPECT_EQ(read, written);
}

namespace {

struct Reading {
    const char* name;
    const char* format;
    const char* text;
    Time expected; // undefined: it fails
};

class TimeReading : public testing::TestWithParam<Reading> { };

constexpr const char* withMilliseconds = "%Y-%m-%d %H:%M:%S.%L";
constexpr const char* withoutMilliseconds = "%Y-%m-%d %H:%M:%S";

} // namespace

TEST_P(TimeReading, FollowsTheFormat)
{
    std::istringstream stream(GetParam().text);
    Time time;
    TimeFormat format("");
    format = TimeFormat(GetParam().format);
    stream >> format(time);
    EXPECT_EQ(!stream.fail(), GetParam().expected.IsDef());
    EXPECT_EQ(time, GetParam().expected) << time.GetAsString();
}

INSTANTIATE_TEST_SUITE_P(Texts, TimeReading,
    testing::Values(
        Reading{"Whole", withMilliseconds, "2024-02-29 12:30:15.250", Time(2024, 2, 29, 12, 30, 15, 250)},
        Reading{"MoreDigitsThanMilliseconds", withMilliseconds, "2024-02-29 12:30:15.1239",
            Time(2024, 2, 29, 12, 30, 15, 123)},
        Reading{"NoFraction", withoutMilliseconds, "2024-02-29 12:30:15", Time(2024, 2, 29, 12, 30, 15, 0)},
        Reading{"FractionMissing", withMilliseconds, "2024-02-29 12:30:15", Time()},
        Reading{"FractionWithoutDigits", withMilliseconds, "2024-02-29 12:30:15.x", Time()},
        Reading{"NoSuchDay", withoutMilliseconds, "2023-02-29 12:30:15", Time()},
        Reading{"NoSuchHour", withoutMilliseconds, "2024-02-29 25:30:15", Time()},
        Reading{"Words", withoutMilliseconds, "noon", Time()},
        Reading{"Empty", withoutMilliseconds, "", Time()}),
    CaseName<Reading>);

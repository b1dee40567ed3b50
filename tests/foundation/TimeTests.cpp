#include "quor/Keywords.h"

#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <sstream>

using namespace Veld::Quor::Core::Service;
using namespace Veld::Quor::Tests;

TEST(Time, RefusesImpossibleDates)
{
    const int rows[][7] = {{2023, 2, 29, 0, 0, 0, 0}, {1900, 2, 29, 0, 0, 0, 0}, {2024, 0, 1, 0, 0, 0, 0},
        {2024, 257, 1, 0, 0, 0, 0}, {2024, 1, 257, 0, 0, 0, 0}, // they wrap a byte
        {2024, 1, -1, 0, 0, 0, 0}, {2024, 1, INT_MIN, 0, 0, 0, 0}, {INT_MIN, 1, 1, 0, 0, 0, 0},
        {2024, 1, 1, 24, 0, 0, 0}, {2024, 1, 1, 0, 60, 0, 0}, {2024, 1, 1, 0, 0, 60, 0},
        {2024, 1, 1, 0, 0, 0, 1000}};
    for (const auto& [year, month, date, hour, minute, second, millisecond] : rows)
        EXPECT_THROW(Time(year, month, date, hour, minute, second, millisecond), std::invalid_argument)
            << year << ' ' << month << ' ' << date << ' ' << hour << ' ' << second << ' ' << millisecond;
}

TEST(Time, PrintsDateAndTimeOfDay)
{
    EXPECT_EQ(Time(2024, 2, 29, 23, 59, 59, 7).GetAsString(), "2024-02-29 23:59:59.007");
    EXPECT_EQ(Time(1899, 12, 31, 0, 0, 0, 0).GetAsString(), "1899-12-31 00:00:00.000");
    EXPECT_EQ(Time().GetAsString(), "");
}

TEST(Time, MovesByTicksWithoutOverflow)
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

TEST(Time, IsTheSameAfterSerialization)
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

/// A format and a text, and the time that it is; empty: reading fails.
class TimeReading : public testing::TestWithParam<Row> { };

TEST_P(TimeReading, FollowsTheFormat)
{
    const std::size_t bar = GetParam().text.find('|');
    std::istringstream stream(GetParam().text.substr(bar + 1));
    Time time;
    TimeFormat format("");
    format = TimeFormat(GetParam().text.substr(0, bar));
    stream >> format(time);
    EXPECT_EQ(!stream.fail(), time.IsDef());
    EXPECT_EQ(time.GetAsString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, TimeReading, testing::ValuesIn(Rows(R"(
Whole: %Y-%m-%d %H:%M:%S.%L|2024-02-29 12:30:15.250 => 2024-02-29 12:30:15.250
MoreDigitsThanMilliseconds: %Y-%m-%d %H:%M:%S.%L|2024-02-29 12:30:15.1239 => 2024-02-29 12:30:15.123
NoFraction: %Y-%m-%d %H:%M:%S|2024-02-29 12:30:15 => 2024-02-29 12:30:15.000
FractionMissing: %Y-%m-%d %H:%M:%S.%L|2024-02-29 12:30:15 =>
FractionWithoutDigits: %Y-%m-%d %H:%M:%S.%L|2024-02-29 12:30:15.x =>
NoSuchDay: %Y-%m-%d %H:%M:%S|2023-02-29 12:30:15 =>
NoSuchHour: %Y-%m-%d %H:%M:%S|2024-02-29 25:30:15 =>
Words: %Y-%m-%d %H:%M:%S|noon =>
Empty: %Y-%m-%d %H:%M:%S| =>
)")),
    CaseName<Row>);

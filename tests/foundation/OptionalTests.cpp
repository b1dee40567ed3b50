#include "quor/Keywords.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <string>

using Veld::Quor::Core::Keywords::SimulatorType;
using Veld::Quor::Core::Service::Optional;

static_assert(sizeof(Optional<int>) == sizeof(int));
static_assert(sizeof(Optional<double>) == sizeof(double));
static_assert(sizeof(Optional<bool>) == sizeof(bool));
static_assert(sizeof(Optional<SimulatorType::Enum>) == sizeof(int));

template <class T>
struct Sample;
template <>
struct Sample<int> {
    static int A() { return 0; }
    static int B() { return -7; }
};
template <>
struct Sample<double> {
    static double A() { return 0.0; }
    static double B() { return 2.5; }
};
template <>
struct Sample<bool> {
    static bool A() { return false; }
    static bool B() { return true; }
};
template <>
struct Sample<std::string> {
    static std::string A() { return ""; }
    static std::string B() { return "a text too long to be stored in place"; }
};
template <>
struct Sample<SimulatorType::Enum> {
    static SimulatorType::Enum A() { return SimulatorType::Carrow; }
    static SimulatorType::Enum B() { return SimulatorType::Any; }
};

template <class T>
class OptionalOf : public testing::Test {
};
using Types = testing::Types<int, double, bool, std::string, SimulatorType::Enum>;
TYPED_TEST_SUITE(OptionalOf, Types);

TYPED_TEST(OptionalOf, HoldsAValueOrNothing)
{
    const TypeParam a = Sample<TypeParam>::A();
    const TypeParam b = Sample<TypeParam>::B();
    Optional<TypeParam> none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.ValueOr(b), b);
    EXPECT_THROW(none.Value(), std::bad_optional_access);

    Optional<TypeParam> some = a; // the least value is a value
    EXPECT_TRUE(some.HasValue());
    EXPECT_EQ(some.Value(), a);
    EXPECT_NE(some, none);
    EXPECT_NE(some, Optional<TypeParam>(b));

    *some = b;
    EXPECT_EQ(some, Optional<TypeParam>(b));
    Optional<TypeParam> copy = some;
    some.Reset();
    EXPECT_EQ(some, none);
    EXPECT_EQ(*copy, b);
    some = std::move(copy);
    EXPECT_EQ(*some, b);
}

TEST(Optional, GivesUpOneValueOfItsType)
{
    EXPECT_FALSE(Optional<int>(INT_MIN).HasValue());
    EXPECT_FALSE(Optional<double>(DBL_MIN).HasValue());
    EXPECT_FALSE(Optional<SimulatorType::Enum>(static_cast<SimulatorType::Enum>(INT_MIN)).HasValue());
    const Optional<bool> none;
    EXPECT_EQ(*reinterpret_cast<const unsigned char*>(&none), 255);
    EXPECT_EQ(Optional<std::string>("abc")->size(), 3U);
}

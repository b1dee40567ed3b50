#include "quor/Keywords.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <string>
#include <tuple>

using Veld::Quor::Core::Keywords::SimulatorType;
using Veld::Quor::Core::Service::Optional;

static_assert(sizeof(Optional<int>) == sizeof(int));
static_assert(sizeof(Optional<double>) == sizeof(double));
static_assert(sizeof(Optional<bool>) == sizeof(bool));
static_assert(sizeof(Optional<SimulatorType::Enum>) == sizeof(int));

namespace {

/// Two values of each type; the first is the least that could be taken for none.
const std::tuple firsts(0, 0.0, false, std::string(), SimulatorType::Carrow);
const std::tuple seconds(
    -7, 2.5, true, std::string("a text too long to be stored in place"), SimulatorType::Any);

template <class T>
Optional<T> Same(const T& value)
{
    return value;
}

} // namespace

template <class T>
class OptionalOf : public testing::Test {
};
using Types = testing::Types<int, double, bool, std::string, SimulatorType::Enum>;
TYPED_TEST_SUITE(OptionalOf, Types);

TYPED_TEST(OptionalOf, HoldsAValueOrNothing)
{
    const TypeParam a = std::get<TypeParam>(firsts);
    const TypeParam b = std::get<TypeParam>(seconds);
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

    Optional<TypeParam> (*volatile call)(const TypeParam&) = Same<TypeParam>; // no optimizer looks into it
    const TypeParam returned = *call(a);
    EXPECT_EQ(returned, a);
    const TypeParam other = *call(b);
    EXPECT_EQ(other, b);
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

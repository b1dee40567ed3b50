#pragma once

#include <gtest/gtest.h>

#include <new>

/// Replaces the global allocation functions of the program that it is linked to.
namespace Veld::Quor::Tests::Allocations {

/// What `new` gave and `delete` did not take back.
long CountLive();
/// The allocation after `count` others fails, all others succeed; negative: none fails.
void FailAfter(long count);
/// Whether that one was reached.
bool HasFailed();

} // namespace Veld::Quor::Tests::Allocations

namespace Veld::Quor::Tests {

/// Runs `action` with the first allocation failing, then the next and so on until none is left to fail, and
/// after each failure asks `check`. `next` gives the number of the next to fail. Nothing may be leaked.
/// Gives the number of failures.
template <class Action, class Check>
int FailAllocations(Action action, Check check, long (*next)(long))
{
    int failures = 0;
    for (long number = 0;; number = next(number), ++failures) {
        const long before = Allocations::CountLive();
        bool hasThrown = false;
        Allocations::FailAfter(number);
        try {
            action();
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        const bool hasFailed = Allocations::HasFailed();
        Allocations::FailAfter(-1);
        if (!hasFailed)
            return failures;
        EXPECT_TRUE(hasThrown) << "allocation " << number + 1 << " failed, and nobody was told";
        EXPECT_EQ(Allocations::CountLive(), before) << "left behind by the failure of " << number + 1;
        check();
        if (testing::Test::HasFailure())
            return failures;
    }
}

/// The same for each allocation.
template <class Action, class Check>
int FailEachAllocation(Action action, Check check)
{
    return FailAllocations(action, check, [](long number) { return number + 1; });
}

} // namespace Veld::Quor::Tests

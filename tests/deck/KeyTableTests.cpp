#include "quor/deck/internal/rules/KeyTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

namespace Veld::Quor::Core::Decks {

TEST(KeyOfParts, SmallNumbersAreNotTakenForOthers)
{
    constexpr std::uint64_t most = 100;
    std::set<std::uint64_t> keys;
    for (std::uint64_t first = 0; first < most; ++first) {
        for (std::uint64_t second = 0; second < most; ++second) {
            KeyOfParts key;
            key.Add(first);
            key.Add(second);
            keys.insert(key.Get());
        }
    }
    EXPECT_EQ(keys.size(), most * most);
}

} // namespace Veld::Quor::Core::Decks

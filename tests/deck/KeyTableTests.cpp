#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/SettledNames.h"

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

TEST(KeyTable, IsEmptyOnceItIsCleared)
{
    KeyTable<std::uint64_t> table;
    for (const std::uint64_t count : {0U, 1U, 5'000U, 3U, 200U}) { // few after many: in a smaller block
        for (std::uint64_t key = 0; key < count; ++key) {
            ASSERT_TRUE(table.Add(key << 20, key).second) << count << ' ' << key;
            ASSERT_FALSE(table.Add(key << 20, 0).second);
        }
        for (std::uint64_t key = 0; key < count; ++key)
            ASSERT_EQ(*table.Find(key << 20), key);
        EXPECT_FALSE(table.Has(count << 20));
        table.Clear();
        EXPECT_TRUE(table.IsEmpty());
        EXPECT_FALSE(table.Has(0));
    }
}

TEST(SettledNames, KeepsAllKeysOfAName)
{
    const auto keyOf = [](std::uint64_t number) {
        KeyOfParts key;
        key.Add(number);
        return key.Get();
    };
    SettledNames settled;
    const std::uint32_t names[] = {0, 1, 2, 40'000'000}; // the last one among few records
    for (std::uint64_t round = 1; round <= 3; ++round) {
        for (const std::uint32_t name : names) {
            SettledNames::Last& last = settled.GetLast(7);
            last.Reserve(name + std::size_t(1), 1);
            EXPECT_FALSE(settled.Has(last, name, keyOf(round)));
            settled.Add(last, name, keyOf(round));
            for (std::uint64_t before = 1; before <= round; ++before)
                EXPECT_TRUE(settled.Has(last, name, keyOf(before))) << name << ' ' << before;
            EXPECT_FALSE(settled.Has(settled.GetLast(6), name, keyOf(round)));
        }
    }
}

} // namespace Veld::Quor::Core::Decks

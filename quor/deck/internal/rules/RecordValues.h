#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/NameTable.h"
#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// An item of records of one metadata.
struct RuleItem {
    int index = -1; ///< -1: the record has no such item
    Keywords::IKeywordDataMD::MDType::Enum type = Keywords::IKeywordDataMD::MDType::None;
    /// Of a scalar from its record, the same in all of them; 0: not yet known.
    mutable std::ptrdiff_t distance = 0;

    bool IsThere() const { return index >= 0; }
    /// The scalar, which is there.
    template <class T>
    const Core::Service::Optional<T>& In(const Keywords::IKeywordRecordData& record) const
    {
        return ItemAt<T>(record, DistanceIn(record));
    }
    std::ptrdiff_t DistanceIn(const Keywords::IKeywordRecordData& record) const
    {
        if (distance == 0)
            distance = static_cast<const std::byte*>(record.GetData(index))
                - reinterpret_cast<const std::byte*>(&record);
        return distance;
    }
    template <class T>
    static const Core::Service::Optional<T>& ItemAt(
        const Keywords::IKeywordRecordData& record, std::ptrdiff_t distance)
    {
        return *reinterpret_cast<const Core::Service::Optional<T>*>(
            reinterpret_cast<const std::byte*>(&record) + distance);
    }
};

/// Calls `use` with the index of each record, and the scalar that it has as the item.
template <class T, class Use>
void ForEachItem(
    std::span<const Keywords::IKeywordRecordData* const> records, const RuleItem& item, const Use& use)
{
    const std::ptrdiff_t distance = records.empty() ? 0 : item.DistanceIn(*records.front());
    for (std::size_t i = 0; i < records.size(); ++i)
        use(i, RuleItem::ItemAt<T>(*records[i], distance));
}

/// The item of that name. `record`: the metadata of a record.
RuleItem FindRuleItem(const Keywords::IKeywordDataMD& record, const std::string& name);

/// A condition of a rule, with its item in a record.
struct ItemCondition {
    const RecordCondition* rule = nullptr; ///< null: there is none
    RuleItem item;
    int choice = -1; ///< of an item with choices: the one that is meant

    bool IsThere() const { return rule || choice >= 0; }
};

/// `record`: the metadata of a record. `condition` must outlive it.
ItemCondition FindCondition(const Keywords::IKeywordDataMD& record, const RecordCondition& condition);
/// Of an item that is a whole number; 0 if it has no value.
inline long long NumberOf(const Keywords::IKeywordRecordData& record, const RuleItem& item)
{
    return item.In<int>(record).ValueOr(0);
}
/// Of an item with choices; -1 if it has no value.
inline int ChoiceOf(const Keywords::IKeywordRecordData& record, const RuleItem& item)
{
    return item.In<int>(record).ValueOr(-1);
}
/// Whether it has a value.
bool HasItem(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// Whether it has a value that is not 0; above 0 if it is a whole number.
bool IsItemSet(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// As it stands in a deck, a text without quotes; empty if it has no value.
std::string ValueText(const Keywords::IKeywordRecordData& record, const RuleItem& item);

/// Whether the record is as the condition says, which is there, and about no choice.
bool HoldsOther(const ItemCondition& condition, const Keywords::IKeywordRecordData& record);
/// Whether the record is as the condition says; true if there is none.
inline bool Holds(const ItemCondition& condition, const Keywords::IKeywordRecordData& record)
{
    if (condition.choice >= 0)
        return ChoiceOf(record, condition.item) == condition.choice;
    return !condition.rule || HoldsOther(condition, record);
}

/// Numbers for the names of records, the same for names that differ in case alone.
class NameNumbers {
public:
    NameNumbers() { numbers_.Add(KeyOfName(""), 0); }

    /// From 0 on, of a text of the record. Several rules in a row ask for the same.
    std::uint32_t Get(const std::string& name)
    {
        if (&name != last_) {
            number_ = GetAfter(number_, name);
            last_ = &name;
        }
        return number_;
    }
    /// The same of a text that comes after a name of that number, or after none: 0.
    std::uint32_t GetAfter(std::uint32_t before, std::string_view name)
    {
        const std::uint32_t likely = names_[before].next;
        return names_[likely].IsSpelt(name) ? likely : Find(before, name);
    }
    /// The number as a part of a key: none of an item is the same.
    static std::uint64_t PartOf(std::uint32_t number) { return (std::uint64_t(1) << 32) + number; }
    std::uint64_t GetPart(const std::string& name) { return PartOf(Get(name)); }
    /// All numbers are below it.
    std::size_t GetSize() const { return names_.size(); }
    /// Another record comes.
    void Forget() { last_ = nullptr; }

private:
    struct Name {
        /// False if it is longer than eight letters: such names are always looked for.
        bool IsSpelt(std::string_view text) const
        {
            return text.size() == size && size <= sizeof letters && FirstLetters(text) == letters;
        }

        std::uint64_t letters; // as it was spelt last
        std::uint32_t size;
        std::uint32_t next; // the number of the name that came after it: it often comes again
    };

    std::uint32_t Find(std::uint32_t before, std::string_view name);

    KeyTable<std::uint32_t> numbers_; // by the keys of the names
    std::vector<Name> names_ = {{0, 0, 0}}; // by number
    const std::string* last_ = nullptr;
    std::uint32_t number_ = 0; // of the last one
};

/// Calls `use` with the index of each record, and whether it is as the condition says.
template <class Use>
void ForEachHolding(std::span<const Keywords::IKeywordRecordData* const> records,
    const ItemCondition& condition, const Use& use)
{
    if (condition.choice >= 0)
        return ForEachItem<int>(records, condition.item,
            [&](std::size_t i, const auto& choice) { use(i, choice.ValueOr(-1) == condition.choice); });
    for (std::size_t i = 0; i < records.size(); ++i)
        use(i, Holds(condition, *records[i]));
}

/// What tells records apart: the values of some items, as a number that is the same for the same values. That
/// others have one is too improbable to matter.
struct RecordKey {
    std::uint64_t key = 0;
    bool isThere = false; ///< false: one of the items that are required has no value
    bool hasZero = false; ///< an item is 0 or has no value: the deck may give it elsewhere
};
/// Of the first `count` items, the first `required` of which must have a value.
RecordKey KeyOfRecord(const Keywords::IKeywordRecordData& record, const std::vector<RuleItem>& items,
    std::size_t count, std::size_t required, NameNumbers& names);

/// The same of a record whose last item may run on to another one, `last`: there is a key for each number.
class RecordKeys {
public:
    RecordKeys(const Keywords::IKeywordRecordData& record, const std::vector<RuleItem>& items,
        const RuleItem& last, std::size_t required, NameNumbers& names);

    /// As that of a `RecordKey`.
    bool HasZero() const { return key_.hasZero; }
    /// Calls `use` with each key, until it returns false.
    template <class Use>
    void ForEach(const Use& use) const
    {
        for (std::uint32_t at = first_; at < end_ && use(KeyAt(at)); ++at) { }
    }
    /// Calls `use` with a key for 64 numbers that follow each other, and a bit for each of them that is
    /// there; with one bit for a record without such a number.
    template <class Use>
    void ForEachBlock(const Use& use) const
    {
        for (std::uint32_t at = first_; at < end_;) {
            const std::uint32_t next = std::min(end_, (at | 63) + 1);
            use(KeyAt(at / 64), ~std::uint64_t(0) >> (64 - (next - at)) << (at % 64));
            at = next;
        }
    }

private:
    std::uint64_t KeyAt(std::uint32_t number) const
    {
        KeyOfParts key = KeyOfParts::From(key_.key);
        if (number > 0)
            key.Add(number);
        return key.Get();
    }

    RecordKey key_; // of the items before the number, or of all
    std::uint32_t first_ = 0; // of the numbers, which are below `end_`; 0 alone: there is no such number
    std::uint32_t end_ = 0;
};

/// The same for one text; 0 if it has none, or one that stands for several names.
std::uint64_t KeyOfName(const Keywords::IKeywordRecordData& record, const RuleItem& item, NameNumbers& names);

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// An item of a record.
struct RuleItem {
    int index = -1; ///< -1: the record has no such item
    Keywords::IKeywordDataMD::MDType::Enum type = Keywords::IKeywordDataMD::MDType::None;

    bool IsThere() const { return index >= 0; }
};

/// The item of that name. `record`: the metadata of a record.
RuleItem FindRuleItem(const Keywords::IKeywordDataMD& record, const std::string& name);

/// A condition of a rule, with its item in a record.
struct ItemCondition {
    const RecordCondition* rule = nullptr; ///< null: there is none
    RuleItem item;
    int choice = -1; ///< of an item with choices: the one that is meant
};

/// `record`: the metadata of a record. `condition` must outlive it.
ItemCondition FindCondition(const Keywords::IKeywordDataMD& record, const RecordCondition& condition);
/// Whether the record is as the condition says; true if there is none.
bool Holds(const ItemCondition& condition, const Keywords::IKeywordRecordData& record);

/// Of an item that is a whole number; 0 if it has no value.
long long NumberOf(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// Whether it has a value.
bool HasItem(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// Whether it has a value that is not 0; above 0 if it is a whole number.
bool IsItemSet(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// As it stands in a deck, a text without quotes; empty if it has no value.
std::string ValueText(const Keywords::IKeywordRecordData& record, const RuleItem& item);

/// What tells records apart: the values of some items, as numbers that are the same for the same values. That
/// others have one is too improbable to matter.
struct RecordKeys {
    /// The last of the items may run on to `last`: then there is a key for each number. There is none if one
    /// of the first `required` items has no value.
    RecordKeys(const Keywords::IKeywordRecordData& record, const std::vector<RuleItem>& items,
        const RuleItem& last, std::size_t required);

    boost::container::small_vector<std::uint64_t, 4> keys;
    bool hasZero = false; ///< an item is 0 or has no value: the deck may give it elsewhere
};

/// The same for one text; 0 if it has none, or one that stands for several names.
std::uint64_t KeyOfName(const Keywords::IKeywordRecordData& record, const RuleItem& item);

} // namespace Veld::Quor::Core::Decks

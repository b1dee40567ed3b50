#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/IKeywordDataMD.h"

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

/// Of an item that is a whole number; 0 if it has no value.
long long NumberOf(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// Whether it has a value.
bool HasItem(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// Whether it has a value that is not 0.
bool IsItemSet(const Keywords::IKeywordRecordData& record, const RuleItem& item);
/// As it stands in a deck, a text without quotes; empty if it has no value.
std::string ValueText(const Keywords::IKeywordRecordData& record, const RuleItem& item);

/// What tells records apart: the values of some items, as numbers that are the same for the same values. That
/// others have one is too improbable to matter.
struct RecordKeys {
    /// The last of the items may run on to `last`: then there is a key for each number. There is none if an
    /// item has no value.
    RecordKeys(const Keywords::IKeywordRecordData& record, const std::vector<RuleItem>& items,
        const RuleItem& last, bool mayLack = false);

    std::vector<std::uint64_t> keys;
    bool hasZero = false; ///< an item is 0: the deck may give its value elsewhere
};

/// The same for one text; 0 if it has none, or one that stands for several names.
std::uint64_t KeyOfName(const Keywords::IKeywordRecordData& record, const RuleItem& item);

} // namespace Veld::Quor::Core::Decks

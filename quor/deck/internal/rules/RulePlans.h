#pragma once

#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the rules say of one record of a keyword, with the items by their index.
struct RecordRules {
    struct Name {
        std::uint32_t kind; ///< index among the rules of names
        int item;
        Keywords::IKeywordDataMD::MDType::Enum type; ///< of the item; a list if it is one of texts
        bool isDefinition;
        bool mayComeFirst;
    };
    struct Index {
        std::size_t rule; ///< index among the rules of indices
        int item;
        int unless; ///< an item; -1: none
    };
    struct Order {
        int first;
        int last;
    };

    struct Assignment {
        int array;
        int value;
    };

    std::vector<Name> names;
    std::vector<Index> indices;
    std::vector<Order> orders;
    std::vector<Assignment> assignments;
    std::vector<RecordRules> inner; ///< of items that are records or lists of records
    int item = -1; ///< of these: the item

    bool IsEmpty() const
    {
        return names.empty() && indices.empty() && orders.empty() && assignments.empty() && inner.empty();
    }
};

/// What the rules say of one keyword in one section.
struct KeywordRules {
    RecordRules record; ///< that it has as data, or of which it has a list
    std::vector<RecordRules::Name> elements; ///< of the list of texts that it has as data
    const RegionRule* region = nullptr;
    const ExclusiveRule* exclusive = nullptr;
    bool isOnce = false;
    bool isOpener = false;
    bool isOfLocalGrid = false; ///< what is in its scope

    bool HasData() const { return !record.IsEmpty() || !elements.empty() || region; }
};

/// Works out once a deck what the rules say of each of its keywords.
class RulePlans {
public:
    /// `rules` must outlive it.
    explicit RulePlans(const RuleSet& rules)
        : rules_(rules)
    {
    }

    /// Lasts as long as this object.
    const KeywordRules& Get(const Keywords::IKeywordSyntax& syntax, Keywords::SectionType::Enum section);

private:
    using Key = std::pair<const Keywords::IKeywordSyntax*, Keywords::SectionType::Enum>;

    KeywordRules Make(const Key& key) const;
    RecordRules MakeRecord(const Key& key, const Keywords::IKeywordDataMD& md) const;
    void AddNames(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddNumbers(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;

    const RuleSet& rules_;
    std::map<Key, std::unique_ptr<const KeywordRules>> plans_;
};

} // namespace Veld::Quor::Core::Decks

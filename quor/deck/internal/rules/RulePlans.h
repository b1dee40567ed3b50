#pragma once

#include "quor/deck/internal/rules/RecordValues.h"
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
        bool isUncounted;
        bool isArray; ///< names of the kind are arrays
        const FindingVoice* voice;
    };
    struct Index {
        std::size_t number; ///< among the rules of indices
        RuleItem item;
        RuleItem unless;
    };
    struct Order {
        const OrderRule* rule;
        RuleItem first;
        RuleItem last;
    };
    struct Assignment {
        int array;
        int value;
    };
    struct Member {
        const MemberRule* rule;
        std::size_t number; ///< among the rules of members
        RuleItem owner;
        std::vector<RuleItem> items;
        RuleItem last;
    };
    struct Length {
        const LengthRule* rule;
        RuleItem item;
    };
    struct Distinct {
        const DistinctRule* rule;
        std::size_t number; ///< among the rules of what is distinct
        std::vector<RuleItem> items;
        RuleItem last;
    };
    struct Condition {
        const RequireRule::Condition* rule;
        RuleItem item;
    };
    struct Requirement {
        const RequireRule* rule;
        Condition when;
        std::vector<RuleItem> items;
        std::vector<Condition> unless;
    };
    struct Tree {
        std::size_t number; ///< among the rules of trees
        bool isMember; ///< what is below the name is no name of the tree
        RuleItem below;
        RuleItem above;
    };

    std::vector<Name> names;
    std::vector<Index> indices;
    std::vector<Order> orders;
    std::vector<Assignment> assignments;
    std::vector<Member> members;
    std::vector<Length> lengths;
    std::vector<Distinct> distinct;
    std::vector<Requirement> requirements;
    std::vector<Tree> trees;
    std::vector<RecordRules> inner; ///< of items that are records or lists of records
    int item = -1; ///< of these: the item
    bool isEmpty = true; ///< there is no rule
};

/// What the rules say of one keyword in one section.
struct KeywordRules {
    RecordRules record; ///< that it has as data, or of which it has a list
    std::vector<RecordRules::Name> elements; ///< of the list of texts that it has as data
    const RegionRule* region = nullptr;
    const ExclusiveRule* exclusive = nullptr;
    const OnceRule* once = nullptr;
    const OverwriteRule* overwrite = nullptr;
    std::vector<const LengthRule*> tables; ///< of the list of tables that it carries
    bool isOpener = false;
    bool isOfLocalGrid = false; ///< what is in its scope

    bool HasData() const { return !record.isEmpty || !elements.empty() || region || !tables.empty(); }
};

/// Works out once a deck what the rules say of each of its keywords.
class RulePlans {
public:
    /// `rules` must outlive it.
    explicit RulePlans(const RuleSet& rules)
        : rules_(rules)
    {
    }

    using Key = std::pair<const Keywords::IKeywordSyntax*, Keywords::SectionType::Enum>;

    /// Lasts as long as this object.
    const KeywordRules& Get(const Keywords::IKeywordSyntax& syntax, Keywords::SectionType::Enum section);

private:
    KeywordRules Make(const Key& key) const;
    RecordRules MakeRecord(const Key& key, const Keywords::IKeywordDataMD& md) const;
    void AddNames(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddNumbers(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddMembers(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddRequirements(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddTrees(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;

    const RuleSet& rules_;
    std::map<Key, std::unique_ptr<const KeywordRules>> plans_;
};

} // namespace Veld::Quor::Core::Decks

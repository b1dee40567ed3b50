#pragma once

#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/RecordValues.h"
#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
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
        bool isFirstOnly; ///< of a list
        bool isArray; ///< names of the kind are arrays
        bool isAfterScalars; ///< all items before it are
        const FindingVoice* voice;
        ItemCondition when;
        std::vector<std::uint32_t> defines = {}; ///< kinds that the same item defines
    };
    struct Index {
        std::size_t number; ///< among the rules of indices
        RuleItem item;
        RuleItem unless;
        RuleItem grid;
        ItemCondition when;
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
        ItemCondition when;
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
        ItemCondition when;
        bool isByName; ///< one text is all that tells records apart
    };
    struct Match {
        std::size_t number; ///< among the rules of matches
        const MatchRule::Use* use;
        RuleItem owner; ///< not there: that of the record before it in the keyword
        std::vector<RuleItem> numbers; ///< empty: the record names the owner of others
        RuleItem last;
        RuleItem unless;
    };
    struct Requirement {
        const RequireRule* rule;
        ItemCondition when;
        std::vector<RuleItem> items;
        std::vector<ItemCondition> unless;
    };
    struct Tree {
        std::size_t number; ///< among the rules of trees
        bool isMember; ///< what is below the name is no name of the tree
        RuleItem below;
        RuleItem above;
    };

    std::vector<Name> names;
    // What `names` look at, each once. No texts and no numbers: that is not all that they depend on.
    std::vector<RuleItem> nameTexts;
    std::vector<RuleItem> nameNumbers; ///< also items with choices, of conditions
    std::vector<ItemCondition> nameConditions; ///< all others
    std::vector<Index> indices;
    std::vector<Order> orders;
    std::vector<Assignment> assignments;
    std::vector<Member> members;
    std::vector<Length> lengths;
    std::vector<Distinct> distinct;
    std::vector<Requirement> requirements;
    RuleItem decider; ///< an item with choices on which requirements depend; not there: there is none
    std::vector<std::vector<std::size_t>>
        requirementsOf; ///< which of them may apply, by the choice of that item from -1 on
    std::vector<Tree> trees;
    std::vector<Match> matches;
    std::vector<RecordRules> inner; ///< of items that are records or lists of records
    int item = -1; ///< of these: the item
    std::size_t number = 0; ///< which other records don't have
    std::optional<std::size_t> slashes; ///< that end what is before it in the element; empty: not known
    bool hasNumbers = false; ///< there are indices, orders or assignments
    bool hasOthers = false; ///< there are members, lengths, matches or inner records
    bool hasTrees = false; ///< also of inner records
    bool hasTreeNames = false; ///< of what is below a name, some is a name of the tree
    /// All that is said of it, but for what it requires, depends on one name, numbers and choices.
    bool mayBeQuiet = false;
    static constexpr std::size_t mostQuiet = 32; ///< rules of what is distinct, where it may be
    bool isEmpty = true; ///< there is no rule
};

/// Adds to the keys of records what the rules of names look at but for texts.
inline void AddConditions(const RecordRules& rules,
    std::span<const Keywords::IKeywordRecordData* const> records, std::span<KeyOfParts> keys)
{
    for (const RuleItem& item : rules.nameNumbers)
        ForEachItem<int>(records, item, [&](std::size_t i, const auto& number) {
            keys[i].Add(static_cast<std::uint64_t>(number.ValueOr(-1)));
        });
    for (const ItemCondition& condition : rules.nameConditions)
        ForEachHolding(records, condition, [&](std::size_t i, bool holds) { keys[i].Add(holds ? 1 : 0); });
}

/// What the rules say of one keyword in one section.
struct KeywordRules {
    RecordRules record; ///< that it has as data, or of which it has a list
    std::vector<RecordRules::Name> elements; ///< of the list of names that it has as data
    std::vector<std::size_t> indices; ///< rules of the list of numbers that it has as data
    std::vector<std::size_t> arrays; ///< rules of indices for which it is an array
    const RegionRule* region = nullptr;
    const ExclusiveRule* exclusive = nullptr;
    const OnceRule* once = nullptr;
    const OverwriteRule* overwrite = nullptr;
    std::vector<const LengthRule*> tables; ///< of the list of tables that it carries
    bool isOpener = false;
    bool isOfLocalGrid = false; ///< what is in its scope
    RuleItem gridName; ///< of a record that has the sizes of a local grid
    bool definesMatches = false;

    bool HasData() const
    {
        return !record.isEmpty || !elements.empty() || !indices.empty() || !arrays.empty() || region
            || !tables.empty() || gridName.IsThere();
    }
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
    KeywordRules Make(const Key& key);
    RecordRules MakeRecord(const Key& key, const Keywords::IKeywordDataMD& md);
    void AddNames(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddNumbers(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddMembers(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddRequirements(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddTrees(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddMatches(const Key& key, const Keywords::IKeywordDataMD& md, RecordRules& record) const;
    void AddElements(const Key& key, const Keywords::IKeywordDataMD& element, KeywordRules& plan) const;

    const RuleSet& rules_;
    std::size_t records_ = 0; // so far
    std::map<Key, std::unique_ptr<const KeywordRules>> plans_;
};

} // namespace Veld::Quor::Core::Decks

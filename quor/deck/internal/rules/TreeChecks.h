#pragma once

#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows names that form a tree. How it is at the end of the deck counts: on the way there names are moved.
class TreeChecks {
public:
    explicit TreeChecks(const RuleContext& context)
        : context_(context)
        , trees_(context.rules.trees.size())
    {
    }

    /// `position`: of the record.
    void Follow(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    /// A record could not be read: nothing is reported.
    void Lose() { isWhole_ = false; }
    /// Reports loops, and names that have both names and other things below them.
    void EndDeck();

private:
    /// Below which name something is, and what says so.
    struct Place {
        std::string above;
        std::uint32_t keyword;
        ValuePosition position;
    };
    using Places = std::map<std::string, Place, std::less<>>; // of each name, in upper case
    struct Tree {
        Places names;
        Places members;
    };

    bool IsRoot(const TreeRule& rule, std::string_view name) const;
    bool CheckLoops(const TreeRule& rule, const Places& names);
    void CheckBoth(const TreeRule& rule, const Tree& tree);
    TextRange RangeOf(const Place& place) const;

    RuleContext context_;
    std::vector<Tree> trees_; // of each rule
    bool isWhole_ = true;
};

} // namespace Veld::Quor::Core::Decks

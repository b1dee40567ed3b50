#pragma once

#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows names that form a tree. How it is at the end of the deck counts: on the way there names are moved.
/// So its records are gone through then, if any places a name below another.
class TreeChecks {
public:
    explicit TreeChecks(const RuleContext& context)
        : context_(context)
        , trees_(context.rules.trees.size())
    {
    }

    /// Of the records of the last keyword of the deck.
    void Follow(const RecordRules& rules);
    /// A record could not be read: nothing is reported.
    void Lose() { isWhole_ = false; }
    /// The numbers of the keywords whose records are to be placed, in the order of the deck.
    std::vector<std::uint32_t> GetKeywords() const;
    /// `position`: of the record, in the keyword of that number.
    void Add(const RecordRules& rules, const Keywords::IKeywordRecordData& record, std::uint32_t keyword,
        ValuePosition position);
    /// Reports loops, and names that have both names and other things below them.
    void EndDeck();

private:
    /// Below which name something is, and what says so.
    struct Place {
        std::string name;
        std::string above;
        std::uint32_t keyword;
        ValuePosition position;
    };
    /// The last place of each name, in the order of their first ones.
    class Places {
    public:
        void Set(Place&& place);
        /// Of a name in any case; null if it has none.
        const Place* Find(std::string_view name) const;
        const std::vector<Place>& Get() const { return places_; }

    private:
        std::vector<Place> places_;
        KeyTable<std::uint32_t> numbers_; // among these
    };
    struct Tree {
        Places names;
        Places members;
    };

    bool IsRoot(const TreeRule& rule, std::string_view name) const;
    bool CheckLoops(const TreeRule& rule, const Places& names);
    void ReportLoop(const TreeRule& rule, const Place& place);
    void CheckBoth(const TreeRule& rule, const Tree& tree);
    TextRange RangeOf(const Place& place) const;

    RuleContext context_;
    std::vector<Tree> trees_; // of each rule
    std::vector<std::uint32_t> keywords_;
    bool hasNames_ = false; // below others
    bool isWhole_ = true;
};

} // namespace Veld::Quor::Core::Decks

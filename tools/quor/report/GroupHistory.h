#pragma once

#include "quor/deck/Deck.h"
#include "tools/quor/report/TargetSeries.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// Follows the tree of groups, and the targets and limits of groups, through a schedule. What an item means
/// is what the rules say of it.
class GroupHistory {
public:
    GroupHistory(const Core::Decks::Deck& deck, const Core::Decks::DeckLanguage& language);

    /// `step`: number of the report step, 0 before the first.
    void Follow(const Core::Decks::DeckKeyword& keyword, std::size_t step);

    /// Changes in their order: step, name, name of the group above, and whether the first is a well.
    nlohmann::ordered_json GetTree() const { return tree_; }
    /// The group above all others; empty if the deck has no groups.
    const std::string& GetRoot() const { return root_; }
    const TargetSeries& GetSeries() const { return series_; }

private:
    using Record = Core::Keywords::IKeywordRecordData;
    /// The items of a keyword that has to do with groups; -1: not there.
    struct Plan {
        int well = -1;
        int groupOfWell = -1;
        int group = -1;
        int above = -1;
        std::vector<int> targets;
    };
    const Plan& PlanOf(const Core::Keywords::IKeywordSyntax& syntax);
    Plan MakePlan(const Core::Keywords::IKeywordSyntax& syntax);
    void Place(const std::string& name, const std::string& above, bool isWell, std::size_t step);

    const Core::Decks::DeckLanguage& language_;
    TargetSeries series_;
    std::map<const Core::Keywords::IKeywordSyntax*, Plan> plans_;
    std::string root_;
    nlohmann::ordered_json tree_ = nlohmann::ordered_json::array();
    std::map<std::string, std::string>
        groupsAbove_; // by what is placed last; a well has a blank before its name
};

} // namespace Veld::Quor::Tools

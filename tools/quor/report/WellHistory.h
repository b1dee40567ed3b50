#pragma once

#include "quor/deck/Deck.h"
#include "quor/deck/DeckLanguage.h"
#include "tools/quor/report/TargetSeries.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordRecordData;
}

namespace Veld::Quor::Tools {

/// Follows what the keywords of a schedule say of wells: connections, states, rates and targets over time.
/// What an item means is what the rules say of it.
class WellHistory {
public:
    WellHistory(const Core::Decks::Deck& deck, const Core::Decks::DeckLanguage& language);

    /// `step`: number of the report step, 0 before the first.
    void Follow(const Core::Decks::DeckKeyword& keyword, std::size_t step);

    /// By well: head, connections, states and events, each with its step.
    nlohmann::ordered_json GetWells() const { return wells_; }
    const TargetSeries& GetSeries() const { return series_; }

private:
    using Record = Core::Keywords::IKeywordRecordData;
    /// What a keyword of wells is, worked out once.
    struct Plan {
        int well = -1; ///< the item that names wells; -1: it names none
        bool introduces = false;
        int status = -1;
        std::vector<int> cellsOfStatus;
        const char* state = ""; ///< of a well that it controls
        int headI = -1;
        int headJ = -1;
        int connection[4] = {-1, -1, -1, -1}; ///< I, J, first K, last K
        int changed = -1; ///< the item that names a target of the keyword that controls the well
        int newTarget = -1;
        std::vector<int> targets; ///< what is followed over time
    };
    const Plan& PlanOf(const Core::Keywords::IKeywordSyntax& syntax);
    Plan MakePlan(const Core::Keywords::IKeywordSyntax& syntax) const;
    static void AddRole(
        const Core::Decks::KeywordRole& role, const Core::Keywords::IKeywordRecordMD& record, Plan& plan);
    std::vector<std::string> FindWells(const std::string& pattern) const;
    void FollowRecord(const Core::Decks::DeckKeyword& keyword, const Plan& plan, const Record& record);
    void AddConnection(const Plan& plan, const Record& record, nlohmann::ordered_json& well) const;
    void AddState(const Plan& plan, const Record& record, nlohmann::ordered_json& well) const;
    void AddValues(const Core::Decks::DeckKeyword& keyword, const Plan& plan, const Record& record,
        const std::string& well);

    const Core::Decks::DeckLanguage& language_;
    std::size_t step_ = 0;
    std::map<const Core::Keywords::IKeywordSyntax*, Plan> plans_;
    std::map<std::string, nlohmann::ordered_json> wells_;
    TargetSeries series_;
    std::map<std::string, std::string> controls_; // by well: the keyword that controls it
};

} // namespace Veld::Quor::Tools

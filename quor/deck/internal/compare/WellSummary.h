#pragma once

#include "quor/deck/DeckSummary.h"
#include "quor/deck/internal/compare/RecordItems.h"
#include "quor/deck/internal/physics/RolePlans.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/foundation/service/Time.h"

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Gathers the wells and groups of a deck from its keywords, as they come. Rules tell which keyword says
/// what; without them a deck has no wells.
class WellSummary {
public:
    /// `plans`, all roles of the rules, must outlive it.
    WellSummary(const RuleSet& rules, RolePlans& plans);

    void Follow(const KeywordInstance& keyword, const Core::Service::Time& now);

    /// In the order in which they were introduced.
    std::vector<Well> GetWells() const;
    /// Each after the one above it; last, at the top, those that are above themselves.
    std::vector<Group> GetGroups() const;

private:
    using Record = RecordItems::Record;
    /// What the last record says of how a well runs: its text is made in the end.
    struct Control {
        enum class Shown {
            Text, ///< that of the well, whatever the control
            AsGiven,
            AsOpen, ///< the control, as of a well that is open
        };
        const std::string* keyword = nullptr; ///< null: there was none
        const Record* record = nullptr;
        const RecordRoles* roles = nullptr;
        Shown shown = Shown::Text;
    };
    struct Entry {
        Well well;
        Control control; // the last one
        std::size_t number = 0; // in the order of coming
        std::set<std::array<int, 4>> completions; // I, J, K1, K2
    };

    void ReadRecord(const RecordItems& items);
    void ReadWell(const RecordItems& items);
    void ReadGroup(const RecordItems& items);
    void ReadCompletion(const RecordItems& items);
    void ReadStatus(const RecordItems& items);

    void AddGroup(const std::string& name, const std::string& parent, bool isFirm);
    template <class Visit>
    void ForEachWell(const std::string& pattern, Visit visit);

    static std::string TextOf(const Control& control);

    RolePlans& plans_;
    std::string topGroup_; // empty: rules tell of none
    std::map<std::string, Entry> wells_;
    std::map<std::string, std::string> parents_; // of groups, by name
    std::vector<std::string> groups_; // in the order of coming
    // Of the keyword being read
    const std::string* keyword_ = nullptr;
    Core::Service::Time now_;
};

} // namespace Veld::Quor::Core::Decks

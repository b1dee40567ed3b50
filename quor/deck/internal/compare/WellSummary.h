#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/DeckSummary.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/foundation/service/Time.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Gathers the wells and groups of a deck from its keywords, as they come. A language whose keywords have
/// other forms, or lack the items, has no wells.
class WellSummary {
public:
    void Follow(const KeywordInstance& keyword, const Core::Service::Time& now);

    /// In the order in which they were introduced.
    std::vector<Well> GetWells() const;
    /// Each after the one above it; last, at the top, those that are above themselves.
    std::vector<Group> GetGroups() const;

private:
    using Record = Core::Keywords::IKeywordRecordData;
    struct Entry {
        Well well;
        std::string control; // the last one as of a well that is open
        std::size_t number = 0; // in the order of coming
        std::set<std::array<int, 4>> completions; // I, J, K1, K2
    };
    struct Reader {
        const char* keyword;
        void (WellSummary::*read)(const Record& record);
    };
    static const Reader* FindReader(const std::string& keyword);

    void ReadWell(const Record& record);
    void ReadGroup(const Record& record);
    void ReadCompletion(const Record& record);
    void ReadControl(const Record& record);
    void ReadStatus(const Record& record);

    void AddGroup(const std::string& name, const std::string& parent, bool isFirm);
    template <class Visit>
    void ForEachWell(const std::string& pattern, Visit visit);

    std::map<std::string, Entry> wells_;
    std::map<std::string, std::string> parents_; // of groups, by name
    std::vector<std::string> groups_; // in the order of coming
    // Of the keyword being read
    std::string keyword_;
    Core::Service::Time now_;
};

} // namespace Veld::Quor::Core::Decks

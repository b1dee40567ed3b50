#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/DeckSummary.h"
#include "quor/deck/internal/compare/RecordItems.h"
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
    /// What the last record says of how a well runs: its text is made in the end.
    struct Control {
        enum class Shown {
            Text, ///< that of the well, whatever the control
            AsGiven,
            AsOpen, ///< the control, as of a well that is open
        };
        const std::string* keyword = nullptr; ///< null: there was none
        const Record* record = nullptr;
        Shown shown = Shown::Text;
    };
    struct Entry {
        Well well;
        Control control; // the last one
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

    std::string FindOtherWord(const Record& record, const char* name) const;
    std::string TextOf(const Control& control) const;

    std::map<std::string, Entry> wells_;
    std::map<std::string, std::string> parents_; // of groups, by name
    std::vector<std::string> groups_; // in the order of coming
    // Of the keyword being read
    const std::string* keyword_ = nullptr;
    mutable RecordItems items_;
    Core::Service::Time now_;
};

} // namespace Veld::Quor::Core::Decks

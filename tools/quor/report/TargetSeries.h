#pragma once

#include "quor/foundation/UnitSystem.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordRecordData;
class IKeywordRecordMD;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Tools {

/// Rates, targets and limits over time, of wells and of groups: by keyword and item what the schedule gives,
/// with the step.
class TargetSeries {
public:
    /// `of`: "well" or "group".
    TargetSeries(Core::Keywords::UnitSystem::Enum units, std::string of);

    /// The items of such a keyword that are followed: reals with a unit.
    static std::vector<int> FindItems(const Core::Keywords::IKeywordRecordMD& record);

    /// The values of `items` of the record that are given.
    void Add(const std::string& keyword, const std::vector<int>& items,
        const Core::Keywords::IKeywordRecordData& record, const std::string& name, std::size_t step);
    /// The new value of an item of a keyword that gave one before; nothing if it didn't.
    void Change(const std::string& keyword, const std::string& item, const std::string& name,
        std::size_t step, double value);
    /// Appends them to a list.
    void Write(nlohmann::ordered_json& list) const;

private:
    Core::Keywords::UnitSystem::Enum units_;
    std::string of_;
    std::vector<std::string> order_; // keys, as the schedule gives them first
    // By "KEYWORD ITEM": what it is, and the values by name.
    std::map<std::string, nlohmann::ordered_json> series_;
    std::map<std::string, std::map<std::string, nlohmann::ordered_json>> values_;
};

} // namespace Veld::Quor::Tools

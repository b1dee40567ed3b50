#pragma once

#include "quor/syntax/ISummaryMnemonicInfo.h"
#include "quor/syntax/SummaryCategories.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// The categories that a summary vector is asked for; empty: any.
struct SummaryFilter {
    std::optional<Core::Keywords::SummaryEntity::Enum> entity;
    std::optional<Core::Keywords::SummaryFlow::Enum> flow;
    std::optional<Core::Keywords::SummaryFunction::Enum> function;
    std::optional<Core::Keywords::SummaryOption::Enum> option;
    std::optional<Core::Keywords::SummaryPhase::Enum> phase;

    /// `info` is null for a keyword that is no summary vector: it meets only the filter that asks nothing.
    bool Admits(const Core::Keywords::ISummaryMnemonicInfo* info) const;
};

/// Adds an option for each category, which refuses words that are none. `filter` must outlive the
/// application.
void AddSummaryOptions(CLI::App& command, SummaryFilter& filter);

/// Category to value, by name, of those that the vector has.
nlohmann::ordered_json CategoriesJson(const Core::Keywords::ISummaryMnemonicInfo& info);
/// The same as pairs.
std::vector<std::pair<const char*, std::string>> CategoriesOf(
    const Core::Keywords::ISummaryMnemonicInfo& info);

} // namespace Veld::Quor::Tools

#pragma once

#include "quor/deck/internal/rules/RuleContext.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace Veld::Quor::Core::Decks {

/// Reports arrays that are given twice for the same cells, with nothing between them that reads the first
/// one.
class ArrayChecks {
public:
    explicit ArrayChecks(const RuleContext& context)
        : context_(context)
    {
    }

    /// The last keyword of the deck, which is an array.
    void Follow(const OverwriteRule& rule);
    /// An operation reads or writes the array.
    void Forget(std::string_view array);

private:
    /// A section and a box in it: there a further array of that name is for the same cells.
    using Cells = std::pair<Keywords::SectionType::Enum, std::uint32_t>;

    RuleContext context_;
    std::map<std::string, std::map<Cells, std::uint32_t>, std::less<>> arrays_; // the keyword of each
};

} // namespace Veld::Quor::Core::Decks

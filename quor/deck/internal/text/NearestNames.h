#pragma once

#include "quor/foundation/SectionType.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords {
class IKeywordSyntax;
class KeywordSyntaxTable;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Core::Decks {

/// The hint that offers words; empty if there are none.
std::string SuggestionOf(const std::vector<std::string>& nearest);

/// The names of a table that a misspelt one may stand for: those that aren't hidden, aliases included, no
/// wildcards. Never changes; must not outlive the table.
class NearestNames {
public:
    explicit NearestNames(Core::Keywords::KeywordSyntaxTable& table);

    /// At most three: those valid in `section` before others, then the nearest first, and of
    /// equally near ones those that start alike. `SectionType::None` prefers none.
    std::vector<std::string> Find(const std::string& word, Core::Keywords::SectionType::Enum section) const;

private:
    struct Name {
        std::string text;
        const Core::Keywords::IKeywordSyntax* syntax;
        std::uint64_t characters; // a bit for each that occurs
    };

    std::map<std::size_t, std::vector<Name>> byLength_;
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/Finding.h"
#include "tools/quor/findings/FindingFix.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// The forms in which findings are told.
enum class FindingFormat {
    Text, ///< for people, with the line that each is about
    Json,
    Sarif, ///< version 2.1.0 of the interchange format of static analysis
    Gcc, ///< a line each, as compilers write them
    GitHub, ///< a line each, as workflow commands
};

/// `format` must outlive the application.
void AddFindingFormatOption(CLI::App& command, FindingFormat& format);
/// `limit` must outlive the application. `each` ends the sentence on what is limited.
void AddMaxFindingsOption(CLI::App& command, std::size_t& limit, const std::string& scope);

/// What is known of a code of findings.
struct FindingRule {
    std::string code;
    std::string meaning;
    Core::Decks::Severity severity;
};

/// The rows of a table of codes.
template <class CodeInfo>
std::vector<FindingRule> RulesOf(const std::vector<CodeInfo>& codes)
{
    std::vector<FindingRule> rules;
    for (const CodeInfo& info : codes)
        rules.push_back({info.name, info.meaning, info.severity});
    return rules;
}

/// The findings of one input.
struct FindingSet {
    FindingSet(const Core::Decks::Findings& all, const std::vector<Fix>* ofAll = nullptr)
        : findings(&all)
        , fixes(ofAll)
    {
    }
    const Core::Decks::Findings* findings;
    const std::vector<Fix>* fixes; ///< null: there are none
};
using FindingSets = std::vector<FindingSet>;

/// The findings in one of the formats that need nothing but them: all but text and JSON. `rules` may be
/// empty, or lack some of the codes.
std::string FindingsText(
    FindingFormat format, const FindingSets& sets, const std::vector<FindingRule>& rules);

} // namespace Veld::Quor::Tools

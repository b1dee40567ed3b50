#pragma once

#include "quor/deck/CodeInfo.h"
#include "quor/deck/Finding.h"
#include "tools/quor/findings/FindingFix.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// The forms in which findings are reported.
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

/// The findings in one of the formats that need nothing but them: all but text and JSON. `codes` has the
/// codes of all of them.
std::string FindingsText(
    FindingFormat format, const FindingSets& sets, const std::vector<Core::Decks::CodeInfo>& codes);

} // namespace Veld::Quor::Tools

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
    Jsonl, ///< a line of JSON for each deck
    Sarif, ///< version 2.1.0 of the interchange format of static analysis
    JUnit, ///< the XML that CI systems read of tests
    Gcc, ///< a line each, as compilers write them
    GitHub, ///< a line each, as workflow commands
};

/// `format` must outlive the application; one of these formats.
void AddFindingFormatOption(
    CLI::App& command, FindingFormat& format, const std::vector<FindingFormat>& formats);

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

/// The findings in one of the formats that need nothing but them: SARIF and lines. `codes` has the codes of
/// all of them.
std::string FindingsText(
    FindingFormat format, const FindingSet& set, const std::vector<Core::Decks::CodeInfo>& codes);

} // namespace Veld::Quor::Tools

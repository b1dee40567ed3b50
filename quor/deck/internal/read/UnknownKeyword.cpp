#include "quor/deck/internal/read/UnknownKeyword.h"

#include "quor/deck/NearestWords.h"
#include "quor/deck/internal/read/WordHints.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NearestNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

const Entry* ReportUnknownKeyword(const TextRange& range, std::string_view word, SectionType::Enum section,
    Vocabulary& vocabulary, FindingReporter& reporter)
{
    if (reporter.IsFull()) {
        reporter.Report(range, Code::UnknownKeyword, {});
        return nullptr;
    }
    const std::string name(word);
    const auto& nearest = vocabulary.FindNearest(name, section);
    std::string hint = SuggestionOf(nearest);
    if (hint.empty() && word.size() > longestName)
        hint = fmt::format("keyword names have at most {} characters", longestName);
    reporter.Report(
        range, Code::UnknownKeyword, fmt::format("unknown keyword '{}'", Shorten(word)), std::move(hint));
    const auto isNear = [&name](const std::string& known) { return EditDistance(name, known, 1) <= 1; };
    const auto first = std::find_if(nearest.begin(), nearest.end(), isNear);
    const bool isSure = std::count_if(nearest.begin(), nearest.end(), isNear) == 1;
    return isSure ? vocabulary.Find(*first) : nullptr;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/read/deck/UnknownKeyword.h"

#include "quor/deck/internal/read/values/WordHints.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NearestNames.h"
#include "quor/deck/internal/text/NearestWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Too much would be lost if another keyword was meant.
bool EndsText(const Entry& entry)
{
    return entry.role == KeywordDeckRole::End || entry.role == KeywordDeckRole::EndInclude;
}

} // namespace

const Entry* FindMeantKeyword(const std::string& word, SectionType::Enum section, Vocabulary& vocabulary)
{
    const auto& nearest = vocabulary.FindNearest(word, section);
    const auto isNear = [&](const std::string& known) {
        const Entry& entry = *vocabulary.Find(known);
        return EditDistance(word, known, 1) <= 1
            && (section == SectionType::None || entry.role == KeywordDeckRole::Section
                || entry.valid.ofTarget.Allows(section));
    };
    const auto first = std::find_if(nearest.begin(), nearest.end(), isNear);
    return std::count_if(nearest.begin(), nearest.end(), isNear) == 1 ? vocabulary.Find(*first) : nullptr;
}

const Entry* FindMeantStart(std::string_view word, Vocabulary& vocabulary)
{
    const std::string first = SectionType::ToString(SectionType::RUNSPEC);
    return EditDistance(std::string(word), first, 1) <= 1 ? vocabulary.Find(first) : nullptr;
}

const Entry* ReportUnknownKeyword(const TextRange& range, std::string_view word, SectionType::Enum section,
    Vocabulary& vocabulary, FindingReporter& reporter)
{
    std::string message = fmt::format("unknown keyword '{}'", Shorten(word));
    if (reporter.IsFull()) {
        reporter.Report(range, Code::UnknownKeyword, std::move(message));
        return nullptr;
    }
    const std::string name(word);
    std::string hint = SuggestionOf(vocabulary.FindNearest(name, section));
    if (hint.empty() && word.size() > longestName)
        hint = fmt::format("keyword names have at most {} characters", longestName);
    const Entry* const meant = FindMeantKeyword(name, section, vocabulary);
    std::vector<TextEdit> fix;
    if (meant && !EndsText(*meant) && meant->valid.ofTarget.Allows(section))
        fix.push_back({range, meant->spelling});
    reporter.Report(range, Code::UnknownKeyword, std::move(message), std::move(hint), std::move(fix));
    return meant && !EndsText(*meant) ? meant : nullptr;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/FindingCodes.h"
#include "quor/deck/Portability.h"

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Core::Decks {

namespace {

struct LimitRow {
    Code code;
    Unjudged::Kind kind;
};

/// What is wrong with the deck on any simulator. The rest is judged: it is lost, or it is no loss.
constexpr LimitRow limitRows[] = {{Code::UnknownKeyword, Unjudged::Kind::UnknownKeyword},
    {Code::IncludeName, Unjudged::Kind::File}, {Code::IncludeMissing, Unjudged::Kind::File},
    {Code::IncludeLoop, Unjudged::Kind::File}, {Code::IncludeDepth, Unjudged::Kind::File},
    {Code::IncludeCount, Unjudged::Kind::File}, {Code::UnknownAlias, Unjudged::Kind::File},
    {Code::Encoding, Unjudged::Kind::File}, {Code::UnknownVariable, Unjudged::Kind::Variable},
    {Code::StrayText, Unjudged::Kind::Error}, {Code::TooManyValues, Unjudged::Kind::Error},
    {Code::WrongType, Unjudged::Kind::Error}, {Code::BadRepeat, Unjudged::Kind::Error},
    {Code::NotAChoice, Unjudged::Kind::Error}, {Code::UnknownName, Unjudged::Kind::Error},
    {Code::UnclosedData, Unjudged::Kind::Error}, {Code::UnclosedQuote, Unjudged::Kind::Error},
    {Code::UnclosedText, Unjudged::Kind::Error}, {Code::UnclosedSkip, Unjudged::Kind::Error},
    {Code::CommaInNumber, Unjudged::Kind::Error}, {Code::OddCharacter, Unjudged::Kind::Error}};

const LimitRow* FindLimit(const Finding& finding)
{
    const auto* const row = std::find_if(std::begin(limitRows), std::end(limitRows),
        [&finding](const LimitRow& limit) { return finding.code == InfoOf(limit.code).name; });
    return row == std::end(limitRows) ? nullptr : row;
}

} // namespace

std::vector<Unjudged> FindUnjudged(const Deck& deck)
{
    std::vector<Unjudged> found;
    for (const Finding& finding : deck.GetFindings()) {
        const LimitRow* const limit = FindLimit(finding);
        if (!limit)
            continue;
        const bool isUnknown = limit->kind == Unjudged::Kind::UnknownKeyword;
        const std::string text =
            isUnknown ? std::string(deck.GetFiles().GetText(finding.range)) : finding.message;
        auto known = std::find_if(found.begin(), found.end(),
            [&](const Unjudged& other) { return other.kind == limit->kind && other.text == text; });
        if (known == found.end())
            known = found.insert(found.end(), {limit->kind, text, 0, finding.location});
        ++known->count;
    }
    std::stable_sort(
        found.begin(), found.end(), [](const Unjudged& a, const Unjudged& b) { return a.kind < b.kind; });
    return found;
}

} // namespace Veld::Quor::Core::Decks

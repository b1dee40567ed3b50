#include "quor/deck/FindingCodes.h"
#include "quor/deck/Portability.h"

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Core::Decks {

namespace {

struct UncheckedRow {
    Code code;
    Unchecked::Kind kind;
};

/// What is wrong with the deck on any simulator. The rest is checked: it is lost, or it is no loss.
constexpr UncheckedRow uncheckedRows[] = {{Code::UnknownKeyword, Unchecked::Kind::UnknownKeyword},
    {Code::IncludeName, Unchecked::Kind::File}, {Code::IncludeMissing, Unchecked::Kind::File},
    {Code::IncludeLoop, Unchecked::Kind::File}, {Code::IncludeDepth, Unchecked::Kind::File},
    {Code::IncludeCount, Unchecked::Kind::File}, {Code::UnknownAlias, Unchecked::Kind::File},
    {Code::Encoding, Unchecked::Kind::File}, {Code::UnknownVariable, Unchecked::Kind::Variable},
    {Code::StrayText, Unchecked::Kind::Error}, {Code::TooManyValues, Unchecked::Kind::Error},
    {Code::WrongType, Unchecked::Kind::Error}, {Code::BadRepeat, Unchecked::Kind::Error},
    {Code::NotAChoice, Unchecked::Kind::Error}, {Code::UnknownName, Unchecked::Kind::Error},
    {Code::UnclosedData, Unchecked::Kind::Error}, {Code::UnclosedQuote, Unchecked::Kind::Error},
    {Code::UnclosedText, Unchecked::Kind::Error}, {Code::UnclosedSkip, Unchecked::Kind::Error},
    {Code::CommaInNumber, Unchecked::Kind::Error}, {Code::OddCharacter, Unchecked::Kind::Error}};

const UncheckedRow* FindUncheckedRow(const Finding& finding)
{
    const auto* const row = std::find_if(std::begin(uncheckedRows), std::end(uncheckedRows),
        [&finding](const UncheckedRow& each) { return finding.code == InfoOf(each.code).name; });
    return row == std::end(uncheckedRows) ? nullptr : row;
}

} // namespace

std::vector<Unchecked> FindUnchecked(const Deck& deck)
{
    std::vector<Unchecked> found;
    for (const Finding& finding : deck.GetFindings()) {
        const UncheckedRow* const row = FindUncheckedRow(finding);
        if (!row)
            continue;
        const bool isUnknown = row->kind == Unchecked::Kind::UnknownKeyword;
        const std::string text =
            isUnknown ? std::string(deck.GetFiles().GetText(finding.range)) : finding.message;
        auto known = std::find_if(found.begin(), found.end(),
            [&](const Unchecked& other) { return other.kind == row->kind && other.text == text; });
        if (known == found.end())
            known = found.insert(found.end(), {row->kind, text, 0, finding.location});
        ++known->count;
    }
    std::stable_sort(
        found.begin(), found.end(), [](const Unchecked& a, const Unchecked& b) { return a.kind < b.kind; });
    return found;
}

} // namespace Veld::Quor::Core::Decks

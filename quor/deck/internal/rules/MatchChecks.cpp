#include "quor/deck/internal/rules/MatchChecks.h"

#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// A name that may stand for several.
bool IsOfSeveral(const std::string& owner)
{
    return owner.find_first_of("*?") != std::string::npos;
}

bool Overlap(const std::pair<long long, long long>& a, const std::pair<long long, long long>& b)
{
    return a.second == 0 || b.second == 0 || (a.first <= b.second && b.first <= a.second);
}

std::vector<std::string> DefinersOfMatch(const MatchRule& rule)
{
    const auto first = std::find_if(
        rule.uses.begin(), rule.uses.end(), [](const MatchRule::Use& use) { return use.isDefinition; });
    return first == rule.uses.end() ? std::vector<std::string>() : first->keywords;
}

} // namespace

/// Of a record that names no owner: that of the record before it.
const std::string& MatchChecks::OwnerOf(const RecordRules::Match& match, const IKeywordRecordData& record)
{
    if (match.owner.IsThere())
        owner_ = ToUpper(ValueText(record, match.owner));
    return owner_;
}

/// A run without its end goes on to the end.
MatchChecks::Ranges MatchChecks::RangesOf(const RecordRules::Match& match, const IKeywordRecordData& record)
{
    Ranges ranges = {};
    for (std::size_t i = 0; i < match.numbers.size(); ++i) {
        const long long number = NumberOf(record, match.numbers[i]);
        ranges[i] = {number, number};
    }
    if (match.last.IsThere()) {
        Range& run = ranges[match.numbers.size() - 1];
        const long long last = NumberOf(record, match.last);
        if (run.first > 0 || last > 0)
            run = {std::max(run.first, 1LL), last > 0 ? last : std::numeric_limits<long long>::max()};
    }
    return ranges;
}

/// Whether the record gives a number that must be defined.
bool MatchChecks::Refers(
    const MatchRule& rule, const RecordRules::Match& match, const IKeywordRecordData& record) const
{
    return !HasItem(record, match.unless)
        && std::any_of(match.numbers.begin(), match.numbers.end(), [&](const RuleItem& item) {
               const long long number = NumberOf(record, item);
               return number > 0 && !Contains(rule.always, std::to_string(number));
           });
}

void MatchChecks::Follow(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position)
{
    for (const RecordRules::Match& match : rules.matches) {
        if (match.use->isDefinition || isLost_[match.number])
            continue;
        const std::string& owner = OwnerOf(match, record);
        if (!IsOfSeveral(owner) && Refers(context_.rules.matches[match.number], match, record))
            references_[match.number][owner].push_back(
                {&match, &record, static_cast<std::uint32_t>(context_.deck.keywords.size() - 1), position,
                    RangesOf(match, record)});
    }
}

void MatchChecks::Lose(const RecordRules& rules)
{
    for (const RecordRules::Match& match : rules.matches)
        isLost_[match.number] = isLost_[match.number] || match.use->isDefinition;
}

bool MatchChecks::HasReferences() const
{
    return std::any_of(
        references_.begin(), references_.end(), [](const auto& references) { return !references.empty(); });
}

/// Of an owner that nothing refers to nothing need be kept.
void MatchChecks::Define(const RecordRules& rules, const IKeywordRecordData& record)
{
    for (const RecordRules::Match& match : rules.matches) {
        if (!match.use->isDefinition)
            continue;
        const std::string& owner = OwnerOf(match, record);
        isLost_[match.number] = isLost_[match.number] || IsOfSeveral(owner);
        const bool isHead = match.numbers.empty() && match.use->items.size() > 1;
        if (!isHead && references_[match.number].count(owner) > 0)
            definitions_[match.number][owner].push_back(RangesOf(match, record));
    }
}

/// An owner without any is left alone: that is for the rules of its name to say.
void MatchChecks::EndDeck()
{
    for (std::size_t number = 0; number < references_.size(); ++number) {
        for (const auto& [owner, references] : references_[number]) {
            const auto defined = definitions_[number].find(owner);
            if (isLost_[number] || defined == definitions_[number].end())
                continue;
            for (const Reference& reference : references) {
                const auto isMatch = [&](const Ranges& ranges) {
                    return std::equal(ranges.begin(), ranges.end(), reference.ranges.begin(), Overlap);
                };
                if (std::none_of(defined->second.begin(), defined->second.end(), isMatch))
                    Report(owner, context_.rules.matches[number], reference);
            }
        }
    }
}

void MatchChecks::Report(const std::string& owner, const MatchRule& rule, const Reference& reference)
{
    const RecordRules::Match& match = *reference.match;
    std::string numbers;
    int first = -1;
    for (std::size_t i = 0; i < match.numbers.size(); ++i) {
        const long long number = NumberOf(*reference.record, match.numbers[i]);
        if (number == 0)
            continue;
        first = first < 0 ? match.numbers[i].index : first;
        numbers += fmt::format("{}{} {}", numbers.empty() ? "" : ", ", match.use->items[i + 1], number);
    }
    const KeywordInstance& keyword = context_.deck.keywords[reference.keyword];
    ValuePosition position = reference.position;
    position.item = first;
    context_.reporter.ReportAs(match.use->voice, FindValue(context_.deck, keyword, position),
        Code::UndefinedName,
        fmt::format(
            "{}: '{}' has no {} at {}", keyword.syntax->GetName(), Shorten(owner), rule.what, numbers),
        fmt::format(
            "correct the numbers, or define the {} with {}", rule.what, Choices(DefinersOfMatch(rule))));
}

} // namespace Veld::Quor::Core::Decks

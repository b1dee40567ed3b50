#include "quor/deck/internal/compare/ComparisonUnits.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/data/RecordIdentity.h"
#include "quor/deck/internal/read/deck/TimeLine.h"
#include "quor/deck/internal/text/LineText.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

Step StepAt(const DeckContents& deck, SectionType::Enum section, std::size_t step)
{
    if (step == noIndex)
        return {section, {}, 0};
    const Core::Service::Time& time = deck.steps[step].time;
    return {section, time, time.IsDef() ? 0 : step + 1};
}

Step StepOf(const DeckContents& deck, std::size_t keyword)
{
    return StepAt(deck, deck.keywords[keyword].section, deck.keywords[keyword].step);
}

class Splitter {
public:
    explicit Splitter(const DeckContents& deck)
        : deck_(deck)
    {
    }

    void Add(std::size_t index, StepUnits& units);

private:
    void AddUnits(const KeywordInstance& keyword, StepUnits& units);
    ComparisonUnit MakeUnit(
        const KeywordInstance& keyword, const IKeywordData* data, const TextRange& range) const;
    const std::string& KeyOf(std::uint32_t scope) const
    {
        return scope == noIndex ? outside_ : scopeKeys_[scope];
    }

    const DeckContents& deck_;
    std::vector<std::string> scopeKeys_; // of the deck's scopes so far, by index
    const std::string outside_;
};

void Splitter::Add(std::size_t index, StepUnits& units)
{
    const KeywordInstance& keyword = deck_.keywords[index];
    const std::size_t before = units.units.size();
    if (!TimeLine::Advances(keyword, deck_.language.RolesOf(*keyword.syntax)))
        AddUnits(keyword, units);
    if (scopeKeys_.size() < deck_.scopes.size() && deck_.scopes[scopeKeys_.size()].opener == index)
        scopeKeys_.push_back(units.units.size() > before ? units.units.back().key : KeyOf(keyword.scope));
}

void Splitter::AddUnits(const KeywordInstance& keyword, StepUnits& units)
{
    const IKeywordData* const data = keyword.data.get();
    if (!data || !IsListOfNamedRecords(data->GetMD())) {
        units.units.push_back(MakeUnit(keyword, data, keyword.name));
        return;
    }
    const auto& list = static_cast<const IKeywordListData&>(*data);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        units.units.push_back(
            MakeUnit(keyword, static_cast<const IKeywordData*>(list.GetData(i)), RangeOf(keyword, i)));
}

ComparisonUnit Splitter::MakeUnit(
    const KeywordInstance& keyword, const IKeywordData* data, const TextRange& range) const
{
    ComparisonUnit unit{KeyOf(keyword.scope), deck_.NameOf(keyword), {}, &keyword, data, range};
    if (data && keyword.syntax->HasIdentifiers()) {
        for (const IdentityItem& item : IdentityOf(*data))
            unit.identity.append(unit.identity.empty() ? "" : " ")
                .append(IsGiven(item.value) ? ToText(*item.md, item.value) : "*");
    }
    unit.key.append("/").append(unit.name).append(" ").append(ToUpper(unit.identity));
    return unit;
}

/// What is no part of the data, and compared too.
bool HasMoreThanData(const KeywordInstance& keyword)
{
    return keyword.notes && (keyword.notes->variables || !keyword.notes->switches.empty());
}

bool AreSame(
    const DeckContents& a, const KeywordInstance& ofA, const DeckContents& b, const KeywordInstance& ofB)
{
    if (ofA.syntax != ofB.syntax || HasMoreThanData(ofA) || HasMoreThanData(ofB)
        || (ofA.syntax->IsWildcard() && a.NameOf(ofA) != b.NameOf(ofB)))
        return false;
    return ofA.data && ofB.data ? KeywordDataEqual(*ofA.data, *ofB.data) : !ofA.data && !ofB.data;
}

} // namespace

std::map<Step, StepUnits> FindSteps(const DeckContents& deck)
{
    std::map<Step, StepUnits> steps;
    std::size_t reports = 0; // so far
    for (std::uint32_t i = 0; i < deck.keywords.size(); ++i) {
        StepUnits& units = steps[StepOf(deck, i)];
        units.keywords.push_back(i);
        units.hasScopes = units.hasScopes || deck.keywords[i].scope != noIndex;
        for (; reports < deck.steps.size() && deck.steps[reports].keyword == i; ++reports) {
            const auto [at, isNew] = steps.try_emplace(StepAt(deck, deck.keywords[i].section, reports));
            if (isNew)
                at->second.range = deck.steps[reports].range;
        }
    }
    for (const DeckScope& scope : deck.scopes)
        steps[StepOf(deck, scope.opener)].hasScopes = true;
    return steps;
}

void MarkSame(const DeckContents& a, std::map<Step, StepUnits>& stepsOfA, const DeckContents& b,
    std::map<Step, StepUnits>& stepsOfB)
{
    const auto areSame = [&](std::uint32_t i, std::uint32_t j) {
        return AreSame(a, a.keywords[i], b, b.keywords[j]);
    };
    for (auto& [step, ofA] : stepsOfA) {
        const auto other = stepsOfB.find(step);
        if (other == stepsOfB.end() || ofA.hasScopes || other->second.hasScopes)
            continue;
        StepUnits& ofB = other->second;
        ofA.isSame = ofB.isSame = std::equal(
            ofA.keywords.begin(), ofA.keywords.end(), ofB.keywords.begin(), ofB.keywords.end(), areSame);
    }
}

void SplitSteps(const DeckContents& deck, std::map<Step, StepUnits>& steps)
{
    Splitter splitter(deck);
    for (std::size_t i = 0; i < deck.keywords.size(); ++i) {
        StepUnits& units = steps.find(StepOf(deck, i))->second;
        if (!units.isSame)
            splitter.Add(i, units);
    }
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/compare/ComparisonUnits.h"

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/data/RecordIdentity.h"
#include "quor/deck/internal/read/deck/TimeLine.h"
#include "quor/deck/internal/text/LineText.h"

#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

class Splitter {
public:
    explicit Splitter(const DeckContents& deck)
        : deck_(deck)
    {
        for (std::size_t i = 0; i < deck.keywords.size(); ++i)
            Add(i);
    }

    std::map<Step, StepUnits> Take() { return std::move(steps_); }

private:
    void Add(std::size_t index);
    Step StepAt(SectionType::Enum section, std::size_t step) const;
    void AddUnits(const KeywordInstance& keyword, StepUnits& units);
    ComparisonUnit MakeUnit(
        const KeywordInstance& keyword, const IKeywordData* data, const TextRange& range) const;
    const std::string& KeyOf(std::uint32_t scope) const
    {
        return scope == noIndex ? outside_ : scopeKeys_[scope];
    }

    const DeckContents& deck_;
    std::map<Step, StepUnits> steps_;
    std::size_t stepCount_ = 0; // of the deck's, so far
    std::vector<std::string> scopeKeys_; // of the deck's scopes so far, by index
    const std::string outside_;
};

void Splitter::Add(std::size_t index)
{
    const KeywordInstance& keyword = deck_.keywords[index];
    StepUnits& units = steps_[StepAt(keyword.section, keyword.step)];
    for (; stepCount_ < deck_.steps.size() && deck_.steps[stepCount_].keyword == index; ++stepCount_) {
        const auto [at, isNew] = steps_.try_emplace(StepAt(keyword.section, stepCount_));
        if (isNew)
            at->second.range = deck_.steps[stepCount_].range;
    }
    const std::size_t before = units.units.size();
    if (!TimeLine::Advances(keyword))
        AddUnits(keyword, units);
    if (scopeKeys_.size() < deck_.scopes.size() && deck_.scopes[scopeKeys_.size()].opener == index)
        scopeKeys_.push_back(units.units.size() > before ? units.units.back().key : KeyOf(keyword.scope));
}

Step Splitter::StepAt(SectionType::Enum section, std::size_t step) const
{
    if (step == noIndex)
        return {section, {}, 0};
    const Core::Service::Time& time = deck_.steps[step].time;
    return {section, time, time.IsDef() ? 0 : step + 1};
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

} // namespace

std::map<Step, StepUnits> SplitDeck(const DeckContents& deck)
{
    return Splitter(deck).Take();
}

} // namespace Veld::Quor::Core::Decks

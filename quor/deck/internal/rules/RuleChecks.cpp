#include "quor/deck/internal/rules/RuleChecks.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/rules/RecordWalk.h"

#include <iterator>
#include <set>
#include <string>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

RuleChecks::RuleChecks(const RuleContext& context)
    : deck_(context.deck)
    , plans_(context.rules)
    , names_(context)
    , numbers_(context)
    , presence_(context, names_)
    , records_(context, presence_, nameNumbers_)
    , members_(context, nameNumbers_)
    , matches_(context)
    , trees_(context)
    , arrays_(context)
    , quiet_(nameNumbers_, names_, settled_, records_)
{
}

RecordWatch* RuleChecks::Watch(const IKeywordSyntax& syntax, SectionType::Enum section)
{
    const RecordRules& rules = plans_.Get(syntax, section).record;
    if (!rules.mayBeQuiet)
        return nullptr;
    quiet_.Begin(rules);
    return &quiet_;
}

void RuleChecks::Follow(bool isKnown, bool isMisplaced)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const KeywordRules& rules = plans_.Get(*keyword.syntax, keyword.section);
    presence_.Follow(rules);
    if (rules.overwrite && isKnown)
        arrays_.Follow(*rules.overwrite);
    if (rules.isOpener)
        Lose();
    if (!keyword.data || !rules.HasData())
        return;
    if (!isKnown || isMisplaced)
        return FollowUnsound(rules, isMisplaced);
    isOfLocalGrid_ = IsOfLocalGrid(keyword.scope);
    records_.StartKeyword();
    if (!rules.record.isEmpty)
        CheckRoot(rules.record);
    if (rules.record.hasTrees)
        trees_.Follow(rules.record);
    for (const LengthRule* const rule : rules.tables)
        members_.CheckTables(*rule);
    if (!rules.elements.empty())
        CheckElements(rules.elements);
    if (!rules.indices.empty() && isWhole_)
        numbers_.CheckElements(rules.indices);
    if (rules.region)
        numbers_.CheckRegion(*rules.region);
    if (!rules.arrays.empty())
        numbers_.FollowArray(rules.arrays);
    if (rules.gridName.IsThere())
        numbers_.FollowGrid(static_cast<const Record&>(*keyword.data), rules.gridName);
}

void RuleChecks::FollowUnsound(const KeywordRules& rules, bool isMisplaced)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const std::string_view text = deck_.files.GetText(keyword.whole);
    if (isMisplaced)
        ExcuseMissing(keyword);
    FollowUnsound(rules.elements, text, isMisplaced);
    FollowUnsound(rules.record, text, isMisplaced);
    if (!rules.arrays.empty())
        numbers_.LoseArray(deck_.NameOf(keyword));
}

/// What it lacks was reported, and explains what else is missing.
void RuleChecks::ExcuseMissing(const KeywordInstance& keyword)
{
    std::set<std::string> missing;
    if (keyword.syntax->HasPrecedents())
        missing = keyword.syntax->GetPrecedents(keyword.section);
    for (auto name = missing.begin(); name != missing.end();)
        name = presence_.Has(*name) ? missing.erase(name) : std::next(name);
    presence_.Excuse(missing);
    names_.LoseDefinedBy(missing);
}

void RuleChecks::FollowUnsound(
    const std::vector<RecordRules::Name>& names, std::string_view text, bool isMisplaced)
{
    for (const RecordRules::Name& name : names) {
        if (name.isDefinition)
            names_.FollowUnsound(name.kind, text);
        else if (isMisplaced)
            names_.Excuse(name.kind);
    }
}

void RuleChecks::FollowUnsound(const RecordRules& rules, std::string_view text, bool isMisplaced)
{
    FollowUnsound(rules.names, text, isMisplaced);
    if (rules.hasTrees)
        trees_.Lose();
    matches_.Lose(rules);
    for (const RecordRules& inner : rules.inner)
        FollowUnsound(inner, text, isMisplaced);
}

/// Of any of the scopes, from the innermost outwards.
bool RuleChecks::IsOfLocalGrid(std::uint32_t scope)
{
    for (; scope != noIndex; scope = deck_.scopes[scope].around) {
        const KeywordInstance& opener = deck_.keywords[deck_.scopes[scope].opener];
        if (plans_.Get(*opener.syntax, opener.section).isOfLocalGrid)
            return true;
    }
    return false;
}

void RuleChecks::Lose()
{
    isWhole_ = false;
    names_.Lose();
    records_.Lose();
}

void RuleChecks::EndDeck(bool isSure)
{
    if (!isSure || !isWhole_)
        return;
    presence_.EndDeck(records_.GetMissing());
    records_.EndDeck();
    names_.LoseDefinedBy(presence_.GetReported());
    names_.EndDeck(presence_.IsWholeDeck());
    EndTrees();
    if (matches_.HasReferences()) {
        DefineMatches();
        matches_.EndDeck();
    }
}

/// Of all keywords that define what others refer to.
void RuleChecks::DefineMatches()
{
    for (const KeywordInstance& keyword : deck_.keywords) {
        const KeywordRules& rules = plans_.Get(*keyword.syntax, keyword.section);
        if (!rules.definesMatches || !keyword.data || !keyword.isSound)
            continue;
        WalkRecords(rules.record, *keyword.data,
            [this](const RecordRules& ofRecord, const Record& record, const ValuePosition&) {
                matches_.Define(ofRecord, record);
            });
    }
}

void RuleChecks::EndTrees()
{
    for (const std::uint32_t number : trees_.GetKeywords()) {
        const KeywordInstance& keyword = deck_.keywords[number];
        WalkRecords(plans_.Get(*keyword.syntax, keyword.section).record, *keyword.data,
            [&](const RecordRules& ofRecord, const Record& record, const ValuePosition& position) {
                trees_.Add(ofRecord, record, number, position);
            });
    }
    trees_.EndDeck();
}

void RuleChecks::CheckRoot(const RecordRules& rules)
{
    const IKeywordData& root = *deck_.keywords.back().data;
    if (rules.mayBeQuiet && !IsRecord(root)
        && quiet_.Follow(rules, static_cast<const IKeywordListData&>(root)))
        return;
    WalkRecords(rules, root,
        [this](const RecordRules& ofRecord, const Record& record, const ValuePosition& position) {
            CheckRecord(ofRecord, record, position);
        });
}

/// Most records have rules of a few kinds: the others cost no call.
void RuleChecks::CheckRecord(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    nameNumbers_.Forget();
    const bool isUndefined = !rules.names.empty() && CheckNames(rules, record, position);
    const bool isOutside = rules.hasNumbers && CheckNumbers(rules, record, position);
    if (!rules.requirements.empty())
        records_.CheckRequirements(rules, record, position);
    if (!isOutside && !rules.distinct.empty())
        records_.CheckDistinct(rules, record, position);
    if (!rules.hasOthers)
        return;
    if (!isOutside)
        members_.Check(rules, record, position);
    if (isOutside || isUndefined) // what the record is about is not known
        matches_.Lose(rules);
    else
        matches_.Follow(rules, record, position);
}

/// Whether one was reported that is outside the grid.
bool RuleChecks::CheckNumbers(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    const bool isOutside = !isOfLocalGrid_ && numbers_.CheckIndices(rules, record, position);
    numbers_.CheckAssignments(rules, record, position);
    if (!isOutside)
        numbers_.CheckOrders(rules, record, position);
    return isOutside;
}

} // namespace Veld::Quor::Core::Decks

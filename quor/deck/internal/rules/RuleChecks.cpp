#include "quor/deck/internal/rules/RuleChecks.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/KeywordUtils.h"

#include <iterator>
#include <set>
#include <string>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Calls `use` with each record of a list of records, and its index.
template <class Use>
void ForEachRecord(const IKeywordData& list, const Use& use)
{
    const auto& records = static_cast<const IKeywordListData&>(list);
    const auto size = static_cast<std::size_t>(records.GetSize());
    for (std::size_t i = 0; i < size; ++i)
        use(static_cast<const IKeywordRecordData&>(*static_cast<const IKeywordData*>(records.GetData(i))), i);
}

bool IsRecord(const IKeywordData& data)
{
    return KeywordUtils::GetMDType(data.GetMD()) == MDType::Record;
}

} // namespace

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
    numbers_.StartKeyword();
    records_.StartKeyword();
    if (!rules.record.isEmpty)
        CheckRoot(rules.record);
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
    if (!rules.trees.empty())
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
    trees_.EndDeck();
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
        if (IsRecord(*keyword.data))
            DefineMatches(rules.record, static_cast<const Record&>(*keyword.data));
        else
            ForEachRecord(*keyword.data,
                [&](const Record& record, std::size_t) { DefineMatches(rules.record, record); });
    }
}

void RuleChecks::DefineMatches(const RecordRules& rules, const Record& record)
{
    matches_.Define(rules, record);
    for (const RecordRules& inner : rules.inner) {
        const auto& data = *static_cast<const IKeywordData*>(record.GetData(inner.item));
        if (IsRecord(data))
            DefineMatches(inner, static_cast<const Record&>(data));
        else
            ForEachRecord(data, [&](const Record& one, std::size_t) { DefineMatches(inner, one); });
    }
}

void RuleChecks::CheckRoot(const RecordRules& rules)
{
    const IKeywordData& root = *deck_.keywords.back().data;
    if (IsRecord(root))
        return CheckRecord(rules, static_cast<const Record&>(root), {});
    if (rules.mayBeQuiet && quiet_.Follow(rules, static_cast<const IKeywordListData&>(root)))
        return;
    ForEachRecord(root, [&](const Record& record, std::size_t i) { CheckRecord(rules, record, {i}); });
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
    trees_.Follow(rules, record, position);
    if (isOutside || isUndefined) // what the record is about is not known
        matches_.Lose(rules);
    else
        matches_.Follow(rules, record, position);
    for (const RecordRules& inner : rules.inner)
        CheckInner(inner, *static_cast<const IKeywordData*>(record.GetData(inner.item)), position);
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

/// A record within a record, or a list of them.
void RuleChecks::CheckInner(const RecordRules& rules, const IKeywordData& data, const ValuePosition& position)
{
    ValuePosition around = {position.element, rules.item, rules.slashes.has_value(),
        position.slashes + rules.slashes.value_or(0)};
    if (IsRecord(data))
        return CheckRecord(rules, static_cast<const Record&>(data), around);
    ForEachRecord(data, [&](const Record& record, std::size_t) {
        CheckRecord(rules, record, around);
        ++around.slashes; // each of the list ends with one
    });
}

} // namespace Veld::Quor::Core::Decks

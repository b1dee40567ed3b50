#include "quor/deck/internal/rules/RulePlans.h"

#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/ICellPropertyInfo.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

const IKeywordRecordMD& RecordOf(const IKeywordDataMD& md)
{
    return static_cast<const IKeywordRecordMD&>(md);
}

/// Null if it is no list.
const IKeywordDataMD* ElementOf(const IKeywordDataMD* md)
{
    return KeywordUtils::GetMDType(md) == MDType::List ? static_cast<const IKeywordListMD&>(*md).GetItemMD()
                                                       : nullptr;
}

bool IsText(const IKeywordDataMD* md)
{
    return KeywordUtils::GetMDType(md) == MDType::String;
}

bool EndsWithSlash(const IKeywordDataMD& record)
{
    return RecordOf(record).GetTermination() == IKeywordDataMD::TerminationType::SLASH;
}

/// How many slashes are before an item of a record: those of the records that are its items before. Empty if
/// others are among them.
std::optional<std::size_t> SlashesBefore(const IKeywordDataMD& record, int item)
{
    for (int i = 0; i < item; ++i) {
        const IKeywordDataMD* const before = RecordOf(record).GetItemMD(i);
        if (KeywordUtils::GetMDType(before) != MDType::Record || !EndsWithSlash(*before))
            return std::nullopt;
    }
    return static_cast<std::size_t>(item);
}

bool AreScalarsBefore(const IKeywordDataMD& record, int item)
{
    for (int i = 0; i < item; ++i) {
        if (!KeywordUtils::IsItemMDType(RecordOf(record).GetItemMD(i)))
            return false;
    }
    return true;
}

/// Texts, numbers and lists of texts may be names.
bool MayBeName(const IKeywordDataMD& item)
{
    const MDType::Enum type = KeywordUtils::GetMDType(&item);
    return type == MDType::String || type == MDType::Integer || IsText(ElementOf(&item));
}

bool IsOverwritten(const OverwriteRule& rule, const RulePlans::Key& key)
{
    return key.first->GetCellPropertyInfo() && !Contains(rule.except, key.first->GetName())
        && (rule.sections.empty() || Contains(rule.sections, key.second));
}

void AddOnce(const RuleItem& item, std::vector<RuleItem>& items)
{
    const auto isSame = [&](const RuleItem& other) { return other.index == item.index; };
    if (std::none_of(items.begin(), items.end(), isSame))
        items.push_back(item);
}

/// What is said of names that are given by lists, or of arrays, depends on more than the names.
void AddNameItems(RecordRules& record)
{
    for (const RecordRules::Name& name : record.names) {
        const auto isSameCondition = [&](const ItemCondition& other) {
            return other.item.index == name.when.item.index && other.rule->word == name.when.rule->word;
        };
        if (name.isArray || name.type == MDType::List) {
            record.nameTexts.clear();
            return record.nameNumbers.clear();
        }
        AddOnce({name.item, name.type}, name.type == MDType::String ? record.nameTexts : record.nameNumbers);
        if (name.when.choice >= 0)
            AddOnce(name.when.item, record.nameNumbers);
        else if (name.when.rule
            && std::none_of(record.nameConditions.begin(), record.nameConditions.end(), isSameCondition))
            record.nameConditions.push_back(name.when);
    }
}

} // namespace

const KeywordRules& RulePlans::Get(const IKeywordSyntax& syntax, SectionType::Enum section)
{
    auto& plan = plans_[{&syntax, section}];
    if (!plan)
        plan = std::make_unique<const KeywordRules>(Make({&syntax, section}));
    return *plan;
}

KeywordRules RulePlans::Make(const Key& key)
{
    KeywordRules plan;
    const std::string& name = key.first->GetName();
    for (const OnceRule& rule : rules_.once)
        plan.once = Contains(rule.keywords, name) ? &rule : plan.once;
    for (const OverwriteRule& rule : rules_.overwrites)
        plan.overwrite = IsOverwritten(rule, key) ? &rule : plan.overwrite;
    plan.isOfLocalGrid = Contains(rules_.localGrids, name);
    plan.isOpener = Contains(rules_.openers, name);
    for (const ExclusiveRule& rule : rules_.exclusives)
        plan.exclusive = Contains(rule.keywords, name) ? &rule : plan.exclusive;
    for (const RegionRule& rule : rules_.regions)
        plan.region = Contains(rule.arrays, name) ? &rule : plan.region;

    const IKeywordDataMD* const root = key.first->GetDataMD();
    const IKeywordDataMD* const element = ElementOf(root);
    const IKeywordDataMD* const record = element ? element : root;
    if (KeywordUtils::GetMDType(record) == MDType::Record) {
        plan.record = MakeRecord(key, *record);
    } else if (ElementOf(element)) {
        for (const LengthRule& rule : rules_.lengths) {
            if (rule.item.empty() && Contains(rule.keywords, name))
                plan.tables.push_back(&rule);
        }
    } else if (element) {
        AddElements(key, *element, plan);
    }
    for (const LocalGridRule& rule : rules_.namedGrids) {
        if (Contains(rule.keywords, name) && KeywordUtils::GetMDType(root) == MDType::Record)
            plan.gridName = FindRuleItem(*root, rule.name);
    }
    for (const MatchRule& rule : rules_.matches) {
        for (const MatchRule::Use& use : rule.uses)
            plan.definesMatches = plan.definesMatches || (use.isDefinition && Contains(use.keywords, name));
    }
    return plan;
}

/// Of a list of texts, whole numbers or lines: what it names, and where its numbers count.
void RulePlans::AddElements(const Key& key, const IKeywordDataMD& element, KeywordRules& plan) const
{
    const MDType::Enum type = KeywordUtils::GetMDType(&element);
    if (type != MDType::String && type != MDType::Integer && type != MDType::Line)
        return;
    for (std::uint32_t kind = 0; kind < rules_.names.size(); ++kind) {
        for (const NameRule::Use& use : rules_.names[kind].uses) {
            if (use.where.items.empty() && IsAbout(use.where, *key.first, key.second))
                plan.elements.push_back({kind, -1, type, use.isDefinition, use.mayComeFirst, use.isUncounted,
                    false, false, true, &use.voice, {}, {}});
        }
    }
    for (std::size_t number = 0; number < rules_.indices.size(); ++number) {
        const ItemSelection& where = rules_.indices[number].where;
        if (type == MDType::Integer && where.items.empty() && IsAbout(where, *key.first, key.second))
            plan.indices.push_back(number);
        if (Contains(rules_.indices[number].arrays, key.first->GetName()))
            plan.arrays.push_back(number);
    }
}

RecordRules RulePlans::MakeRecord(const Key& key, const IKeywordDataMD& md)
{
    RecordRules record;
    record.number = records_++;
    AddNames(key, md, record);
    AddNameItems(record);
    AddNumbers(key, md, record);
    AddMembers(key, md, record);
    AddRequirements(key, md, record);
    AddTrees(key, md, record);
    AddMatches(key, md, record);
    for (int i = 0; i < RecordOf(md).GetSize(); ++i) {
        const IKeywordDataMD* item = RecordOf(md).GetItemMD(i);
        const IKeywordDataMD* const element = ElementOf(item);
        item = element ? element : item;
        if (KeywordUtils::GetMDType(item) != MDType::Record)
            continue;
        RecordRules inner = MakeRecord(key, *item);
        inner.item = i;
        if (!element || EndsWithSlash(*element))
            inner.slashes = SlashesBefore(md, i);
        record.hasTrees = record.hasTrees || inner.hasTrees;
        record.hasTreeNames = record.hasTreeNames || inner.hasTreeNames;
        if (!inner.isEmpty)
            record.inner.push_back(std::move(inner));
    }
    for (const RecordRules::Tree& tree : record.trees) {
        record.hasTrees = true;
        record.hasTreeNames = record.hasTreeNames || !tree.isMember;
    }
    record.hasNumbers = !record.indices.empty() || !record.orders.empty() || !record.assignments.empty();
    record.hasOthers = !record.members.empty() || !record.lengths.empty() || !record.matches.empty()
        || !record.inner.empty();
    record.isEmpty = record.names.empty() && record.distinct.empty() && record.requirements.empty()
        && !record.hasNumbers && !record.hasOthers && !record.hasTrees;
    record.mayBeQuiet = record.nameTexts.size() == 1 && !record.hasNumbers && !record.hasOthers
        && record.distinct.size() <= RecordRules::mostQuiet
        && std::all_of(
            record.distinct.begin(), record.distinct.end(), [&](const RecordRules::Distinct& rule) {
                return rule.isByName && rule.items.front().index == record.nameTexts.front().index;
            });
    return record;
}

/// Definitions come first: a record may name what it defines, and an item that defines names refers to none.
void RulePlans::AddNames(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    const auto add = [&](std::uint32_t kind, const NameRule::Use& use, int item) {
        const auto isSame = [&](const RecordRules::Name& other) {
            return other.kind == kind && other.item == item && !other.when.rule;
        };
        if (item >= 0 && MayBeName(*RecordOf(md).GetItemMD(item))
            && std::none_of(record.names.begin(), record.names.end(), isSame))
            record.names.push_back(
                {kind, item, KeywordUtils::GetMDType(RecordOf(md).GetItemMD(item)), use.isDefinition,
                    use.mayComeFirst, use.isUncounted, use.isFirstOnly, rules_.names[kind].areArrays,
                    AreScalarsBefore(md, item), &use.voice, FindCondition(md, use.where.when)});
    };
    for (const bool isDefinition : {true, false}) {
        for (std::uint32_t kind = 0; kind < rules_.names.size(); ++kind) {
            for (const NameRule::Use& use : rules_.names[kind].uses) {
                if (use.isDefinition != isDefinition || !IsAbout(use.where, *key.first, key.second))
                    continue;
                for (const std::string& name : use.where.items)
                    add(kind, use, FindRuleItem(md, name).index);
            }
        }
    }
    for (RecordRules::Name& name : record.names) {
        for (const RecordRules::Name& other : record.names) {
            if (other.isDefinition && other.item == name.item)
                name.defines.push_back(other.kind);
        }
    }
}

} // namespace Veld::Quor::Core::Decks

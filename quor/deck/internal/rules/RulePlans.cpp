#include "quor/deck/internal/rules/RulePlans.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/ISummaryMnemonicInfo.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
bool Contains(const std::vector<T>& values, const T& value)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool IsAbout(const ItemSelection& where, const IKeywordSyntax& syntax, SectionType::Enum section)
{
    if (!where.keywords.empty() && !Contains(where.keywords, syntax.GetName()))
        return false;
    if (Contains(where.except, syntax.GetName()))
        return false;
    if (!where.sections.empty() && !Contains(where.sections, section))
        return false;
    if (!where.entity)
        return true;
    const ISummaryMnemonicInfo* const summary = syntax.GetSummaryMnemonicInfo();
    const auto entity = summary ? summary->GetEntity() : Service::Optional<SummaryEntity::Enum>();
    return entity && *entity == *where.entity;
}

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

/// The index of the item of that name; -1 if the record has none.
int FindItem(const IKeywordDataMD& record, const std::string& name)
{
    for (int i = 0; i < RecordOf(record).GetSize(); ++i) {
        if (RecordOf(record).GetItemMD(i)->GetName() == name)
            return i;
    }
    return -1;
}

int FindNumber(const IKeywordDataMD& record, const std::string& name)
{
    const int item = FindItem(record, name);
    const bool isNumber =
        item >= 0 && KeywordUtils::GetMDType(RecordOf(record).GetItemMD(item)) == MDType::Integer;
    return isNumber ? item : -1;
}

/// Texts, numbers and lists of texts may be names.
bool MayBeName(const IKeywordDataMD& item)
{
    const MDType::Enum type = KeywordUtils::GetMDType(&item);
    return type == MDType::String || type == MDType::Integer || IsText(ElementOf(&item));
}

} // namespace

const KeywordRules& RulePlans::Get(const IKeywordSyntax& syntax, SectionType::Enum section)
{
    auto& plan = plans_[{&syntax, section}];
    if (!plan)
        plan = std::make_unique<const KeywordRules>(Make({&syntax, section}));
    return *plan;
}

KeywordRules RulePlans::Make(const Key& key) const
{
    KeywordRules plan;
    const std::string& name = key.first->GetName();
    plan.isOnce = Contains(rules_.once, name);
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
    } else if (IsText(element)) {
        for (std::uint32_t kind = 0; kind < rules_.names.size(); ++kind) {
            for (const NameRule::Use& use : rules_.names[kind].uses) {
                if (use.where.items.empty() && IsAbout(use.where, *key.first, key.second))
                    plan.elements.push_back({kind, -1, MDType::String, use.isDefinition, use.mayComeFirst});
            }
        }
    }
    return plan;
}

RecordRules RulePlans::MakeRecord(const Key& key, const IKeywordDataMD& md) const
{
    RecordRules record;
    AddNames(key, md, record);
    AddNumbers(key, md, record);
    for (int i = 0; i < RecordOf(md).GetSize(); ++i) {
        const IKeywordDataMD* item = RecordOf(md).GetItemMD(i);
        if (const IKeywordDataMD* const element = ElementOf(item))
            item = element;
        if (KeywordUtils::GetMDType(item) != MDType::Record)
            continue;
        RecordRules inner = MakeRecord(key, *item);
        inner.item = i;
        if (!inner.IsEmpty())
            record.inner.push_back(std::move(inner));
    }
    return record;
}

/// Definitions come first: a record may name what it defines, and an item that defines names refers to none.
void RulePlans::AddNames(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    const auto add = [&](std::uint32_t kind, const NameRule::Use& use, int item) {
        const auto isSame = [&](const RecordRules::Name& other) {
            return other.kind == kind && other.item == item;
        };
        if (item >= 0 && MayBeName(*RecordOf(md).GetItemMD(item))
            && std::none_of(record.names.begin(), record.names.end(), isSame))
            record.names.push_back({kind, item, KeywordUtils::GetMDType(RecordOf(md).GetItemMD(item)),
                use.isDefinition, use.mayComeFirst});
    };
    for (const bool isDefinition : {true, false}) {
        for (std::uint32_t kind = 0; kind < rules_.names.size(); ++kind) {
            for (const NameRule::Use& use : rules_.names[kind].uses) {
                if (use.isDefinition != isDefinition || !IsAbout(use.where, *key.first, key.second))
                    continue;
                for (const std::string& name : use.where.items)
                    add(kind, use, FindItem(md, name));
            }
        }
    }
}

void RulePlans::AddNumbers(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    for (std::size_t number = 0; number < rules_.indices.size(); ++number) {
        const IndexRule& rule = rules_.indices[number];
        if (!IsAbout(rule.where, *key.first, key.second))
            continue;
        const int unless = rule.where.unless.empty() ? -1 : FindItem(md, rule.where.unless);
        for (const std::string& name : rule.where.items) {
            if (const int item = FindNumber(md, name); item >= 0)
                record.indices.push_back({number, item, unless});
        }
    }
    for (const AssignmentRule& rule : rules_.assignments) {
        const int array = FindItem(md, rule.array);
        const int value = FindItem(md, rule.value);
        const bool isThere = array >= 0 && IsText(RecordOf(md).GetItemMD(array)) && value >= 0
            && KeywordUtils::GetMDType(RecordOf(md).GetItemMD(value)) == MDType::Real;
        if (isThere && Contains(rule.keywords, key.first->GetName()))
            record.assignments.push_back({array, value});
    }
    for (const OrderRule& rule : rules_.orders) {
        const int first = FindNumber(md, rule.where.items.front());
        const int last = FindNumber(md, rule.where.items.back());
        if (first >= 0 && last >= 0 && IsAbout(rule.where, *key.first, key.second))
            record.orders.push_back({first, last});
    }
}

} // namespace Veld::Quor::Core::Decks

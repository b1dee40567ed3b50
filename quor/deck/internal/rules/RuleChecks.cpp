#include "quor/deck/internal/rules/RuleChecks.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/KeywordUtils.h"

#include <charconv>
#include <iterator>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

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
    , records_(context, presence_)
    , members_(context)
    , trees_(context)
    , arrays_(context)
{
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
    if (rules.region)
        numbers_.CheckRegion(*rules.region);
}

void RuleChecks::FollowUnsound(const KeywordRules& rules, bool isMisplaced)
{
    const std::string_view text = deck_.files.GetText(deck_.keywords.back().whole);
    FollowUnsound(rules.elements, text, isMisplaced);
    FollowUnsound(rules.record, text, isMisplaced);
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
    names_.EndDeck(presence_.IsWholeDeck());
    trees_.EndDeck();
    presence_.EndDeck();
}

void RuleChecks::CheckRoot(const RecordRules& rules)
{
    const IKeywordData& root = *deck_.keywords.back().data;
    if (IsRecord(root))
        return CheckRecord(rules, static_cast<const Record&>(root), {});
    ForEachRecord(root, [&](const Record& record, std::size_t i) { CheckRecord(rules, record, {i}); });
}

void RuleChecks::CheckRecord(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    CheckNames(rules, record, position);
    const bool isOutside = !isOfLocalGrid_ && numbers_.CheckIndices(rules, record, position);
    if (!isOutside)
        numbers_.CheckOrders(rules, record, position);
    numbers_.CheckAssignments(rules, record, position);
    records_.Check(rules, record, position);
    if (!isOutside)
        members_.Check(rules, record, position);
    trees_.Follow(rules, record, position);
    for (const RecordRules& inner : rules.inner)
        CheckInner(inner, *static_cast<const IKeywordData*>(record.GetData(inner.item)), position);
}

/// An item that names nothing of one kind is not reported as none of another.
void RuleChecks::CheckNames(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    int reported = -1;
    for (const RecordRules::Name& rule : rules.names) {
        if (rule.item != reported && CheckItem(rule, record, position))
            reported = rule.item;
        if (rule.isArray && rule.type == MDType::String)
            arrays_.Forget(static_cast<const Optional<std::string>*>(record.GetData(rule.item))->ValueOr(""));
    }
}

/// A record within a record, or a list of them.
void RuleChecks::CheckInner(const RecordRules& rules, const IKeywordData& data, const ValuePosition& position)
{
    const bool isFirst = rules.item == 0 && IsRecord(data); // its values are the first ones of the data
    const ValuePosition around = {position.element, rules.item, isFirst};
    if (IsRecord(data))
        return CheckRecord(rules, static_cast<const Record&>(data), around);
    ForEachRecord(data, [&](const Record& record, std::size_t) { CheckRecord(rules, record, around); });
}

/// A text, a whole number above 0, or a list of texts. Whether it was reported.
bool RuleChecks::CheckItem(const RecordRules::Name& rule, const Record& record, ValuePosition position)
{
    const void* const data = record.GetData(rule.item);
    position.item = rule.item;
    if (rule.type == MDType::String) {
        const auto& name = *static_cast<const Optional<std::string>*>(data);
        return name && names_.Follow(rule, *name, position);
    }
    if (rule.type == MDType::Integer) {
        const auto& number = *static_cast<const Optional<int>*>(data);
        if (!number || *number <= 0)
            return false;
        char digits[16];
        const char* const end = std::to_chars(std::begin(digits), std::end(digits), *number).ptr;
        return names_.Follow(rule, {digits, static_cast<std::size_t>(end - digits)}, position);
    }
    position.isFlat = false;
    bool isReported = false;
    for (const std::string& name : As<std::string>(*static_cast<const IKeywordListData*>(data)))
        isReported = names_.Follow(rule, name, position) || isReported;
    return isReported;
}

void RuleChecks::CheckElements(const std::vector<RecordRules::Name>& rules)
{
    std::size_t element = 0;
    for (const std::string& name :
        As<std::string>(static_cast<const IKeywordListData&>(*deck_.keywords.back().data))) {
        for (const RecordRules::Name& rule : rules)
            names_.Follow(rule, name, {element});
        ++element;
    }
}

} // namespace Veld::Quor::Core::Decks

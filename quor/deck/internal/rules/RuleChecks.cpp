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

RuleChecks::RuleChecks(
    const RuleSet& rules, const DeckContents& deck, const Dimensions& dimensions, FindingReporter& reporter)
    : deck_(deck)
    , plans_(rules)
    , names_(rules, deck, dimensions, reporter)
    , numbers_(rules, deck, dimensions, reporter)
    , presence_(rules, deck, names_, reporter)
{
}

void RuleChecks::Follow(bool isKnown)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const KeywordRules& rules = plans_.Get(*keyword.syntax, keyword.section);
    presence_.Follow(rules);
    if (rules.isOpener)
        Lose();
    if (!keyword.data || !rules.HasData())
        return;
    if (!isKnown) // what it defines may be incomplete
        return Lose();
    isOfLocalGrid_ = IsOfLocalGrid(keyword.scope);
    numbers_.StartKeyword();
    if (!rules.record.IsEmpty())
        CheckRoot(rules.record);
    if (!rules.elements.empty())
        CheckElements(rules.elements);
    if (rules.region)
        numbers_.CheckRegion(*rules.region);
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
}

void RuleChecks::EndDeck(bool isSure)
{
    if (!isSure || !isWhole_)
        return;
    names_.EndDeck(presence_.IsWholeDeck());
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
    for (const RecordRules::Name& rule : rules.names)
        CheckItem(rule, record, position);
    if (!isOfLocalGrid_)
        numbers_.CheckIndices(rules, record, position);
    numbers_.CheckOrders(rules, record, position);
    numbers_.CheckAssignments(rules, record, position);
    for (const RecordRules& inner : rules.inner)
        CheckInner(inner, *static_cast<const IKeywordData*>(record.GetData(inner.item)), position);
}

/// A record within a record, or a list of them.
void RuleChecks::CheckInner(const RecordRules& rules, const IKeywordData& data, const ValuePosition& position)
{
    const ValuePosition around = {position.element, rules.item, false};
    if (IsRecord(data))
        return CheckRecord(rules, static_cast<const Record&>(data), around);
    ForEachRecord(data, [&](const Record& record, std::size_t) { CheckRecord(rules, record, around); });
}

/// A text, a whole number above 0, or a list of texts.
void RuleChecks::CheckItem(const RecordRules::Name& rule, const Record& record, ValuePosition position)
{
    const void* const data = record.GetData(rule.item);
    position.item = rule.item;
    switch (rule.type) {
    case MDType::String:
        if (const auto& name = *static_cast<const Optional<std::string>*>(data))
            names_.Follow(rule, *name, position);
        return;
    case MDType::Integer:
        if (const auto& number = *static_cast<const Optional<int>*>(data); number && *number > 0) {
            char digits[16];
            const char* const end = std::to_chars(std::begin(digits), std::end(digits), *number).ptr;
            names_.Follow(rule, {digits, static_cast<std::size_t>(end - digits)}, position);
        }
        return;
    default:
        position.isFlat = false;
        for (const std::string& name : As<std::string>(*static_cast<const IKeywordListData*>(data)))
            names_.Follow(rule, name, position);
    }
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

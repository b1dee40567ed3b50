#include "quor/deck/internal/rules/RuleChecks.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"

#include <string>

// Names in records and lists.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
const Optional<T>& NameIn(const IKeywordRecordData& record, int item)
{
    return *static_cast<const Optional<T>*>(record.GetData(item));
}

/// Of what the rules of names look at in the record but for its first name.
std::uint64_t KeyOfNames(const RecordRules& rules, const IKeywordRecordData& record, NameNumbers& numbers)
{
    const IKeywordRecordData* const records[] = {&record};
    KeyOfParts keys[1];
    for (std::size_t i = 1; i < rules.nameTexts.size(); ++i) {
        const auto& name = rules.nameTexts[i].In<std::string>(record);
        keys[0].Add(name ? numbers.GetPart(*name) : 0);
    }
    AddConditions(rules, records, keys);
    return keys[0].Get();
}

/// The number of the first name; 0 if there is none.
std::uint32_t FirstName(const RecordRules& rules, const IKeywordRecordData& record, NameNumbers& numbers)
{
    if (rules.nameTexts.empty())
        return 0;
    const auto& name = rules.nameTexts.front().In<std::string>(record);
    return name ? numbers.Get(*name) : 0;
}

} // namespace

/// Whether one of the record is undefined. Most records name what others have named before them.
bool RuleChecks::CheckNames(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    bool isSettled = true;
    if (rules.nameTexts.empty() && rules.nameNumbers.empty())
        return CheckUnsettled(rules, record, position, isSettled);
    const std::uint32_t first = FirstName(rules, record, nameNumbers_);
    const std::uint64_t key = KeyOfNames(rules, record, nameNumbers_);
    SettledNames::Last& last = settled_.GetLast(rules.number);
    last.Reserve(nameNumbers_.GetSize(), 1);
    if (settled_.Has(last, first, key))
        return false;
    const bool isUndefined = CheckUnsettled(rules, record, position, isSettled);
    if (isSettled)
        settled_.Add(last, first, key);
    return isUndefined;
}

/// An item that names nothing of one kind is not reported as none of another. `isSettled`: false if more may
/// be said of the names.
bool RuleChecks::CheckUnsettled(
    const RecordRules& rules, const Record& record, const ValuePosition& position, bool& isSettled)
{
    int reported = -1;
    for (const RecordRules::Name& rule : rules.names) {
        if (rule.item != reported && Holds(rule.when, record)) {
            const NameChecks::Outcome outcome = CheckItem(rule, record, position);
            isSettled = isSettled && outcome == NameChecks::Outcome::Settled;
            reported = outcome == NameChecks::Outcome::Reported ? rule.item : reported;
        }
        if (rule.isArray && rule.type == MDType::String)
            ForgetArray(rules, rule, record);
    }
    return reported >= 0;
}

/// Of what the record does to the array nothing is known.
void RuleChecks::ForgetArray(const RecordRules& rules, const RecordRules::Name& rule, const Record& record)
{
    const std::string array = NameIn<std::string>(record, rule.item).ValueOr("");
    arrays_.Forget(array);
    if (rules.assignments.empty())
        numbers_.LoseArray(array);
}

/// A text, a whole number above 0, or a list of texts.
NameChecks::Outcome RuleChecks::CheckItem(
    const RecordRules::Name& rule, const Record& record, ValuePosition position)
{
    using Outcome = NameChecks::Outcome;
    position.item = rule.item;
    if (rule.type == MDType::String) {
        const auto& name = NameIn<std::string>(record, rule.item);
        return name ? names_.Follow(rule, *name, position) : Outcome::Settled;
    }
    if (rule.type == MDType::Integer)
        return FollowNumber(rule, NameIn<int>(record, rule.item).ValueOr(0), position);
    position.isFlat = position.isFlat && rule.isAfterScalars;
    Outcome ofAll = Outcome::Settled;
    for (const std::string& name :
        As<std::string>(*static_cast<const IKeywordListData*>(record.GetData(rule.item)))) {
        const Outcome outcome = names_.Follow(rule, name, position);
        ofAll = ofAll == Outcome::Reported ? ofAll : outcome;
        ++position.item;
        if (rule.isFirstOnly)
            break;
    }
    return ofAll;
}

/// A number above 0 is a name.
NameChecks::Outcome RuleChecks::FollowNumber(
    const RecordRules::Name& rule, int number, const ValuePosition& position)
{
    return number <= 0 ? NameChecks::Outcome::Settled
                       : names_.Follow(rule, NumberName(number).Get(), position);
}

/// Any word of a line may be a name.
void RuleChecks::CheckElements(const std::vector<RecordRules::Name>& rules)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    for (const RecordRules::Name& rule : rules) {
        std::size_t element = 0;
        if (rule.type == MDType::Line && rule.isDefinition) {
            names_.FollowUnsound(rule.kind, deck_.files.GetText(keyword.whole));
        } else if (rule.type == MDType::Integer) {
            for (const int number : As<int>(list))
                FollowNumber(rule, number, {element++});
        } else if (rule.type == MDType::String) {
            for (const std::string& name : As<std::string>(list))
                names_.Follow(rule, name, {element++});
        }
    }
}

} // namespace Veld::Quor::Core::Decks

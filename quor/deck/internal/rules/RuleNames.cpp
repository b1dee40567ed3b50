#include "quor/deck/internal/rules/RuleNames.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <fmt/format.h>

#include <set>
#include <vector>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Names = std::set<std::string>;

/// Of the items of all records below.
void AddItemNames(const IKeywordDataMD* md, Names& names)
{
    if (KeywordUtils::GetMDType(md) == MDType::List)
        return AddItemNames(static_cast<const IKeywordListMD&>(*md).GetItemMD(), names);
    if (KeywordUtils::GetMDType(md) != MDType::Record)
        return;
    const auto& record = static_cast<const IKeywordRecordMD&>(*md);
    for (int i = 0; i < record.GetSize(); ++i) {
        names.insert(record.GetItemMD(i)->GetName());
        AddItemNames(record.GetItemMD(i), names);
    }
}

/// Refuses words that are not among the known ones.
class NameCheck {
public:
    NameCheck(const char* what, const Names& known, const std::string& document)
        : what_(what)
        , known_(known)
        , document_(document)
    {
    }

    void Accept(const std::vector<std::string>& words) const
    {
        for (const std::string& word : words)
            Accept(word);
    }
    void Accept(const std::string& word) const
    {
        if (word.empty() || known_.count(word) > 0)
            return;
        const auto near = FindNearest({known_.begin(), known_.end()}, word);
        throw RuleError(fmt::format("{}: a rule has the unknown {} '{}'{}", document_, what_, word,
            near.empty() ? "" : fmt::format("; did you mean '{}'?", near.front())));
    }

private:
    const char* what_;
    const Names& known_;
    const std::string& document_;
};

void CheckSelection(const ItemSelection& where, const NameCheck& keywords, const NameCheck& items)
{
    keywords.Accept(where.keywords);
    keywords.Accept(where.except);
    items.Accept(where.items);
    items.Accept(where.unless);
}

void CheckItems(const RuleSet& rules, const NameCheck& keywords, const NameCheck& items)
{
    for (const NameRule& rule : rules.names) {
        for (const NameRule::Use& use : rule.uses)
            CheckSelection(use.where, keywords, items);
    }
    for (const IndexRule& rule : rules.indices) {
        CheckSelection(rule.where, keywords, items);
        items.Accept(rule.size);
    }
    for (const OrderRule& rule : rules.orders)
        CheckSelection(rule.where, keywords, items);
    for (const AssignmentRule& rule : rules.assignments) {
        keywords.Accept(rule.keywords);
        items.Accept({rule.array, rule.value});
    }
    for (const CountRule& rule : rules.counts) {
        keywords.Accept(rule.setBy);
        items.Accept(rule.size);
    }
    for (const RegionRule& rule : rules.regions) {
        keywords.Accept(rule.arrays);
        items.Accept(rule.size);
    }
    for (const RoleRule& rule : rules.roles) {
        keywords.Accept(rule.keywords);
        items.Accept(rule.item);
    }
    for (const MagnitudeRule& rule : rules.magnitudes) {
        keywords.Accept(rule.keywords);
        items.Accept(rule.items);
    }
}

void CheckKeywords(const RuleSet& rules, const NameCheck& keywords)
{
    for (const NeedRule& rule : rules.needs) {
        keywords.Accept(rule.anyOf);
        keywords.Accept(rule.in);
        keywords.Accept(rule.when);
        keywords.Accept(rule.unless);
    }
    for (const ExclusiveRule& rule : rules.exclusives)
        keywords.Accept(rule.keywords);
    for (const auto* const words : {&rules.once, &rules.whole, &rules.localGrids, &rules.openers})
        keywords.Accept(*words);
}

} // namespace

void CheckNames(const RuleSet& rules, KeywordSyntaxTable& table, const std::string& document)
{
    Names keywords;
    Names items;
    KeywordSyntaxEnumerator enumerator = table.KeywordsEnumerator();
    while (enumerator.NextWithHidden()) {
        keywords.insert(*enumerator.Current()->first);
        AddItemNames(enumerator.Current()->second->GetDataMD(), items);
    }
    const NameCheck keywordCheck("keyword", keywords, document);
    CheckItems(rules, keywordCheck, NameCheck("item", items, document));
    CheckKeywords(rules, keywordCheck);
}

} // namespace Veld::Quor::Core::Decks

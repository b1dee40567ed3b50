#include "quor/deck/internal/rules/RuleWords.h"

#include "quor/deck/internal/rules/NameTable.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Of the items of all records below.
void AddItemNames(const IKeywordDataMD* md, std::set<std::string>& names)
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

/// False if any text may be in an item of the name, of any record below.
bool AddChoicesOf(const IKeywordDataMD* md, const std::string& name, std::set<std::string>& words)
{
    if (KeywordUtils::GetMDType(md) == MDType::List)
        return AddChoicesOf(static_cast<const IKeywordListMD&>(*md).GetItemMD(), name, words);
    if (KeywordUtils::GetMDType(md) != MDType::Record)
        return true;
    const auto& record = static_cast<const IKeywordRecordMD&>(*md);
    bool areChoices = true;
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD* const item = record.GetItemMD(i);
        areChoices = AddChoicesOf(item, name, words) && areChoices;
        if (item->GetName() != name)
            continue;
        if (item->GetType() != MDType::Choice)
            return false;
        const auto& choice = static_cast<const IKeywordChoiceMD&>(*item);
        for (int at = 0; at < choice.NumChoices(); ++at)
            words.insert(choice.GetChoice(at));
    }
    return areChoices;
}

} // namespace

const std::vector<std::string>& RuleWords::GetNames()
{
    if (!names_.empty())
        return names_;
    KeywordSyntaxEnumerator enumerator = table_.KeywordsEnumerator();
    while (enumerator.NextWithHidden())
        names_.push_back(*enumerator.Current()->first);
    return names_;
}

const std::set<std::string>& RuleWords::GetKeywords()
{
    if (keywords_.empty())
        keywords_.insert(GetNames().begin(), GetNames().end());
    return keywords_;
}

const std::set<std::string>& RuleWords::GetItems()
{
    if (!items_.empty())
        return items_;
    KeywordSyntaxEnumerator enumerator = table_.KeywordsEnumerator();
    while (enumerator.NextWithHidden())
        AddItemNames(enumerator.Current()->second->GetDataMD(), items_);
    return items_;
}

bool RuleWords::AddChoices(const std::string& keyword, const std::string& item, std::set<std::string>& words)
{
    bool areChoices = true;
    for (const IKeywordSyntax* const syntax : table_.LookupAll(keyword))
        areChoices = AddChoicesOf(syntax->GetDataMD(), item, words) && areChoices;
    return areChoices;
}

std::vector<std::string> RuleWords::FindKeywords(const std::string& pattern)
{
    std::set<std::string> found;
    for (const std::string& name : GetNames()) {
        if (IsMatch(pattern, name))
            found.insert(name);
    }
    return {found.begin(), found.end()};
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/rules/RuleWords.h"

#include "quor/deck/internal/rules/NameTable.h"
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

} // namespace

const std::set<std::string>& RuleWords::GetKeywords()
{
    Read();
    return keywords_;
}

const std::set<std::string>& RuleWords::GetItems()
{
    Read();
    return items_;
}

std::vector<std::string> RuleWords::FindKeywords(const std::string& pattern)
{
    std::vector<std::string> found;
    for (const std::string& name : GetKeywords()) {
        if (IsMatch(pattern, name))
            found.push_back(name);
    }
    return found;
}

void RuleWords::Read()
{
    if (!keywords_.empty())
        return;
    KeywordSyntaxEnumerator enumerator = table_.KeywordsEnumerator();
    while (enumerator.NextWithHidden()) {
        keywords_.insert(*enumerator.Current()->first);
        AddItemNames(enumerator.Current()->second->GetDataMD(), items_);
    }
}

} // namespace Veld::Quor::Core::Decks

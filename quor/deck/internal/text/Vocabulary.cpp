#include "quor/deck/internal/text/Vocabulary.h"

#include "quor/syntax/KeywordSyntaxUtils.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

std::optional<SimulatorType::Enum> FindSkippingSimulator(const std::vector<const IKeywordSyntax*>& syntaxes)
{
    for (const IKeywordSyntax* syntax : syntaxes) {
        if (KeywordSyntaxUtils::IsSKIPCAR(*syntax))
            return SimulatorType::Carrow;
        if (KeywordSyntaxUtils::IsSKIPDUN(*syntax))
            return SimulatorType::Dunmere;
    }
    return std::nullopt;
}

} // namespace

Vocabulary::Vocabulary(KeywordSyntaxTable& table)
    : table_(table)
    , nearestNames_(table)
{
    KeywordSyntaxEnumerator enumerator = table.KeywordsEnumerator();
    while (enumerator.NextWithHidden()) {
        const IKeywordSyntax& syntax = *enumerator.Current()->second;
        if (syntax.GetDeckRole() == KeywordDeckRole::Include)
            includes_.push_back(MakeEntry(*enumerator.Current()->first));
        if (syntax.HasScope() && syntax.GetScopeSyntax())
            scopeEnds_.insert(syntax.GetScopeSyntax());
    }
}

const Entry* Vocabulary::Find(std::string_view word)
{
    if (word.size() > longestName) // a wildcard would match it
        return nullptr;
    auto entry = entries_.find(word);
    if (entry == entries_.end())
        entry = entries_.emplace(word, MakeEntry(word)).first;
    return entry->second.syntaxes.empty() ? nullptr : &entry->second;
}

const Entry* Vocabulary::FindInclude(std::string_view word) const
{
    const auto entry = std::find_if(includes_.begin(), includes_.end(),
        [word](const Entry& include) { return include.spelling == word; });
    return entry == includes_.end() ? nullptr : &*entry;
}

const IKeywordSyntax& Vocabulary::Get(const Entry& entry, SectionType::Enum section) const
{
    const IKeywordSyntax* const syntax = table_.Lookup(entry.spelling, section, true);
    return syntax ? *syntax : *entry.syntaxes.front();
}

Entry Vocabulary::MakeEntry(std::string_view word)
{
    Entry entry;
    entry.spelling = word;
    entry.syntaxes = table_.LookupAll(entry.spelling);
    if (entry.syntaxes.empty())
        return entry;
    entry.role = entry.syntaxes.front()->GetDeckRole();
    entry.skipsFor = FindSkippingSimulator(entry.syntaxes);
    return entry;
}

} // namespace Veld::Quor::Core::Decks

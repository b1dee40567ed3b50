#include "quor/deck/internal/text/Vocabulary.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// By name, not by `KeywordSyntaxUtils`, which knows the keywords of the process's table alone.
std::optional<SimulatorType::Enum> FindSkippingSimulator(const std::vector<const IKeywordSyntax*>& syntaxes)
{
    for (const IKeywordSyntax* syntax : syntaxes) {
        if (syntax->GetName() == "SKIPCAR")
            return SimulatorType::Carrow;
        if (syntax->GetName() == "SKIPDUN")
            return SimulatorType::Dunmere;
    }
    return std::nullopt;
}

/// It matches words of any length.
bool IsWildcard(const Entry& entry)
{
    return entry.syntaxes.front()->GetName().ends_with('*');
}

} // namespace

Vocabulary::Vocabulary(const LanguageIndex& language, const Target& target)
    : language_(language)
    , target_(target)
{
    for (const std::string& name : language.GetStructureNames())
        structure_.push_back(MakeEntry(name));
}

const Entry* Vocabulary::Find(std::string_view word)
{
    if (word.size() > longestAlias)
        return nullptr;
    auto entry = entries_.find(word);
    if (entry == entries_.end())
        entry = entries_.emplace(word, MakeEntry(word)).first;
    const bool isKnown = !entry->second.syntaxes.empty();
    const bool isLong = isKnown && word.size() > longestName && IsWildcard(entry->second);
    return isKnown && !isLong ? &entry->second : nullptr;
}

const Entry* Vocabulary::FindStructure(std::string_view word) const
{
    const auto entry = std::find_if(structure_.begin(), structure_.end(),
        [word](const Entry& keyword) { return keyword.spelling == word; });
    return entry == structure_.end() ? nullptr : &*entry;
}

const Entry* Vocabulary::FindCut(std::string_view word)
{
    const Entry* const entry = word.size() > longestName ? Find(word.substr(0, longestName)) : nullptr;
    return entry && IsWildcard(*entry) ? nullptr : entry;
}

const IKeywordSyntax& Vocabulary::Get(const Entry& entry, SectionType::Enum section) const
{
    if (entry.syntaxes.size() == 1)
        return *entry.syntaxes.front();
    const IKeywordSyntax* const syntax = language_.Lookup(entry.spelling, section);
    return syntax ? *syntax : *entry.syntaxes.front();
}

const std::vector<std::string>& Vocabulary::FindNearest(const std::string& word, SectionType::Enum section)
{
    const auto [answer, isNew] = nearest_.try_emplace({word, section});
    if (isNew)
        answer->second = language_.GetNearestNames().Find(word, section);
    return answer->second;
}

Entry Vocabulary::MakeEntry(std::string_view word) const
{
    Entry entry;
    entry.spelling = word;
    entry.syntaxes = language_.LookupAll(entry.spelling);
    if (entry.syntaxes.empty())
        return entry;
    entry.valid = {FindValidSections(entry.syntaxes, entry.spelling, target_),
        FindValidSections(entry.syntaxes, entry.spelling, {target_.simulator}),
        FindValidSections(entry.syntaxes, entry.spelling, {})};
    entry.role = entry.syntaxes.front()->GetDeckRole();
    entry.skipsFor = FindSkippingSimulator(entry.syntaxes);
    return entry;
}

} // namespace Veld::Quor::Core::Decks

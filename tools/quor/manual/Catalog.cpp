#include "tools/quor/manual/Catalog.h"

#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/VisitMD.h"
#include "quor/syntax/ISummaryMnemonicInfo.h"
#include "quor/syntax/SummaryCategories.h"
#include "tools/quor/assets/Assets.h"
#include "tools/quor/manual/Html.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/KeywordFacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <sstream>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// `visit` gets each node of the metadata, the root first.
void WalkMD(const IKeywordDataMD& md, const std::function<void(const IKeywordDataMD&)>& visit)
{
    visit(md);
    VisitMD(md,
        Overloaded{[&](const IKeywordRecordMD& record) {
                       for (int i = 0; i < record.GetSize(); ++i)
                           WalkMD(*record.GetItemMD(i), visit);
                   },
            [&](const IKeywordListMD& list) {
                if (const IKeywordDataMD* item = list.GetItemMD())
                    WalkMD(*item, visit);
            },
            [](const IKeywordDataMD&) {}});
}

void AddOwnWords(const IKeywordDataMD& md, std::set<std::string>& words)
{
    words.insert(md.GetName());
    VisitMD(md,
        Overloaded{[&](const IKeywordChoiceMD& choice) {
                       for (int i = 0; i < choice.NumChoices(); ++i)
                           words.insert(choice.GetChoice(i));
                   },
            [](const IKeywordDataMD&) {}});
}

/// Empty for a name that has another keyword than output vectors.
std::string EntityOf(const Entry& entry)
{
    std::string entity;
    for (const IKeywordSyntax* syntax : entry.syntaxes) {
        const ISummaryMnemonicInfo* const info = syntax->GetSummaryMnemonicInfo();
        if (!info)
            return "";
        const auto value = info->GetEntity();
        entity = value ? SummaryEntity::ToString(*value) : "Other";
    }
    return entity;
}

bool IsOfName(char c)
{
    return std::isupper(static_cast<unsigned char>(c)) || std::isdigit(static_cast<unsigned char>(c))
        || c == '_';
}

/// Calls `visit` with each part of the text: a word that may be a name of a keyword, or what is between.
template <class Visit>
void ForEachPart(std::string_view text, Visit visit)
{
    const auto isWord = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    for (std::size_t at = 0; at < text.size();) {
        const bool isInWord = isWord(text[at]);
        std::size_t end = at;
        while (end < text.size() && isWord(text[end]) == isInWord)
            ++end;
        const std::string_view part = text.substr(at, end - at);
        constexpr std::size_t shortest = 3;
        visit(part, isInWord && part.size() >= shortest && std::all_of(part.begin(), part.end(), IsOfName));
        at = end;
    }
}

} // namespace

Catalog::Catalog(LoadedLanguage& language, const Core::Decks::DeckLanguage& rules)
{
    AddEntries(language, rules);
    for (Entry& entry : entries_) {
        if (!entry.IsVector())
            AddReferences(entry);
    }
    AddSubjects();
    AddKinds();
}

void Catalog::AddEntries(LoadedLanguage& language, const Core::Decks::DeckLanguage& rules)
{
    for (const IKeywordSyntax* syntax : language.GetSyntaxes(false)) {
        if (entries_.empty() || entries_.back().name != syntax->GetName())
            entries_.push_back({syntax->GetName(), {}, {}, {}, {}, {}, {}, {}});
        Entry& entry = entries_.back();
        entry.syntaxes.push_back(syntax);
        for (Core::Decks::KeywordRule& rule : rules.GetRules(*syntax))
            entry.rules.push_back(std::move(rule));
        if (syntax->GetDataMD())
            WalkMD(*syntax->GetDataMD(), [&](const auto& md) { AddOwnWords(md, entry.ownWords); });
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        Entry& entry = entries_[i];
        entry.entity = EntityOf(entry);
        entry.address = entry.IsVector()
            ? fmt::format("vectors/{}.html#{}", Slug(entry.entity), Slug(entry.name))
            : fmt::format("keyword/{}.html", Slug(entry.name));
        byName_[entry.name] = i;
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        for (const IKeywordSyntax* syntax : entries_[i].syntaxes) {
            for (const std::string& alias : syntax->GetAliases()) {
                if (!syntax->IsHidden(alias))
                    byName_.emplace(alias, i);
            }
        }
    }
}

const Entry* Catalog::Find(std::string_view name) const
{
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : &entries_[found->second];
}

const Subject* Catalog::FindSubject(const Entry& entry) const
{
    const auto found = subjectOf_.find(&entry);
    return found == subjectOf_.end() ? nullptr : &subjects_[found->second];
}

void Catalog::AddReferences(Entry& entry, std::string_view text)
{
    ForEachPart(text, [&](std::string_view part, bool mayBeName) {
        const Entry* const other = mayBeName ? Find(part) : nullptr;
        if (other && other != &entry && !entry.ownWords.contains(std::string(part)))
            entry.refersTo.insert(other->name);
    });
}

void Catalog::AddReferences(Entry& entry)
{
    for (const IKeywordSyntax* syntax : entry.syntaxes) {
        for (const std::string& precedent : PrecedentsOf(*syntax)) {
            if (const Entry* const other = Find(precedent); other && other != &entry)
                entry.refersTo.insert(other->name);
        }
        for (const IKeywordSyntax* end : syntax->GetScopeKeywords()) {
            if (end->GetName() != entry.name && Find(end->GetName()))
                entry.refersTo.insert(end->GetName());
        }
        AddReferences(entry, syntax->GetDescription());
        if (syntax->GetDataMD())
            WalkMD(*syntax->GetDataMD(), [&](const auto& md) { AddReferences(entry, md.GetDescription()); });
    }
    for (const Core::Decks::KeywordRule& rule : entry.rules)
        AddReferences(entry, rule.text);
    for (const std::string& name : entry.refersTo)
        entries_[byName_.at(name)].referredFrom.insert(entry.name);
}

void Catalog::AddSubjects()
{
    std::istringstream lines(Asset("subjects.txt")); // a line a file: its name, what it has, its keywords
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string stem;
        std::string about;
        std::getline(fields, stem, '\t');
        std::getline(fields, about, '\t');
        Subject subject;
        const std::size_t hyphen = stem.find('-');
        subject.section = ToUpper(stem.substr(0, hyphen));
        subject.title = hyphen == std::string::npos ? "general" : stem.substr(hyphen + 1);
        std::replace(subject.title.begin(), subject.title.end(), '-', ' ');
        subject.about = about.substr(0, about.find(". "));
        subject.about += subject.about.ends_with('.') ? "" : ".";
        subject.address = fmt::format("subject/{}.html", Slug(stem));
        for (std::string name; fields >> name;) {
            const Entry* const entry = Find(name);
            if (entry && !entry->IsVector() && subjectOf_.emplace(entry, subjects_.size()).second)
                subject.entries.push_back(entry);
        }
        if (!subject.entries.empty())
            subjects_.push_back(std::move(subject));
    }
}

void Catalog::AddKinds()
{
    for (const Entry& entry : entries_) {
        for (const Core::Decks::KeywordRule& rule : entry.rules) {
            if (rule.kind != "defines" && rule.kind != "refers-to")
                continue;
            NameKind& kind = kinds_[rule.what];
            auto& uses = rule.kind == "defines" ? kind.defining : kind.referring;
            if (uses.empty() || uses.back() != &entry)
                uses.push_back(&entry);
        }
    }
}

std::string Catalog::LinkWords(const Entry& own, std::string_view text) const
{
    std::string html;
    ForEachPart(text, [&](std::string_view part, bool mayBeName) {
        const Entry* const other = mayBeName ? Find(part) : nullptr;
        if (other && other != &own && !own.ownWords.contains(std::string(part)))
            html += Link(other->address, part);
        else
            html += EscapeHtml(part);
    });
    return html;
}

} // namespace Veld::Quor::Tools

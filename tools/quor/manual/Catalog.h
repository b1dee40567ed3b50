#pragma once

#include "quor/deck/DeckLanguage.h"
#include "tools/quor/commands/LoadedLanguage.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Tools {

/// The keywords of one name, which share a page. Output vectors share one with all of their entity.
struct Entry {
    std::string name;
    std::vector<const Core::Keywords::IKeywordSyntax*> syntaxes;
    std::string entity; ///< of an output vector; empty: the keyword has its own page
    std::string address; ///< below the folder of the manual
    std::vector<Core::Decks::KeywordRule> rules;
    std::set<std::string> ownWords; ///< names of its items, and words of its choices
    std::set<std::string> refersTo; ///< names of other entries
    std::set<std::string> referredFrom;

    const Core::Keywords::IKeywordSyntax& GetFirst() const { return *syntaxes.front(); }
    bool IsVector() const { return !entity.empty(); }
};

/// Keywords that are about one thing, as the files of the language have them.
struct Subject {
    std::string section;
    std::string title;
    std::string about; ///< a sentence
    std::vector<const Entry*> entries;
    std::string address;
};

/// The keywords that define names of a kind, and those that refer to them.
struct NameKind {
    std::vector<const Entry*> defining;
    std::vector<const Entry*> referring;
};

/// What is in a language, and how its parts refer to one another: what the pages of a manual are made from.
/// The language must outlive it.
class Catalog {
public:
    Catalog(LoadedLanguage& language, const Core::Decks::DeckLanguage& rules);
    Catalog(const Catalog&) = delete;
    Catalog& operator=(const Catalog&) = delete;

    /// Sorted by name.
    const std::vector<Entry>& GetEntries() const { return entries_; }
    const std::vector<Subject>& GetSubjects() const { return subjects_; }
    const std::map<std::string, NameKind>& GetNameKinds() const { return kinds_; }
    /// By name or visible alias; null if there is none.
    const Entry* Find(std::string_view name) const;
    /// Null if the language doesn't say.
    const Subject* FindSubject(const Entry& entry) const;

    /// The text as HTML, in which the names of other keywords lead to their pages.
    std::string LinkWords(const Entry& own, std::string_view text) const;

private:
    void AddEntries(LoadedLanguage& language, const Core::Decks::DeckLanguage& rules);
    void AddReferences(Entry& entry);
    void AddReferences(Entry& entry, std::string_view text);
    void AddSubjects();
    void AddKinds();

    std::vector<Entry> entries_;
    std::unordered_map<std::string_view, std::size_t> byName_;
    std::vector<Subject> subjects_;
    std::unordered_map<const Entry*, std::size_t> subjectOf_;
    std::map<std::string, NameKind> kinds_;
};

} // namespace Veld::Quor::Tools

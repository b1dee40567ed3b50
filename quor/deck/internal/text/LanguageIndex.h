#pragma once

#include "quor/deck/internal/rules/Role.h"
#include "quor/deck/internal/text/NearestNames.h"
#include "quor/foundation/SectionType.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Veld::Quor::Core::Decks {

struct RuleSet;

/// What a keyword itself is, of what rules say: roles of items are not among them.
class RolesOfKeyword {
public:
    bool Has(Role::Enum role) const { return std::find(all_.begin(), all_.end(), role) != all_.end(); }
    void Add(Role::Enum role) { all_.push_back(role); }

private:
    std::vector<Role::Enum> all_;
};

/// Whether the scope that the keyword opens is ended by the same keyword too, and by no other one. Such a
/// scope need not be closed.
bool MayStayOpen(const Core::Keywords::IKeywordSyntax& opener);

/// What a table says of decks. It never changes: made once for a table, it serves any number of threads that
/// read decks at once. Must not outlive the table.
class LanguageIndex {
public:
    LanguageIndex(Core::Keywords::KeywordSyntaxTable& table, std::unique_ptr<const RuleSet> rules);
    ~LanguageIndex();
    LanguageIndex(const LanguageIndex&) = delete;
    LanguageIndex& operator=(const LanguageIndex&) = delete;

    /// All that the table knows under the name; empty if it is no keyword.
    std::vector<const Core::Keywords::IKeywordSyntax*> LookupAll(const std::string& name) const
    {
        return table_.LookupAll(name);
    }
    /// The first name of the keyword that has the name, as an alias say, and no wildcard; else the name, in
    /// upper case.
    std::string FindName(std::string_view name) const;
    /// The syntax of the name in the section; null if there are several, none of which is valid there.
    const Core::Keywords::IKeywordSyntax* Lookup(
        const std::string& name, Core::Keywords::SectionType::Enum section) const
    {
        return table_.Lookup(name, section, true);
    }

    /// The names of the keywords that include a file or begin a section.
    const std::vector<std::string>& GetStructureNames() const { return structureNames_; }
    /// Whether the keyword is there to end scopes, and for nothing else.
    bool EndsScopes(const Core::Keywords::IKeywordSyntax& syntax) const
    {
        return scopeEnds_.count(&syntax) > 0;
    }
    /// Lasts as long as this object.
    const RolesOfKeyword& RolesOf(const Core::Keywords::IKeywordSyntax& syntax) const
    {
        static const RolesOfKeyword none;
        const auto roles = roles_.find(&syntax);
        return roles == roles_.end() ? none : roles->second;
    }
    /// The name of the first keyword that has the role; empty if none has.
    const std::string& FindNameOf(Role::Enum role) const;
    /// What holds between the keywords of a deck.
    const RuleSet& GetRules() const { return *rules_; }
    /// The codes of findings that rules have beside those of the library.
    const std::vector<std::string>& GetOwnCodes() const;
    const NearestNames& GetNearestNames() const { return nearestNames_; }
    /// The whole numbers of the records of RUNSPEC, in the order of the table.
    const std::vector<const Core::Keywords::IKeywordIntegerMD*>& GetSizes() const { return sizes_; }

private:
    Core::Keywords::KeywordSyntaxTable& table_;
    std::unique_ptr<const RuleSet> rules_;
    NearestNames nearestNames_;
    std::vector<std::string> structureNames_;
    std::unordered_set<const Core::Keywords::IKeywordSyntax*> scopeEnds_;
    std::vector<const Core::Keywords::IKeywordIntegerMD*> sizes_;
    std::unordered_map<const Core::Keywords::IKeywordSyntax*, RolesOfKeyword> roles_;
};

} // namespace Veld::Quor::Core::Decks

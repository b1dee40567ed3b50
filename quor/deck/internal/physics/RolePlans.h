#pragma once

#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the items of a record are, by their index.
struct RecordRoles {
    struct Item {
        int item;
        Role::Enum role;
    };
    struct Magnitude {
        int item;
        const MagnitudeRule* rule;
    };

    std::vector<Item> items;
    std::vector<Magnitude> magnitudes;
    std::vector<RecordRoles> inner; ///< of items that are records or lists of records
    int item = -1; ///< of these: the item
    bool isFlat = true; ///< all items of the record are scalars

    bool IsEmpty() const { return items.empty() && magnitudes.empty() && inner.empty(); }
    /// The index of the item; -1 if there is none.
    int Find(Role::Enum role) const;
    /// Null if nothing below that item has a role.
    const RecordRoles* FindInner(int itemOfRecord) const;
};

/// What a keyword is.
struct KeywordRoles {
    std::vector<Role::Enum> roles; ///< of the keyword itself
    const MagnitudeRule* magnitude = nullptr; ///< of the numbers of its list, or lists
    RecordRoles record; ///< that it carries, or of which it carries a list, or lists

    bool IsEmpty() const { return roles.empty() && !magnitude && record.IsEmpty(); }
};

/// Works out once a deck what each of its keywords is.
class RolePlans {
public:
    enum class Which { Checked, All };
    /// `rules` must outlive it. `which`: the roles that checks know, or all.
    RolePlans(const RuleSet& rules, Which which)
        : rules_(rules)
        , which_(which)
    {
    }

    /// Lasts as long as this object; null for a keyword of no role.
    const KeywordRoles* Find(const Keywords::IKeywordSyntax& syntax);

private:
    KeywordRoles Make(const Keywords::IKeywordSyntax& syntax) const;
    RecordRoles MakeRecord(const std::string& keyword, const Keywords::IKeywordDataMD& md) const;
    bool IsAsked(Role::Enum role) const { return which_ == Which::All || Role::IsChecked(role); }

    const RuleSet& rules_;
    Which which_;
    std::unordered_map<const Keywords::IKeywordSyntax*, std::unique_ptr<const KeywordRoles>> plans_;
};

} // namespace Veld::Quor::Core::Decks

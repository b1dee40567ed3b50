#pragma once

#include "quor/lint/internal/KeywordValidity.h"
#include "quor/lint/internal/Reporter.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// One keyword of the documents.
struct Definition {
    const Element* keyword;
    Reporter reporter;
    Cells cells;
};

/// Names and wildcards of keywords and their aliases.
class NameSet {
public:
    void Add(const std::string& name);
    void AddAll(const Element& keyword);
    /// Whether the name is one of them, or matches a wildcard.
    bool Has(std::string_view name) const;

private:
    std::unordered_set<std::string> names_;
    std::unordered_set<std::string> prefixes_; // of wildcards
    std::size_t longest_ = 0; // of them
};

/// The rules for the names of all keywords together. `isKnownElsewhere` is asked about a name that none of
/// them has.
void CheckNames(const std::vector<Definition>& definitions,
    const std::function<bool(const std::string&)>& isKnownElsewhere);

} // namespace Veld::Quor::Core::Lint

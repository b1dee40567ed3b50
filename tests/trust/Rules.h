#pragma once

#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Trust {

/// An element of a document of rules: see `docs/writing-rules.md`.
struct Rule {
    std::string tag; ///< "names"
    std::map<std::string, std::string> attributes;
    std::vector<Rule> children; ///< such as <define> and <refer>

    /// Empty if it isn't there.
    std::string Get(const std::string& attribute) const;
    /// Words separated by blanks.
    std::vector<std::string> GetWords(const std::string& attribute) const;
};

/// All rules of the documents in a folder. Throws if one can't be read.
std::vector<Rule> ReadRules(const std::string& folder);

/// The items that a rule, <define> or <refer> is about, in the form of `Where`; empty if it chooses them by
/// the kind of an output vector.
std::string WhereOf(const Rule& rule, const std::string& items);

} // namespace Veld::Quor::Trust

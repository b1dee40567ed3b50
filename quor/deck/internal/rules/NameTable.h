#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Whether a pattern matches a name, in any case: '*' stands for any characters, '?' for one.
bool IsMatch(std::string_view pattern, std::string_view name);

/// Names of one kind, the same in any case.
class NameTable {
public:
    /// False if the name is there.
    bool Add(std::string_view name) { return !Has(name) && names_.emplace(name).second; }
    bool Has(std::string_view name) const { return names_.find(name) != names_.end(); }
    /// Whether a name matches: '*' stands for any characters, '?' for one. What matched once matches again.
    bool HasMatch(std::string_view pattern);
    /// True the first time that it is asked of a name.
    bool IsFirstReport(std::string_view name) { return reported_.emplace(name).second; }

    std::size_t GetSize() const { return names_.size(); }
    /// As the deck first has them, in no order.
    std::vector<std::string> GetNames() const { return {names_.begin(), names_.end()}; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const;
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };

    std::unordered_set<std::string, Hash, Equal> names_;
    std::unordered_set<std::string, Hash, Equal> matched_;
    std::unordered_set<std::string, Hash, Equal> reported_;
};

} // namespace Veld::Quor::Core::Decks

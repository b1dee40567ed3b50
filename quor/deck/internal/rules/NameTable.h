#pragma once

#include "quor/deck/internal/rules/KeyTable.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Whether a pattern matches a name, in any case: '*' stands for any characters, '?' for one.
bool IsMatch(std::string_view pattern, std::string_view name);

/// A number that is the same for names that differ in case alone. That two others have one is too improbable
/// to matter.
std::uint64_t KeyOfName(std::string_view name);

/// Names of one kind, the same in any case.
class NameTable {
public:
    /// False if the name is there.
    bool Add(std::string_view name);
    bool Has(std::string_view name) const { return !keys_.IsEmpty() && keys_.Has(KeyOfName(name)); }
    /// Whether a name matches: '*' stands for any characters, '?' for one. What matched once matches again.
    bool HasMatch(std::string_view pattern);
    /// True the first time that it is asked of a name.
    bool IsFirstReport(std::string_view name) { return reported_.Add(KeyOfName(name), {}).second; }

    std::size_t GetSize() const { return names_.size(); }
    /// As the deck first has them.
    const std::vector<std::string>& GetNames() const { return names_; }

private:
    using Keys = KeyTable<Nothing>;

    std::vector<std::string> names_;
    Keys keys_; // of the names
    Keys matched_;
    Keys reported_;
};

} // namespace Veld::Quor::Core::Decks

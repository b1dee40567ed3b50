#pragma once

#include "quor/deck/internal/read/values/SizeText.h"

#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The wrong sizes of lists that were reported, with what may be wrong instead: a number of RUNSPEC, which
/// makes all lists wrong that have a size by it.
class WrongSizes {
public:
    /// Whether what was reported before explains that a list has so many elements. `size`: the text of its
    /// size.
    bool IsKnown(const std::string& size, long long count, const SizeOfName& sizeOf);
    /// The same for a list that has more than its size, nobody knows how many.
    bool IsKnown(const std::string& size);
    /// Names that were reported elsewhere: they explain any number of elements. Must outlive it.
    void SetReported(const std::unordered_set<std::string>& names) { known_ = &names; }
    /// Whether a list with that size was reported.
    bool HasReported(const std::string& size) const;
    /// The names of the deck that may be wrong, as far as they were not taken before.
    std::vector<std::string> TakeNames() { return std::exchange(names_, {}); }

private:
    bool IsKnownElsewhere(const std::string& size) const;

    std::set<std::pair<std::string, long long>> reported_; // names and the values with which all would be
                                                           // right; sizes and how many elements there were
    std::vector<std::string> names_;
    const std::unordered_set<std::string>* known_ = nullptr;
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/Finding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// What findings have in common that say the same of several places in a file: all but the numbers in the
/// message. As a number; that two kinds have one is too improbable to matter.
std::uint64_t FindingKind(std::string_view file, std::string_view code, std::string_view message);

/// Fills the findings of those who read decks and documents: a pointer to them, cheap to copy.
class FindingCollector {
public:
    /// Empty ones, of which the first `limit` are to be kept.
    static Findings Make(std::size_t limit) { return Findings(limit); }

    explicit FindingCollector(Findings& findings)
        : findings_(&findings)
    {
    }

    /// Whether further findings are only counted.
    bool IsFull() const { return findings_->kept_.size() >= findings_->limit_; }
    /// Counts a finding; true if it is to be kept as well. If not, it is counted among those that are like
    /// one that is kept.
    bool Admit(
        Severity severity, std::string_view file, std::string_view code, std::string_view message) const;
    /// `line`: on which the finding is. What is worth showing of it is kept: its beginning, or from the
    /// location on.
    void Keep(Finding finding, std::string_view line) const;
    void Hide(Hiding why) const { ++findings_->hidden_[static_cast<std::size_t>(why)]; }
    /// Brings those that are kept into another order; equal ones stay as they are.
    template <class Less>
    void Sort(Less less) const
    {
        std::stable_sort(findings_->kept_.begin(), findings_->kept_.end(), less);
    }

private:
    void CountOmitted(std::uint64_t kind) const;

    Findings* findings_;
};

} // namespace Veld::Quor::Core::Decks

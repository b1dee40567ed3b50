#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A note reports something that is no fault of the deck, and doesn't make it a faulty one.
enum class Severity { Error, Warning, Note };

const char* ToString(Severity severity);

/// Lines and columns count from 1, columns in bytes.
struct Location {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
};

struct Finding {
    std::string code; ///< stable, for programs to go by
    Severity severity = Severity::Error;
    Location location;
    std::size_t length = 0; ///< bytes from the place on that the finding is about
    std::string message; ///< one sentence, without a full stop
    std::string hint; ///< how to mend it; may be empty
    std::vector<Location> includedFrom; ///< innermost inclusion first; empty in the main deck
    std::string excerpt; ///< the part of the line around the place
    std::size_t excerptColumn = 1; ///< column of the first byte of `excerpt`

    /// Keeps of the line of the place what is worth showing: its beginning, or from the place on.
    void SetExcerpt(std::string_view line);
};

/// Why a finding isn't reported.
enum class Hiding {
    Silenced, ///< a comment of the deck says so
    Known, ///< whoever asked for the findings has it already
};

/// Keeps the first findings up to a limit, and counts all. Hidden ones are counted for themselves, and as no
/// others.
class Findings {
public:
    explicit Findings(std::size_t limit);

    /// Whether further findings are only counted.
    bool IsFull() const { return kept_.size() >= limit_; }
    /// Counts a finding; true if it is to be kept as well.
    bool Admit(Severity severity);
    void Keep(Finding finding);
    void Hide(Hiding why) { ++hidden_[static_cast<std::size_t>(why)]; }
    /// Brings those that are kept into another order; equal ones stay as they are.
    template <class Less>
    void Sort(Less less)
    {
        std::stable_sort(kept_.begin(), kept_.end(), less);
    }

    const std::vector<Finding>& GetKept() const { return kept_; }
    std::size_t GetCount(Severity severity) const;
    std::size_t GetOmittedCount() const { return omitted_; }
    std::size_t GetHiddenCount(Hiding why) const { return hidden_[static_cast<std::size_t>(why)]; }
    /// Whether there is an error or a warning.
    bool HasFault() const;

private:
    std::size_t limit_;
    std::size_t omitted_ = 0;
    std::size_t counts_[3] = {};
    std::size_t hidden_[2] = {};
    std::vector<Finding> kept_;
};

} // namespace Veld::Quor::Core::Decks

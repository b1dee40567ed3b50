#pragma once

#include "quor/deck/ReadOptions.h"

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>

namespace Veld::Quor::Tools {

/// Why a file is no baseline.
class BaselineError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Findings by what stays the same when lines come and go elsewhere in a deck.
class Baseline {
public:
    struct Key {
        std::string code;
        std::string file; ///< from the folder of the deck on
        std::string text; ///< of the line, without blanks around it; of a long one the beginning

        bool operator<(const Key& other) const
        {
            return std::tie(code, file, text) < std::tie(other.code, other.file, other.text);
        }
    };
    using Counts = std::map<Key, std::size_t>;

    /// Throws `BaselineError`, which names the file.
    static Baseline Read(const std::string& path);
    std::string ToText() const;

    /// Takes each finding for known as often as it is in the baseline. One answer is for one deck.
    Core::Decks::KnownFinding MakeFilter(const std::string& deck) const;
    /// Takes all findings for known, and counts them in `counts`, which must outlive the answer.
    static Core::Decks::KnownFinding MakeRecorder(const std::string& deck, Counts& counts);
    /// So that the baseline knows what one deck has, and still what others have.
    void Add(const Counts& counts);
    std::size_t GetCount() const;

private:
    static Baseline FromText(std::string_view bytes);

    Counts counts_;
};

} // namespace Veld::Quor::Tools

#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/words/DeckText.h"
#include "quor/variables/VariablesString.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Decks {

/// Texts that stand for variables, by name with the "$".
using VariableTexts = std::map<std::string, std::string>;

/// Puts the values of variables where a deck has their names, and reports those that have none.
class VariableValues {
public:
    VariableValues(VariableTexts texts, DeckText& deck, FindingReporter& reporter)
        : texts_(std::move(texts))
        , deck_(deck)
        , reporter_(reporter)
    {
    }

    /// A keyword begins.
    void Begin() { unknown_ = 0; }

    /// The text with values for the variables in it; empty, and reported at the range, if one has no value.
    std::optional<std::string> Replace(const Core::Keywords::VariablesString& text, const TextRange& range);

    /// How many variables of the keyword have no value.
    std::size_t GetUnknownCount() const { return unknown_; }
    /// How many have been reported so far: each name once.
    std::size_t GetReportedCount() const { return reported_.size(); }

private:
    void Report(const std::string& name, const TextRange& range);

    VariableTexts texts_;
    DeckText& deck_;
    FindingReporter& reporter_;
    std::set<std::string> reported_;
    std::size_t unknown_ = 0;
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "tools/deck/DataPlan.h"
#include "tools/deck/NumberText.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools::Deck {

/// A word of a record, as it stands on its line.
struct RecordWord {
    std::string_view text; ///< without quotes and repeat count
    long long count = 1;
    bool isQuoted = false;
    bool isDefault = false;
};

/// The words of a line up to the slash.
struct RecordWords {
    std::vector<RecordWord> words;
    bool isEnded = false; ///< there is a slash
};
RecordWords FindRecordWords(std::string_view line);

/// How many values the words stand for.
std::size_t CountValues(const RecordWords& line);

/// Whether the words can be the items of the record from `first` on to its end. Nothing is told. What isn't
/// a scalar, and all behind it, fits anything.
bool Fits(const DataPlan& record, std::size_t first, std::span<const RecordWord> words);

/// YES and NO, in the forms that decks have for them.
std::optional<bool> ToBoolean(std::string_view text);

} // namespace Veld::Quor::Tools::Deck

#pragma once

#include "quor/deck/internal/read/DataPlan.h"
#include "quor/deck/internal/text/NumberText.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

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

/// Whether the words can be the items of the record from `first` on to its end. Nothing is reported. What
/// isn't a scalar, and all after it, fits anything.
bool Fits(const DataPlan& record, std::size_t first, std::span<const RecordWord> words);

/// YES and NO, in the forms that decks have for them.
std::optional<bool> ToBoolean(std::string_view text);

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/values/DataPlan.h"

#include <string>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Core::Decks {

/// Whether a deck can hold the number: not infinity and the like, nor one of the two that stand for "not
/// given".
bool CanBeWritten(int value);
bool CanBeWritten(double value);

/// The value as a word of a deck that is read as the same value, or as a line. Throws
/// `std::invalid_argument`, which says why, if there is none. `mayBeMissing`: a blank word is a default.
std::string MakeWord(const Core::Keywords::IKeywordDataMD& md, const ScalarValue& value, bool mayBeMissing);

/// Throws `std::invalid_argument` if a deck can't hold one of the values of the data.
void CheckValues(const DataPlan& plan, const Core::Keywords::IKeywordData& data);

} // namespace Veld::Quor::Core::Decks

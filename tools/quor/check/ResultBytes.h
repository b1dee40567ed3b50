#pragma once

#include "tools/quor/check/DeckResult.h"

#include <optional>
#include <string>

namespace Veld::Quor::Tools {

/// A result as bytes that other bytes may follow.
std::string ToBytes(const DeckResult& result);
/// The same of what ends the run.
std::string ErrorBytes(const std::string& message);

/// The first result in `bytes`, which is taken out of them; empty if it isn't whole yet. Throws what ended
/// the run as `std::runtime_error`.
std::optional<DeckResult> TakeResult(std::string& bytes);

} // namespace Veld::Quor::Tools

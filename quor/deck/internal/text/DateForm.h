#pragma once

#include "quor/foundation/service/Time.h"

#include <optional>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// The time that a text says in the form in which `DateText` writes it, with zeros at its end or without;
/// empty for any other text.
std::optional<Service::Time> ToTime(std::string_view text);

/// Whether `DateText` writes the two alike: it cuts a time to milliseconds. `whole` has no finer part.
inline bool IsWrittenAs(const Service::Time& time, const Service::Time& whole)
{
    return time >= whole && time < whole + Service::Time::TicksPerSecond / 1000;
}

} // namespace Veld::Quor::Core::Decks

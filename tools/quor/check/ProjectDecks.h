#pragma once

#include "tools/quor/check/CheckOptions.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// The decks that paths and patterns name, each once: see below. Throws `std::runtime_error`.
std::vector<std::string> DecksOf(const std::vector<std::string>& given);

/// The decks to check: those of the command line, or without any those of the project, which the settings
/// file of the current folder names. A folder stands for the `.data` files in it and below, a pattern for
/// what it matches: `*`, `?` and `[a-z]` within a name, `**` for any folders. In the order given, each once,
/// where it is named first; those of one folder or pattern sorted. Throws `SettingsError`, or
/// `std::runtime_error` if there is nothing to check.
std::vector<std::string> DecksOf(const CheckOptions& options);

} // namespace Veld::Quor::Tools

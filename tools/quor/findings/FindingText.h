#pragma once

#include "quor/deck/Finding.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools {

/// All findings that are kept, for people, and how many more there are. In colours if standard output takes
/// them.
std::string FindingsText(const Core::Decks::Findings& findings);

/// The message, and how many more like it there are.
std::string WithMore(const Core::Decks::Finding& finding);

/// "2 errors, 1 warning"; "no findings" if there are none but notes. After them, what is hidden.
std::string CountsText(const Core::Decks::Findings& findings);

/// "1 file", "2 files"
std::string Plural(std::size_t count, const char* word);

} // namespace Veld::Quor::Tools

#pragma once

#include <filesystem>
#include <string>

namespace Veld::Quor::Core::Decks {

/// The name of a file below the folder that is not there, as that of one that is: with its letters in another
/// case, or backslashes for slashes. Empty if there is none.
std::string FindOtherSpelling(const std::filesystem::path& folder, const std::string& name);

} // namespace Veld::Quor::Core::Decks

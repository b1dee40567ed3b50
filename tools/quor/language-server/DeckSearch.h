#pragma once

#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// Whether a file of this path is taken for a deck.
bool IsDeckName(const std::string& path);

/// Decks that may include the file, the likeliest first: `known`, files with the ending ".data" in the folder
/// of the file and those above it, up to the nearest of `folders` or five levels, then anywhere below
/// `folders`. In each of these groups those come first whose own text has the name of the file, then those
/// that have the folder on the way to it. At most 100.
std::vector<std::string> FindDecksFor(
    const std::string& path, const std::vector<std::string>& known, const std::vector<std::string>& folders);

} // namespace Veld::Quor::Tools::LanguageServer

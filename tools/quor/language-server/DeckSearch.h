#pragma once

#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// Decks that may include the file, the likeliest first: files with the ending ".data" in the folder of the
/// file and those above it, up to the nearest of `folders` or five levels, then anywhere below `folders`.
/// Among those of one folder the ones come first whose own text has the name of the file, or of a folder on
/// the way to it. At most 100.
std::vector<std::string> FindDecksFor(const std::string& path, const std::vector<std::string>& folders);

} // namespace Veld::Quor::Tools::LanguageServer

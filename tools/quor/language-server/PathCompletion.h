#pragma once

#include "tools/quor/language-server/Places.h"

#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// Adds completions for the path of a file: files and folders below the folder of the deck that continue
/// `prefix`. `word`: what is replaced, its `quote` included. Whether there are more than it adds.
bool AddPaths(Json& items, const View& view, const ByteRange& word, char quote, const std::string& prefix);

} // namespace Veld::Quor::Tools::LanguageServer

#pragma once

#include <nlohmann/json.hpp>

#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

class LoadedLanguage;

/// What documents say of keywords, apart from the table that was made of them: of each name the keywords,
/// an object each.
using SyntaxSnapshot = std::map<std::string, std::vector<nlohmann::ordered_json>>;

/// The name of the language that is built in, on a command line.
constexpr const char* builtinLanguage = "builtin";

/// Of a document, of the documents of a folder, or of the built-in language. The language is loaded again for
/// it. Throws what the load throws, and `std::runtime_error` if there is no document.
SyntaxSnapshot TakeSnapshot(LoadedLanguage& language, const std::string& path);

} // namespace Veld::Quor::Tools

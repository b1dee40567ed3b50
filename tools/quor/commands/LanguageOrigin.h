#pragma once

#include "quor/lint/Document.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

class LoadedLanguage;

/// How many keywords of a name there are.
using KeywordCounts = std::map<std::string, std::size_t>;

/// Adds those of a document.
void CountKeywords(const Core::Lint::Document& document, KeywordCounts& counts);

/// A line for each document that is in force beside the built-in ones or in their place: what it adds and
/// what it replaces. Empty if there is none.
std::string OriginText(LoadedLanguage& language);

/// The built-in keywords over which those of the documents take precedence if they are added to the
/// language, sorted.
std::vector<std::string> ReplacedBy(const std::vector<Core::Lint::Document>& documents);

/// The first of the names: "A, B, C and 12 more".
std::string SomeOf(const std::vector<std::string>& names);

} // namespace Veld::Quor::Tools

#pragma once

#include "tools/quor/language-server/Explanations.h"
#include "tools/quor/language-server/Places.h"

#include <map>
#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// The diagnostics of all files of a deck, by URI; files without any have an empty list. Findings in text
/// that was changed since are left out.
std::map<std::string, Json> DiagnosticsOf(const Places& places, Explanations& explanations);

/// Of one finding; null if its text was changed since.
Json DiagnosticOf(const Places& places, const Core::Decks::Finding& finding, Explanations& explanations);

} // namespace Veld::Quor::Tools::LanguageServer

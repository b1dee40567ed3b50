#pragma once

#include "tools/quor/check/CheckOptions.h"
#include "tools/quor/check/DeckResult.h"

#include <functional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

class LoadedLanguage;

/// Checks decks, several at once if the options say so. `take` gets the results in the order of the decks,
/// whichever is ready first. On a terminal a line shows how far that is. Throws what ends the run.
void CheckDecks(LoadedLanguage& language, const CheckOptions& options, const std::vector<std::string>& decks,
    const std::function<void(DeckResult)>& take);

} // namespace Veld::Quor::Tools

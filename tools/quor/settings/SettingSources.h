#pragma once

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/ReadOptions.h"
#include "tools/quor/settings/Settings.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// Where the settings of a deck are from.
struct SettingSources {
    Settings given; ///< what the command line says
    std::string file; ///< to use for all decks; empty: the nearest of each
    bool isWithoutFile = false; ///< no file is used
};

/// The settings file of a deck; empty: none.
std::string SettingsFileOf(const std::string& deck, const SettingSources& sources);

/// What holds for a deck. Throws `SettingsError`.
Settings SettingsOf(const std::string& deck, const SettingSources& sources);

/// The documents of keywords that settings add to the language. Throws `SettingsError` if one can't be read.
std::vector<std::string> DocumentsOf(const Settings& settings);

/// Puts what settings say of reading into the options: simulator, mode, variables, aliases, repeats.
void ApplyReading(const Settings& settings, Core::Decks::ReadOptions& options);
/// Puts what they say of findings into the options: codes and strictness.
void ApplyCodes(const Settings& settings, Core::Decks::ReadOptions& options);

/// Throws `SettingsError` if the settings name a code that findings don't have, nor rules of the language.
void CheckCodes(const Settings& settings, const Core::Decks::DeckLanguage& language);

} // namespace Veld::Quor::Tools

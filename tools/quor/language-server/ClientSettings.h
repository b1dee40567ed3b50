#pragma once

#include "quor/deck/Target.h"
#include "tools/quor/language-server/Protocol.h"
#include "tools/quor/settings/Settings.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// What the user of the editor has set.
struct ClientSettings {
    Settings given = {}; ///< takes precedence over the settings file of a deck
    std::string root =
        {}; ///< path of the deck to which all files belong; empty: they are searched for theirs
    std::vector<std::string> errors = {}; ///< whole sentences: what is not set, and why

    /// Where a deck runs that no settings file is known of.
    Core::Decks::Target GetTarget() const;
};

/// From an object of the members that `docs/editor.md` lists. What isn't as it says there is an error, and
/// not set. Null: none is set.
ClientSettings SettingsIn(const Json& json);

} // namespace Veld::Quor::Tools::LanguageServer

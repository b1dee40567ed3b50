#pragma once

#include "quor/deck/Target.h"
#include "tools/quor/language-server/Protocol.h"

#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// What the user of the editor has set.
struct Settings {
    Core::Decks::Target target = {};
    std::string root =
        {}; ///< path of the deck to which all files belong; empty: they are searched for theirs
    std::map<std::string, std::string> variables = {};
    bool isStrict = false;
    std::vector<std::string> errors = {}; ///< whole sentences: what is not set, and why
};

/// From an object of the members that `docs/editor.md` lists. What isn't as it says there is not set.
Settings SettingsIn(const Json& json);

} // namespace Veld::Quor::Tools::LanguageServer

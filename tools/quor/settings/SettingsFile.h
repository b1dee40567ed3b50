#pragma once

#include "tools/quor/settings/Settings.h"

#include <stdexcept>
#include <string>

namespace Veld::Quor::Tools {

/// What is wrong with settings: a whole sentence, with file and line.
class SettingsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The nearest `quor.toml` in the folder of a deck and those above it; empty if there is none. The path is
/// relative to the current folder if the deck's is and the file is below it.
std::string FindSettingsFile(const std::string& deck);

/// Throws `SettingsError` if the file can't be read, is no TOML, or says what is no setting. Paths in it are
/// relative to its folder; those that are returned, to the current one.
Settings ReadSettingsFile(const std::string& file);

} // namespace Veld::Quor::Tools

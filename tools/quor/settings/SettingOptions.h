#pragma once

#include "tools/quor/settings/SettingSources.h"

#include <initializer_list>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// Adds the options of settings by the names of these. What is given on the command line goes into `given`,
/// which must outlive the application.
void AddSettingOptions(CLI::App& command, Settings& given, std::initializer_list<const char*> names);

/// Adds the options of own documents, for a command without a deck.
void AddSyntaxOptions(CLI::App& command, SettingSources& sources);

/// Adds the options that name another settings file, or none.
void AddSettingsFileOptions(CLI::App& command, SettingSources& sources);

} // namespace Veld::Quor::Tools

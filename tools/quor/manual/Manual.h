#pragma once

#include "tools/quor/commands/LoadedLanguage.h"

#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

struct ManualFile {
    std::string path; ///< below the folder of the manual
    std::string text;
};

/// The manual of a language: its pages, and what they share.
struct Manual {
    std::vector<ManualFile> files;
    std::map<std::string, std::string> addresses; ///< by keyword: of its page below the folder of the manual
};

Manual MakeManual(LoadedLanguage& language);

/// Writes the files below the folder, and removes pages of an earlier manual that this one doesn't have.
/// False, and reported, if that fails.
bool WriteManual(const Manual& manual, const std::string& folder);

} // namespace Veld::Quor::Tools

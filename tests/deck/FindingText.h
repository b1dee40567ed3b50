#pragma once

#include "quor/deck/Finding.h"

#include <filesystem>
#include <string>

namespace Veld::Quor::Tests {

/// What a user sees of each finding, one to a line: "file:line:column: severity: message [code] | hint", and
/// the places of the inclusions that lead to the file, each with "<-" in front. Names of files are relative
/// to `folder`.
std::string Dump(const Core::Decks::Findings& findings, const std::filesystem::path& folder);

} // namespace Veld::Quor::Tests

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// What a project, or a command line, says of its decks. What is empty is not said. `AllSettings` has their
/// names and what they mean.
struct Settings {
    using Words = std::vector<std::string>;
    using Texts = std::map<std::string, std::string>;

    std::optional<std::string> simulator;
    std::optional<std::string> mode;
    std::optional<Words> decks; // patterns of paths
    std::optional<Words> rules; // files
    std::optional<Words> syntax; // files
    std::optional<std::string> syntaxFolder;
    std::optional<std::size_t> maxRepeatedValues;
    std::optional<Texts> variables;
    std::optional<Texts> aliases;
    std::optional<Words> selected; // codes, as the next two
    std::optional<Words> ignored;
    std::optional<Words> raised;
    std::optional<std::string> failOn;
    std::optional<bool> isStrict;
    std::optional<std::size_t> maxFindings;
    std::optional<std::string> baseline; // a file
    std::optional<bool> isNormalized;

    /// Where each setting is from, by its name; "variables.N" for one of several.
    std::map<std::string, std::string> origins = {};
};

/// What holds if a command line says `given` in a project that says `ofProject`: the command line takes
/// precedence. It adds to rules, to documents and to codes that are ignored or raised; a code that it selects
/// is not ignored.
Settings Merge(const Settings& given, const Settings& ofProject);

} // namespace Veld::Quor::Tools

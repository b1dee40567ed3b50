#pragma once

#include "quor/deck/DeckLanguage.h"
#include "quor/syntax/KeywordSyntaxTable.h"
#include "tools/quor/findings/Baseline.h"
#include "tools/quor/language-server/NameIndex.h"
#include "tools/quor/settings/Settings.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// The language with the rules of a project.
struct ProjectLanguage {
    ProjectLanguage(Core::Keywords::KeywordSyntaxTable& table, const std::vector<std::string>& ruleFiles)
        : language(table, ruleFiles)
        , names(language)
    {
    }

    Core::Decks::DeckLanguage language;
    mutable NameRules names; // locks itself
};

/// What holds for a deck: the settings of its file, and what the editor sets besides.
struct Project {
    std::string file = {}; ///< its `quor.toml`; empty: it has none
    Settings settings = {};
    std::shared_ptr<const ProjectLanguage> language = nullptr;
    std::shared_ptr<const Baseline> baseline = nullptr; ///< findings to hide; null: none
    std::string error = {}; ///< a whole sentence: what is not used, and why; empty: nothing

    /// The settings file, and what it names: rules, documents of keywords, the baseline; and the documents
    /// that are loaded.
    std::vector<std::string> GetFiles() const;
};

/// Finds the projects of decks. Settings files are read each time, rules when their files have changed.
class Projects {
public:
    explicit Projects(Core::Keywords::KeywordSyntaxTable& table);

    /// `given`: what the editor sets. Of a project with an error the last settings without one hold.
    Project Find(const std::string& deck, const Settings& given);
    /// The decks that the settings file of a file names.
    static std::vector<std::string> DecksFor(const std::string& file);

private:
    struct KnownLanguage {
        std::vector<std::filesystem::file_time_type> times; // of the files of rules
        std::shared_ptr<const ProjectLanguage> language;
    };

    std::shared_ptr<const ProjectLanguage> LanguageWith(const Settings& settings);
    std::shared_ptr<const ProjectLanguage> LastLanguageWith(const Settings& settings);

    Core::Keywords::KeywordSyntaxTable& table_;
    std::map<std::string, Settings> read_; // by settings file: the last without an error
    std::map<std::vector<std::string>, KnownLanguage> languages_; // by the files of rules
};

/// The documents of keywords that the settings file of a folder adds to those of a command line. Throws
/// `SettingsError`.
std::vector<std::string> DocumentsFor(const std::string& folder, const Settings& given);

} // namespace Veld::Quor::Tools::LanguageServer

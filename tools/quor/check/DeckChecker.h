#pragma once

#include "quor/deck/DeckLanguage.h"
#include "tools/quor/check/CheckOptions.h"
#include "tools/quor/check/DeckResult.h"

#include <map>
#include <memory>
#include <string>

namespace Veld::Quor::Tools {

class LoadedLanguage;

/// Checks decks one by one, each as its settings say.
class DeckChecker {
public:
    /// Both must outlive it.
    DeckChecker(LoadedLanguage& language, const CheckOptions& options);

    /// A deck of the command line; `withProgress`: a bar shows how far it is read. Throws `SettingsError`,
    /// `RuleError` or `BaselineError`: then no deck is judged as it should be.
    DeckResult Check(const std::string& path, bool withProgress = true);

private:
    const Core::Decks::DeckLanguage& LanguageWith(const Settings& settings);
    const Baseline& BaselineOf(const std::string& path);
    Core::Decks::ReadOptions OptionsOf(
        const std::string& deck, const Settings& settings, Baseline::Counts& known);

    LoadedLanguage& language_;
    const CheckOptions& options_;
    std::map<Settings::Words, std::unique_ptr<Core::Decks::DeckLanguage>> languages_; // by their rules
    std::map<std::string, Baseline> baselines_; // by their files
};

} // namespace Veld::Quor::Tools

#include "tools/quor/check/DeckChecker.h"

#include "quor/deck/Deck.h"
#include "tools/quor/check/CheckReport.h"
#include "tools/quor/check/CheckStatistics.h"
#include "tools/quor/check/DeckFixes.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/findings/FindingCodes.h"
#include "tools/quor/findings/FindingJson.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

/// How many findings are looked at to find those that are alike.
constexpr std::size_t mostFolded = 100'000;
constexpr std::size_t mostFindings = 200;

CheckedDeck Keep(
    const std::string& name, const Decks::Deck& deck, const Settings& settings, const CheckOptions& options)
{
    const Decks::Findings& all = deck.GetFindings();
    Decks::Findings findings = options.isAll ? all : all.Fold(settings.maxFindings.value_or(mostFindings));
    std::vector<Fix> fixes = FixesOf(findings, deck.GetFiles());
    return {name, std::move(findings), std::move(fixes), deck.GetSize(), deck.GetSectionCount(),
        deck.GetFileCount(), settings.failOn.value_or("warning") == "warning"};
}

ExitStatus StatusOf(const Decks::Findings& findings, const Settings& settings)
{
    const std::string failOn = settings.failOn.value_or("warning");
    if (failOn == "never")
        return Success;
    if (findings.GetCount(Decks::Severity::Error) > 0)
        return HasFindings;
    return failOn == "warning" && findings.GetCount(Decks::Severity::Warning) > 0 ? HasWarnings : Success;
}

void FixAndReport(
    const std::string& deck, const Decks::ReadOptions& options, const Decks::DeckLanguage& language)
{
    const DeckFixes fixes = FixDeck(deck, options, language);
    if (fixes.findings > 0)
        PrintAside(fmt::format("{}: fixed {} in {}\n", MakePrintable(deck), Plural(fixes.findings, "finding"),
            Plural(fixes.files, "file")));
}

} // namespace

DeckChecker::DeckChecker(LoadedLanguage& language, const CheckOptions& options)
    : language_(language)
    , options_(options)
{
}

DeckResult DeckChecker::Check(const std::string& path, bool withProgress)
{
    DeckResult result{NameOfDeck(path, options_.read.read)};
    const Settings settings = SettingsOf(result.deck, options_.read.settings);
    const Decks::DeckLanguage& language = LanguageWith(settings);
    const Decks::ReadOptions read = OptionsOf(result.deck, settings, result.known);
    try {
        if (options_.isFixing)
            FixAndReport(result.deck, read, language);
        const Decks::Deck deck = ReadDeckOrThrow(path, read, language, withProgress);
        const CheckedDeck checked = Keep(result.deck, deck, settings, options_);
        PrintHiddenText(checked.findings, deck);
        result.status = StatusOf(checked.findings, settings);
        result.counts = CountsJson({checked.findings});
        if (options_.hasStatistics)
            result.tally = TallyOf(deck);
        else
            result.part = PartOf(checked, options_.format, options_.isQuiet);
    } catch (const Decks::SourceError& error) {
        result.failure = error.what();
        result.status = Failure;
    }
    return result;
}

const Decks::DeckLanguage& DeckChecker::LanguageWith(const Settings& settings)
{
    auto& language = languages_[settings.rules.value_or(Settings::Words())];
    if (!language)
        language = std::make_unique<Decks::DeckLanguage>(
            language_.GetTable(), settings.rules.value_or(Settings::Words()));
    std::vector<std::string> codes = language->GetOwnCodes();
    for (const Decks::CodeInfo& code : Decks::Codes())
        codes.emplace_back(code.name);
    CheckCodes(settings, codes);
    return *language;
}

Decks::ReadOptions DeckChecker::OptionsOf(
    const std::string& deck, const Settings& settings, Baseline::Counts& known)
{
    Decks::ReadOptions read = options_.read.read;
    ApplyReading(settings, read);
    ApplyCodes(settings, read);
    const std::size_t limit = settings.maxFindings.value_or(mostFindings);
    read.SetMaxFindings(options_.isAll ? limit : std::max(limit, mostFolded));
    if (!options_.newBaseline.empty())
        read.SetKnownFinding(Baseline::MakeRecorder(deck, known));
    else if (settings.baseline)
        read.SetKnownFinding(BaselineOf(*settings.baseline).MakeFilter(deck));
    return read;
}

const Baseline& DeckChecker::BaselineOf(const std::string& path)
{
    const auto known = baselines_.find(path);
    if (known != baselines_.end())
        return known->second;
    try {
        return baselines_.emplace(path, Baseline::Read(path)).first->second;
    } catch (const std::runtime_error& error) {
        throw BaselineError(fmt::format("can't read the baseline '{}': {}", path, error.what()));
    }
}

} // namespace Veld::Quor::Tools

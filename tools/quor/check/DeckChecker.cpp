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
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

/// How many findings are looked at to find those that are alike.
constexpr std::size_t mostFolded = 100'000;
constexpr std::size_t mostFindings = 200;

/// One of the files of a deck, whatever the deck calls it. Throws `SourceError` if there is no such file.
class FileOfDeck {
public:
    FileOfDeck(const std::string& path, std::shared_ptr<const Decks::DeckSource> source)
        : source_(std::move(source))
    {
        try {
            identity_ = source_->Identify(path);
        } catch (const Decks::SourceError& error) {
            throw Decks::SourceError(fmt::format("can't read '{}': {}", MakePrintable(path), error.what()));
        }
    }

    bool operator()(const Decks::DeckFile& file)
    {
        const auto [known, isNew] = known_.try_emplace(file.name);
        if (isNew)
            known->second = source_->Identify(file.name) == identity_;
        return known->second;
    }

private:
    std::shared_ptr<const Decks::DeckSource> source_;
    std::string identity_;
    std::map<std::string, bool> known_; // by name
};

CheckedDeck Keep(
    const std::string& name, const Decks::Deck& deck, const Settings& settings, const CheckOptions& options)
{
    const Decks::Findings& all = deck.GetFindings();
    Decks::Findings findings = options.isAll ? all : all.Fold(settings.maxFindings.value_or(mostFindings));
    std::vector<Fix> fixes = FixesOf(findings, deck.GetFiles());
    return {name, std::move(findings), std::move(fixes), deck.GetSize(), deck.GetSectionCount(),
        deck.GetFileCount(), settings.failOn.value_or("warning") == "warning"};
}

/// Counts what is in one file of a deck. Throws `SourceError` if the deck doesn't have it.
void CountFile(FileOfDeck file, const Decks::Deck& deck, const std::string& root, CheckedDeck& checked)
{
    std::vector<bool> isIt;
    for (std::uint32_t i = 0; i < deck.GetFiles().GetSize(); ++i)
        isIt.push_back(file(deck.GetFiles().Get(i)));
    if (std::count(isIt.begin(), isIt.end(), true) == 0)
        throw Decks::SourceError(fmt::format(
            "the deck '{}' doesn't include '{}'", MakePrintable(root), MakePrintable(checked.name)));
    std::set<Core::Keywords::SectionType::Enum> sections;
    checked.keywords = 0;
    for (const Decks::DeckKeyword keyword : deck) {
        if (!isIt[keyword.GetNameRange().file])
            continue;
        ++checked.keywords;
        if (keyword.GetSection() != Core::Keywords::SectionType::None)
            sections.insert(keyword.GetSection());
    }
    checked.sections = sections.size();
    checked.files = 1;
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
    const std::string root =
        options_.root.empty() ? result.deck : NameOfDeck(options_.root, options_.read.read);
    const Settings settings = SettingsOf(root, options_.read.settings);
    const Decks::DeckLanguage& language = LanguageWith(settings);
    Decks::ReadOptions read = OptionsOf(root, settings, result.known);
    try {
        if (options_.isFixing)
            FixAndReport(result.deck, read, language);
        std::optional<FileOfDeck> file;
        if (!options_.root.empty())
            read.SetReportedFile(file.emplace(result.deck, read.GetSource()));
        const Decks::Deck deck = file ? ReadSourceOrThrow(root, read, language, withProgress)
                                      : ReadDeckOrThrow(path, read, language, withProgress);
        CheckedDeck checked = Keep(result.deck, deck, settings, options_);
        if (file)
            CountFile(*file, deck, root, checked);
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
    if (const auto documents = DocumentsOf(settings); documents != language_.GetDocuments()) {
        languages_.clear();
        language_.Load(documents);
    }
    auto& language = languages_[settings.rules.value_or(Settings::Words())];
    if (!language)
        language = std::make_unique<Decks::DeckLanguage>(
            language_.GetTable(), settings.rules.value_or(Settings::Words()));
    CheckCodes(settings, *language);
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
    return known != baselines_.end() ? known->second
                                     : baselines_.emplace(path, Baseline::Read(path)).first->second;
}

} // namespace Veld::Quor::Tools

#include "tools/quor/language-server/DeckReader.h"

#include "tools/quor/language-server/DeckSearch.h"
#include "tools/quor/settings/SettingSources.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

constexpr std::size_t mostFindings = 1000;

/// What the settings of the project say.
Decks::ReadOptions OptionsOf(const Project& project, const std::string& deck)
{
    Decks::ReadOptions options;
    ApplyReading(project.settings, options);
    ApplyCodes(project.settings, options);
    if (project.baseline)
        options.SetKnownFinding(project.baseline->MakeFilter(deck));
    return options;
}

} // namespace

DeckReader::DeckReader(Core::Keywords::KeywordSyntaxTable& table, std::function<void(ReadResult)> report)
    : projects_(table)
    , report_(std::move(report))
    , thread_([this] { Work(); })
{
}

DeckReader::~DeckReader()
{
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
        isCancelled_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void DeckReader::Submit(ReadJob job)
{
    {
        const std::lock_guard lock(mutex_);
        std::erase_if(jobs_, [&job](const ReadJob& other) { return job.IsLike(other); });
        if (current_ && job.IsLike(*current_))
            isCancelled_ = true;
        jobs_.push_back(std::move(job));
    }
    changed_.notify_all();
}

void DeckReader::Work()
{
    while (const auto job = Take()) {
        try {
            report_(Do(*job));
        } catch (const Decks::ReadCancelled&) { // a newer job is there
            continue;
        }
    }
}

std::optional<ReadJob> DeckReader::Take()
{
    std::unique_lock lock(mutex_);
    current_.reset();
    changed_.wait(lock, [this] { return isEnding_ || !jobs_.empty(); });
    if (isEnding_)
        return std::nullopt;
    isCancelled_ = false;
    current_ = std::move(jobs_.front());
    jobs_.pop_front();
    return current_;
}

ReadResult DeckReader::Do(const ReadJob& job)
{
    ReadResult result{job.path, job.number};
    try {
        result.state = job.reading == Reading::DeckOfFile ? Search(job) : Read(job.path, job);
    } catch (const Decks::ReadCancelled&) {
        throw;
    } catch (const std::exception& error) { // memory included: the server lives on without the deck
        result.error = error.what();
    }
    return result;
}

StatePointer DeckReader::Search(const ReadJob& job)
{
    const std::string key = KeyOfPath(job.path);
    for (const std::string& deck : FindDecksFor(job.path, Projects::DecksFor(job.path), job.folders)) {
        try {
            const auto state = Read(deck, job);
            if (state->FindFile(key))
                return state;
        } catch (const Decks::SourceError&) { // gone since, or nothing to read
            continue;
        }
    }
    ReadJob alone = job;
    alone.reading = Reading::Fragment;
    return Read(job.path, alone);
}

std::shared_ptr<DeckState> DeckReader::Read(const std::string& path, const ReadJob& job)
{
    Project project = projects_.Find(path, job.given);
    Decks::ReadOptions options = OptionsOf(project, path);
    options.SetMaxFindings(mostFindings).SetEditable(true).SetSource(job.source);
    options.SetCancellation([this] { return isCancelled_.load(); });
    Decks::Deck deck = Decks::Deck::Read(path, project.language->language, options);
    auto state = std::make_shared<DeckState>(std::move(deck), path, job.versions, std::move(project));
    if (job.reading == Reading::Fragment)
        state->MarkAsFragment();
    return state;
}

} // namespace Veld::Quor::Tools::LanguageServer

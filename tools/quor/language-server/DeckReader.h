#pragma once

#include "quor/deck/DeckSource.h"
#include "tools/quor/language-server/DeckState.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// What is read.
enum class Reading {
    Deck,
    DeckOfFile, ///< the deck that includes a file; the file alone if none is found
    Fragment, ///< a file that no deck includes
};

/// A deck to read.
struct ReadJob {
    std::string path; ///< of the deck or the file
    Reading reading = Reading::Deck;
    std::size_t number = 0; ///< comes back with the result
    std::vector<std::string> folders = {}; ///< of the editor, for a search
    Settings given = {}; ///< what the editor sets
    std::shared_ptr<const Core::Decks::DeckSource> source = nullptr; ///< has the open documents
    TextVersions versions = {}; ///< of these

    bool IsLike(const ReadJob& other) const { return path == other.path; }
};

struct ReadResult {
    std::string path; ///< of the job
    std::size_t number = 0; ///< of the job
    StatePointer state = nullptr; ///< null if the deck can't be read
    std::string error = {}; ///< why
};

/// Reads decks on a thread of its own, one after another.
class DeckReader {
public:
    /// `report` is called on the thread, for each job that isn't replaced.
    DeckReader(Core::Keywords::KeywordSyntaxTable& table, std::function<void(ReadResult)> report);
    /// Cancels what is read.
    ~DeckReader();
    DeckReader(const DeckReader&) = delete;
    DeckReader& operator=(const DeckReader&) = delete;

    /// Replaces a job for the same path, also one that is being worked on.
    void Submit(ReadJob job);

private:
    void Work();
    std::optional<ReadJob> Take();
    ReadResult Do(const ReadJob& job);
    StatePointer Search(const ReadJob& job);
    std::shared_ptr<DeckState> Read(const std::string& path, const ReadJob& job);

    Projects projects_;
    std::function<void(ReadResult)> report_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<ReadJob> jobs_;
    std::optional<ReadJob> current_;
    bool isEnding_ = false;
    std::atomic<bool> isCancelled_ = false;
    std::thread thread_; // last: it uses the others
};

} // namespace Veld::Quor::Tools::LanguageServer

#pragma once

#include "tools/quor/check/DeckResult.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Veld::Quor::Tools {

/// Processes that check decks side by side. They share the language of this process, which must have no
/// threads. One that dies takes its deck with it and nothing else: the result of the deck says so.
class DeckWorkers {
public:
    using Check = std::function<DeckResult(const std::string&)>;
    /// Gets the index of a deck and its result, as soon as it is there.
    using Take = std::function<void(std::size_t, DeckResult)>;

    /// `check` is called by the processes alone; what it throws is thrown here.
    DeckWorkers(std::size_t jobs, Check check);
    ~DeckWorkers();
    DeckWorkers(const DeckWorkers&) = delete;
    DeckWorkers& operator=(const DeckWorkers&) = delete;

    /// Checks those of `decks` that have these indices. `wait` is called now and then.
    void Run(const std::vector<std::string>& decks, const std::vector<std::size_t>& indices, const Take& take,
        const std::function<void()>& wait);

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Worker {
        pid_t process = -1;
        int questions = -1; // a pipe to it: indices of decks
        int answers = -1; // and from it: results
        std::size_t deck = none; // that it is at
        std::string bytes = {}; // of an answer, so far
    };

    void Start(Worker& worker, const std::vector<std::string>& decks);
    [[noreturn]] void Serve(const Worker& worker, const std::vector<std::string>& decks) const;
    /// False if it has no more to say: then it has ended.
    static bool ReadMore(Worker& worker);
    /// How the process ended, as the end of a sentence.
    static std::string Stop(Worker& worker);

    Check check_;
    std::vector<Worker> workers_;
};

} // namespace Veld::Quor::Tools

#include "tools/quor/check/DeckWorkers.h"

#include "tools/quor/check/ResultBytes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Veld::Quor::Tools {

namespace {

[[noreturn]] void FailWork(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

/// False if the other end is gone.
bool WriteAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return false;
    }
    return true;
}

bool ReadIndex(int file, std::size_t& index)
{
    ssize_t count = -1;
    do
        count = ::read(file, &index, sizeof index);
    while (count < 0 && errno == EINTR);
    return count == sizeof index; // a pipe keeps so few bytes together
}

} // namespace

DeckWorkers::DeckWorkers(std::size_t jobs, Check check)
    : check_(std::move(check))
    , workers_(std::max<std::size_t>(jobs, 1))
{
}

DeckWorkers::~DeckWorkers()
{
    for (Worker& worker : workers_) {
        if (worker.deck != none) // the run ended early
            ::kill(worker.process, SIGKILL);
        if (worker.process > 0)
            Stop(worker);
    }
}

void DeckWorkers::Run(const std::vector<std::string>& decks, const std::vector<std::size_t>& indices,
    const Take& take, const std::function<void()>& wait)
{
    constexpr int patience = 200; // milliseconds
    auto next = indices.begin();
    std::size_t left = indices.size();
    while (left > 0) {
        std::vector<pollfd> polled;
        for (Worker& worker : workers_) {
            if (worker.deck == none && next != indices.end()) {
                if (worker.process < 0)
                    Start(worker, decks);
                worker.deck = *next++;
                WriteAll(worker.questions, {reinterpret_cast<const char*>(&worker.deck), sizeof worker.deck});
            }
            polled.push_back({worker.deck == none ? -1 : worker.answers, POLLIN, 0});
        }
        if (::poll(polled.data(), polled.size(), patience) < 0 && errno != EINTR)
            FailWork("can't wait for a process");
        for (std::size_t i = 0; i < polled.size(); ++i) {
            Worker& worker = workers_[i];
            if (polled[i].revents == 0)
                continue;
            std::optional<DeckResult> result;
            if (!ReadMore(worker)) {
                result = DeckResult{decks[worker.deck]};
                result->failure = fmt::format("can't check '{}': its process {}", result->deck, Stop(worker));
                result->status = Failure;
            } else if (!(result = TakeResult(worker.bytes)))
                continue;
            --left;
            take(std::exchange(worker.deck, none), std::move(*result));
        }
        wait();
    }
}

void DeckWorkers::Start(Worker& worker, const std::vector<std::string>& decks)
{
    std::array<int, 2> questions{};
    std::array<int, 2> answers{};
    if (::pipe(questions.data()) != 0 || ::pipe(answers.data()) != 0)
        FailWork("can't make a pipe to a process");
    std::fflush(nullptr); // else both processes write what is there
    const pid_t process = ::fork();
    if (process < 0)
        FailWork("can't start a process");
    if (process == 0) {
        for (const Worker& other : workers_) { // so that they notice when this program ends
            if (other.process > 0) {
                ::close(other.questions);
                ::close(other.answers);
            }
        }
        ::close(questions[1]);
        ::close(answers[0]);
        Serve({0, questions[0], answers[1]}, decks);
    }
    ::close(questions[0]);
    ::close(answers[1]);
    worker = {process, questions[1], answers[0]};
}

void DeckWorkers::Serve(const Worker& worker, const std::vector<std::string>& decks) const
{
    std::size_t index = 0;
    while (ReadIndex(worker.questions, index)) {
        std::string bytes;
        try {
            bytes = ToBytes(check_(decks[index]));
        } catch (const std::bad_alloc&) {
            DeckResult failed{decks[index]};
            failed.failure = fmt::format("can't check '{}': out of memory", decks[index]);
            failed.status = Failure;
            bytes = ToBytes(failed);
        } catch (const std::exception& error) {
            bytes = ErrorBytes(error.what());
        }
        if (!WriteAll(worker.answers, bytes))
            break;
    }
    ::_exit(0); // Wanted: nothing that this process shares with the other is flushed or freed
}

bool DeckWorkers::ReadMore(Worker& worker)
{
    std::array<char, 1U << 16U> part{};
    ssize_t count = -1;
    do
        count = ::read(worker.answers, part.data(), part.size());
    while (count < 0 && errno == EINTR);
    if (count > 0)
        worker.bytes.append(part.data(), static_cast<std::size_t>(count));
    return count > 0;
}

std::string DeckWorkers::Stop(Worker& worker)
{
    ::close(worker.questions);
    ::close(worker.answers);
    int status = 0;
    while (::waitpid(worker.process, &status, 0) < 0 && errno == EINTR) { }
    worker.process = -1;
    worker.bytes.clear();
    if (WIFSIGNALED(status))
        return fmt::format("was ended by signal {} ({})", WTERMSIG(status), ::strsignal(WTERMSIG(status)));
    return fmt::format("ended with status {}", WEXITSTATUS(status));
}

} // namespace Veld::Quor::Tools

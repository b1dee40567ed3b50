#pragma once

#include <atomic>
#include <mutex>

namespace Veld::Quor::Core {

/// Does something once, for whichever thread asks first; if that throws, for the next one that asks.
/// `std::call_once` ends the process where an exception leaves it and memory has run out.
class Once {
public:
    template <class Action>
    void Run(const Action& action)
    {
        if (isDone_.load(std::memory_order_acquire))
            return;
        const std::lock_guard lock(mutex_);
        if (isDone_.load(std::memory_order_relaxed))
            return;
        action();
        isDone_.store(true, std::memory_order_release);
    }

private:
    std::mutex mutex_;
    std::atomic<bool> isDone_ = false;
};

} // namespace Veld::Quor::Core

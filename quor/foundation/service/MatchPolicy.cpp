#include "quor/foundation/service/MatchPolicy.h"

#include <atomic>

namespace Veld::Quor::Core::Service {

namespace {

std::atomic<bool> useLaxMatch{false};

} // namespace

bool UseLaxMatch()
{
    return useLaxMatch.load(std::memory_order_relaxed);
}

void SetUseLaxMatch(bool use)
{
    useLaxMatch.store(use, std::memory_order_relaxed);
}

} // namespace Veld::Quor::Core::Service

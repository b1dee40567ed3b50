#pragma once

#include <functional>

namespace Veld::Quor::Tests {

/// Runs `action` on a thread with as little stack as hosts give to their workers, 256 KiB, and waits for it.
/// Under the address sanitizer, which makes frames larger, 1 MiB.
void OnSmallStack(const std::function<void()>& action);

} // namespace Veld::Quor::Tests

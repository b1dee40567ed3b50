#include "tests/support/SmallStack.h"

#include <cstddef>
#include <stdexcept>

#include <pthread.h>

namespace Veld::Quor::Tests {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t stackSize = std::size_t{1} << 20;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr std::size_t stackSize = std::size_t{1} << 20;
#else
constexpr std::size_t stackSize = std::size_t{256} << 10;
#endif
#else
constexpr std::size_t stackSize = std::size_t{256} << 10;
#endif

void* Run(void* action)
{
    (*static_cast<const std::function<void()>*>(action))();
    return nullptr;
}

} // namespace

void OnSmallStack(const std::function<void()>& action)
{
    pthread_attr_t attributes;
    ::pthread_attr_init(&attributes);
    ::pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread{};
    std::function<void()> copy = action;
    const int error = ::pthread_create(&thread, &attributes, &Run, &copy);
    ::pthread_attr_destroy(&attributes);
    if (error != 0 || ::pthread_join(thread, nullptr) != 0)
        throw std::runtime_error("no thread");
}

} // namespace Veld::Quor::Tests

#include "tests/support/FailingAllocation.h"

#include <cstdlib>

namespace Veld::Quor::Tests::Allocations {

namespace {

long live = 0;
long untilFailure = -1; // negative: none will fail
bool hasFailed = false;

bool Fails()
{
    const bool fails = untilFailure == 0;
    hasFailed = hasFailed || fails;
    untilFailure -= untilFailure >= 0 ? 1 : 0;
    return fails;
}

void* Allocate(std::size_t size)
{
    void* const memory = std::malloc(size == 0 ? 1 : size);
    live += memory ? 1 : 0;
    return memory;
}

void* AllocateOrThrow(std::size_t size)
{
    void* const memory = Fails() ? nullptr : Allocate(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void Free(void* memory)
{
    live -= memory ? 1 : 0;
    std::free(memory);
}

} // namespace

long CountLive()
{
    return live;
}

void FailAfter(long count)
{
    untilFailure = count;
    hasFailed = false;
}

bool HasFailed()
{
    return hasFailed;
}

} // namespace Veld::Quor::Tests::Allocations

using namespace Veld::Quor::Tests::Allocations;

void* operator new(std::size_t size)
{
    return AllocateOrThrow(size);
}
void* operator new[](std::size_t size)
{
    return AllocateOrThrow(size);
}
// Those who ask in this way do without, if need be: a sort is slower then.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}
void operator delete(void* memory) noexcept
{
    Free(memory);
}
void operator delete[](void* memory) noexcept
{
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    Free(memory);
}

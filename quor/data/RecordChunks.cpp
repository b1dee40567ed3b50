#include "quor/data/internal/RecordChunks.h"

#include <algorithm>
#include <new>

namespace Veld::Quor::Core::Keywords {

void* RecordChunks::TakeReturned()
{
    void* const place = returned_;
    returned_ = *static_cast<void**>(place);
    return place;
}

/// The last one is taken back, and its chunk with it if that is empty then: what fails leaves nothing behind.
void RecordChunks::GiveBack(void* place, std::size_t size)
{
    if (static_cast<std::byte*>(place) + size != next_) {
        returned_ = ::new (place) void*(returned_);
        return;
    }
    next_ -= size;
    if (next_ != FirstOf(last_))
        return;
    Chunk* const before = last_->before;
    ::operator delete(last_);
    last_ = before;
    next_ = nullptr; // the one before is full
    end_ = nullptr;
}

/// Each has twice as many as the one before, up to a size that the heap reuses.
void RecordChunks::AddChunk(std::size_t size)
{
    constexpr std::size_t mostBytes = std::size_t(64) << 10;
    const std::size_t count = std::min(nextCount_, std::max<std::size_t>(mostBytes / size, 1));
    void* const memory = ::operator new(sizeof(Chunk) + count * size);
    last_ = ::new (memory) Chunk{last_};
    next_ = FirstOf(last_);
    end_ = next_ + count * size;
    nextCount_ = 2 * count;
}

void RecordChunks::Clear()
{
    while (last_) {
        Chunk* const before = last_->before;
        ::operator delete(last_);
        last_ = before;
    }
    next_ = nullptr;
    end_ = nullptr;
    returned_ = nullptr;
    nextCount_ = 1;
}

} // namespace Veld::Quor::Core::Keywords

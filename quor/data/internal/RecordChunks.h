#pragma once

#include <cstddef>

namespace Veld::Quor::Core::Keywords {

/// Memory for the records of one list, all of one size, in chunks of many: it is taken and freed at once, and
/// a walk over the records is a scan.
class RecordChunks {
public:
    RecordChunks() = default;
    ~RecordChunks() { Clear(); }
    RecordChunks(const RecordChunks&) = delete;
    RecordChunks& operator=(const RecordChunks&) = delete;

    /// The next chunk should have room for so many.
    void Expect(std::size_t count) { nextCount_ = count > nextCount_ ? count : nextCount_; }
    /// Room for a record. `size` is a multiple of that of a pointer. Throws `std::bad_alloc`.
    void* Take(std::size_t size)
    {
        if (returned_)
            return TakeReturned();
        if (next_ == end_)
            AddChunk(size);
        void* const place = next_;
        next_ += size;
        return place;
    }
    /// The room of a record that was destroyed, or could not be made.
    void GiveBack(void* place, std::size_t size);
    /// Frees all; no record is there any more.
    void Clear();

private:
    struct Chunk {
        Chunk* before; // the records follow
    };

    static std::byte* FirstOf(Chunk* chunk) { return reinterpret_cast<std::byte*>(chunk + 1); }
    void* TakeReturned();
    void AddChunk(std::size_t size);

    Chunk* last_ = nullptr;
    std::byte* next_ = nullptr; // in the last chunk
    std::byte* end_ = nullptr;
    void* returned_ = nullptr; // each has the pointer to the next one
    std::size_t nextCount_ = 1;
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// The bytes of a regular file: mapped if that is allowed and can be guarded, else copied. A mapped file that
/// another program cuts short has zero bytes from there on, in place of a signal that ends the process.
class FileBytes {
public:
    /// Sets up the guard: a handler of SIGBUS, which passes on what isn't about a file here.
    static void AllowMapping();

    /// Takes `size` bytes. Throws `SourceError`.
    FileBytes(int descriptor, std::size_t size);
    ~FileBytes();
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    std::string_view Get() const { return {bytes_, length_}; }
    /// False once bytes were asked for that the file doesn't have any more.
    bool IsIntact() const { return !guard_ || !guard_->isCut; }
    /// These bytes aren't needed soon.
    void Release(std::size_t begin, std::size_t end) const;

    /// What the handler knows of a mapping.
    struct Guard {
        std::atomic<std::uintptr_t> begin = 0; // 0: free, 1: being set up
        std::atomic<std::uintptr_t> end = 0;
        std::atomic<bool> isCut = false;
    };

private:
    bool Map(int descriptor);
    void Copy(int descriptor);

    const char* bytes_ = nullptr;
    std::size_t size_;
    std::size_t length_; // less for a copy of a file that has fewer bytes than it says
    Guard* guard_; // null: not mapped, but a copy
};

} // namespace Veld::Quor::Core::Decks

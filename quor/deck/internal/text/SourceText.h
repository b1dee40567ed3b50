#pragma once

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace Veld::Quor::Core::Decks {

/// Why a file can't be read.
class SourceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The bytes of one file. A large one is mapped, not read: it must not be cut short by others meanwhile.
class SourceText {
public:
    /// Reports one file from another, whatever paths lead to it.
    using Identity = std::pair<dev_t, ino_t>;

    /// Throws `SourceError` if there is no such file.
    static Identity Identify(const std::string& path);
    /// Reads a regular file whole. Throws `SourceError` if there is none, or it can't be read.
    static SourceText Read(const std::string& path);

    /// Without a byte order mark of UTF-8.
    std::string_view GetText() const;
    /// Whether the file has the byte order mark of an encoding in 16-bit units.
    bool IsWide() const;
    Identity GetIdentity() const { return identity_; }
    /// A hint that these bytes won't be wanted soon; they can still be had.
    void Release(std::size_t begin, std::size_t end) const;

private:
    struct Unmap {
        std::size_t size = 0;
        void operator()(const char* bytes) const;
    };
    using Mapping = std::unique_ptr<const char, Unmap>;

    std::string_view GetBytes() const { return mapped_ ? std::string_view(mapped_.get(), size_) : bytes_; }

    std::string bytes_;
    Mapping mapped_ = Mapping(nullptr, Unmap()); // or null
    std::size_t size_ = 0;
    Identity identity_;
};

struct Line {
    std::string_view text; ///< without the line end, of either kind
    std::size_t number = 0; ///< from 1
};

/// Hands out the lines of a text, which must outlive it.
class LineReader {
public:
    explicit LineReader(std::string_view text)
        : rest_(text)
    {
    }

    /// False at the end.
    bool Next(Line& line);

private:
    std::string_view rest_;
    std::size_t number_ = 0;
};

} // namespace Veld::Quor::Core::Decks

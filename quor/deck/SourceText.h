#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Exception.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Why a text can't be read. `what()` of one that a source throws is the reason without the name of the file;
/// `Deck::Read` puts the name before it.
class VELD_QUOR_EXPORT SourceError : public Service::Exception {
public:
    explicit SourceError(const std::string& reason);
    SourceError(const SourceError&) = default;
    SourceError& operator=(const SourceError&) = default;
    ~SourceError() override;
};

/// The bytes of one file of a deck. Never changes, so any number of decks and threads may share it.
class VELD_QUOR_EXPORT SourceText {
public:
    /// Reads a regular file. A large one is mapped into memory: other programs must not cut it short while
    /// the text lives. Throws `SourceError` if there is no such file or it can't be read.
    static std::shared_ptr<const SourceText> FromFile(const std::string& path);
    static std::shared_ptr<const SourceText> FromMemory(std::string bytes);

    ~SourceText();
    SourceText(const SourceText&) = delete;
    SourceText& operator=(const SourceText&) = delete;

    /// The bytes without a byte order mark of UTF-8. Valid as long as this object.
    std::string_view GetText() const;
    /// The byte order mark before it; empty if there is none.
    std::string_view GetMark() const;
    /// Whether the bytes begin with the byte order mark of an encoding in 16-bit units, which decks can't
    /// have.
    bool IsWide() const;
    /// A hint that these bytes of a mapped file aren't needed soon. They stay readable.
    void Release(std::size_t begin, std::size_t end) const;

private:
    class Bytes;
    explicit SourceText(std::unique_ptr<const Bytes> bytes);

    std::unique_ptr<const Bytes> bytes_;
};

} // namespace Veld::Quor::Core::Decks

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// A change of a text: at `offset` so many bytes went, and so many came.
struct ByteEdit {
    std::size_t offset;
    std::size_t removed;
    std::size_t inserted;
};

/// Bytes of a text.
struct ByteRange {
    std::size_t offset = 0;
    std::size_t length = 0;

    std::size_t GetEnd() const { return offset + length; }
    /// Whether a cursor at the position is at the range; its end counts.
    bool Touches(std::size_t position) const { return position >= offset && position <= GetEnd(); }
};

/// Follows bytes from an earlier text, which a deck was read from, to the text as it is now.
class Shift {
public:
    /// From nowhere: what was read has nothing to do with the text now.
    Shift() = default;
    /// `edits`: what happened since, in their order.
    explicit Shift(std::vector<ByteEdit> edits)
        : edits_(std::move(edits))
        , isKnown_(true)
    {
    }

    bool IsKnown() const { return isKnown_; }
    /// Whether the text now is the one that was read.
    bool IsNone() const { return isKnown_ && edits_.empty(); }
    /// Where bytes of the earlier text are now; empty if some of them were changed.
    std::optional<ByteRange> ToNow(ByteRange range) const;
    /// The same for what may have been changed within.
    std::optional<ByteRange> ToNowAround(ByteRange range) const;
    /// Where a byte was in the earlier text; of what was inserted since, where that is. Empty if it isn't
    /// known.
    std::optional<std::size_t> ToThen(std::size_t offset) const;

private:
    std::vector<ByteEdit> edits_;
    bool isKnown_ = false;
};

} // namespace Veld::Quor::Tools::LanguageServer

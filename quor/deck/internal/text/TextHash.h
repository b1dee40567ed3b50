#pragma once

#include <cstdint>

namespace Veld::Quor::Core::Decks {

/// The hash of a text that is added letter by letter.
class TextHash {
public:
    void Add(char c) { hash_ = (hash_ ^ static_cast<unsigned char>(c)) * 0x100000001B3U; }
    std::uint64_t Get() const { return hash_; }

private:
    std::uint64_t hash_ = 0xCBF29CE484222325U;
};

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/PrintableText.h"

#include <cstddef>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

unsigned int ByteAt(std::string_view text, std::size_t offset)
{
    return static_cast<unsigned char>(text[offset]);
}

/// The character that `text` begins with and its bytes: more than one if it is the UTF-8 of a character that
/// has no shorter one.
std::pair<unsigned int, std::size_t> FirstCharacter(std::string_view text)
{
    const unsigned int lead = ByteAt(text, 0);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
    if (length == 1 || length > text.size())
        return {lead, 1};
    unsigned int character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((ByteAt(text, i) & 0xC0U) != 0x80)
            return {lead, 1};
        character = character << 6U | (ByteAt(text, i) & 0x3FU);
    }
    const bool isShortest = character >= (length == 4 ? 0x10000U : length == 3 ? 0x800U : 0x80U);
    return isShortest ? std::pair(character, length) : std::pair(lead, std::size_t(1));
}

constexpr std::pair<unsigned int, unsigned int> controls[] = {{0x00, 0x08}, {0x0A, 0x1F}, {0x7F, 0x9F},
    {0x61C, 0x61C}, {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

bool IsControl(unsigned int character)
{
    for (const auto& [first, last] : controls) {
        if (character >= first && character <= last)
            return true;
    }
    return false;
}

} // namespace

std::string MakePrintable(std::string_view text)
{
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const auto [character, length] = FirstCharacter(text);
        if (IsControl(character))
            printable += '?';
        else
            printable += text.substr(0, length);
        text.remove_prefix(length);
    }
    return printable;
}

} // namespace Veld::Quor::Core::Decks

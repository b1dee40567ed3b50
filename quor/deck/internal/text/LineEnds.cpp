#include "quor/deck/internal/text/LineEnds.h"

#include <cstddef>

namespace Veld::Quor::Core::Decks {

bool HasWindowsLineEnds(std::string_view text)
{
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && text.substr(0, end).ends_with('\r');
}

std::string WithLineEndsOf(std::string_view source, std::string text)
{
    if (!HasWindowsLineEnds(source))
        return text;
    std::string changed;
    for (const char c : text) {
        if (c == '\n')
            changed += '\r';
        changed += c;
    }
    return changed;
}

std::string WithPlainLineEnds(std::string_view text)
{
    if (text.find('\r') == std::string_view::npos) // an array may have hundreds of megabytes
        return std::string(text);
    std::string changed;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' || text.substr(i + 1, 1) != "\n")
            changed += text[i];
    }
    return changed;
}

} // namespace Veld::Quor::Core::Decks

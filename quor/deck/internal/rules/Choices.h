#pragma once

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// "A", "A or B", "A, B or C"
inline std::string Choices(const std::vector<std::string>& words)
{
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i];
    return text;
}

} // namespace Veld::Quor::Core::Decks

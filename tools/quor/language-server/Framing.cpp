#include "tools/quor/language-server/Framing.h"

#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <charconv>
#include <cstddef>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

constexpr std::size_t longestMessage = std::size_t(1) << 30U;
constexpr std::size_t longestHeadLine = 1024;

/// Without its line end; empty at the end of the stream, and for a line that no head has.
std::optional<std::string> ReadHeadLine(std::FILE* stream)
{
    std::string line;
    for (int c = std::getc(stream); c != EOF && line.size() < longestHeadLine; c = std::getc(stream)) {
        if (c == '\n') {
            if (line.ends_with('\r'))
                line.pop_back();
            return line;
        }
        line += static_cast<char>(c);
    }
    return std::nullopt;
}

/// The value of a line with the length; empty for any other line.
std::string_view FindLength(std::string_view line)
{
    constexpr std::string_view name = "content-length:";
    if (ToLower(std::string(line.substr(0, name.size()))) != name)
        return {};
    line.remove_prefix(name.size());
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line;
}

bool ReadNumber(std::string_view text, std::size_t& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number <= longestMessage;
}

} // namespace

std::optional<std::string> ReadMessage(std::FILE* stream)
{
    std::optional<std::size_t> length;
    while (const auto line = ReadHeadLine(stream)) {
        if (const std::string_view text = FindLength(*line); !text.empty()) {
            length = 0;
            if (!ReadNumber(text, *length))
                return std::nullopt;
        }
        if (!line->empty() || !length)
            continue;
        std::string content(*length, '\0');
        if (std::fread(content.data(), 1, content.size(), stream) != content.size())
            return std::nullopt;
        return content;
    }
    return std::nullopt;
}

std::string Frame(std::string_view content)
{
    return fmt::format("Content-Length: {}\r\n\r\n{}", content.size(), content);
}

} // namespace Veld::Quor::Tools::LanguageServer

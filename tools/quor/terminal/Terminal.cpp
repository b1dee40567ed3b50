#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Veld::Quor::Tools {

namespace {

int writeError = 0; // of the first write to standard output that failed
bool hasPrinted = false;

std::vector<std::string>& Errors()
{
    static std::vector<std::string> errors;
    return errors;
}

void Write(std::FILE* stream, std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), stream) != text.size() && stream == stdout
        && writeError == 0)
        writeError = errno;
}

constexpr int DescriptorOf(Stream stream)
{
    return stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

constexpr bool ContinuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

void Print(std::string_view text)
{
    hasPrinted = hasPrinted || !text.empty();
    Write(stdout, text);
}

void PrintAside(std::string_view text)
{
    std::fflush(stdout); // keeps the order where both go to one place
    Write(stderr, text);
}

void PrintError(std::string_view message)
{
    Errors().emplace_back(message);
    PrintAside(fmt::format("quor: error: {}\n", MakePrintable(message)));
}

const std::vector<std::string>& GetErrors()
{
    return Errors();
}

bool HasPrinted()
{
    return hasPrinted;
}

void PrintOutOfMemory()
{
    PrintAside("quor: error: out of memory\n");
}

bool FlushOutput()
{
    if (std::fflush(stdout) != 0 && writeError == 0)
        writeError = errno;
    if (writeError == 0 && std::ferror(stdout) == 0)
        return true;
    if (writeError != EPIPE)
        Write(stderr,
            fmt::format("quor: error: can't write to standard output: {}\n", std::strerror(writeError)));
    return false;
}

bool IsTerminal(Stream stream)
{
    return ::isatty(DescriptorOf(stream)) == 1;
}

bool TakesColour(Stream stream)
{
    const char* const unwanted = std::getenv("NO_COLOR");
    return IsTerminal(stream) && (!unwanted || *unwanted == '\0');
}

std::size_t GetWidth(Stream stream)
{
    constexpr std::size_t usual = 100;
    winsize size = {};
    if (!IsTerminal(stream) || ::ioctl(DescriptorOf(stream), TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usual;
    return size.ws_col;
}

std::size_t CountCharacters(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !ContinuesCharacter(c); }));
}

std::string Cut(std::string_view text, std::size_t width)
{
    constexpr std::string_view dots = "...";
    if (CountCharacters(text) <= width || width < dots.size())
        return std::string(text);
    std::size_t kept = 0;
    for (std::size_t characters = 0; characters < width - dots.size(); ++characters) {
        ++kept;
        while (kept < text.size() && ContinuesCharacter(text[kept]))
            ++kept;
    }
    return std::string(text.substr(0, kept)).append(dots);
}

} // namespace Veld::Quor::Tools

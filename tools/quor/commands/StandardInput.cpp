#include "tools/quor/commands/StandardInput.h"

#include "tools/quor/terminal/Terminal.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

std::string ReadStandardInput()
{
    if (::isatty(STDIN_FILENO) != 0)
        PrintAside("quor: reading the deck from the terminal; end it with Ctrl-D\n");
    std::string bytes;
    std::array<char, 1U << 16U> part{};
    for (;;) {
        const ssize_t count = ::read(STDIN_FILENO, part.data(), part.size());
        if (count == 0)
            return bytes;
        if (count > 0)
            bytes.append(part.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw Decks::SourceError(std::generic_category().message(errno));
    }
}

} // namespace

StandardInput::StandardInput(std::string name)
    : name_(std::move(name))
{
}

std::string StandardInput::NameOf(const std::string& path) const
{
    const std::filesystem::path name = path == standardInputPath ? name_ : path;
    return deckFolder_.empty() ? name.string()
                               : (std::filesystem::path(deckFolder_) / name.filename()).string();
}

/// Another path may lead to it, which need not be there.
bool StandardInput::IsIt(const std::string& path) const
{
    const std::string name = NameOf(standardInputPath);
    std::error_code error;
    return path == name
        || std::filesystem::weakly_canonical(path, error) == std::filesystem::weakly_canonical(name, error);
}

std::string StandardInput::Identify(const std::string& path) const
{
    return IsIt(path) ? "standard input" : files_.Identify(path);
}

std::shared_ptr<const Decks::SourceText> StandardInput::Open(const std::string& path) const
{
    if (!IsIt(path))
        return files_.Open(path);
    std::call_once(once_, [this] { text_ = Decks::SourceText::FromMemory(ReadStandardInput()); });
    return text_;
}

MovedDeck::MovedDeck(std::string name, std::string path)
    : name_(std::move(name))
    , path_(std::move(path))
{
}

std::string MovedDeck::Identify(const std::string& path) const
{
    return files_.Identify(path == name_ ? path_ : path);
}

std::shared_ptr<const Decks::SourceText> MovedDeck::Open(const std::string& path) const
{
    return files_.Open(path == name_ ? path_ : path);
}

std::string NameOfDeck(const std::string& path, const Decks::ReadOptions& options)
{
    const auto* const input = dynamic_cast<const StandardInput*>(options.GetSource().get());
    return input ? input->NameOf(path) : path;
}

} // namespace Veld::Quor::Tools

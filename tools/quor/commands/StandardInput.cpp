#include "tools/quor/commands/StandardInput.h"

#include "tools/quor/terminal/Terminal.h"

#include <array>
#include <cerrno>
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

std::string StandardInput::Identify(const std::string& path) const
{
    return path == name_ ? "standard input" : files_.Identify(path);
}

std::shared_ptr<const Decks::SourceText> StandardInput::Open(const std::string& path) const
{
    if (path != name_)
        return files_.Open(path);
    std::call_once(once_, [this] { text_ = Decks::SourceText::FromMemory(ReadStandardInput()); });
    return text_;
}

std::string NameOfDeck(const std::string& path, const Decks::ReadOptions& options)
{
    const auto* const input = dynamic_cast<const StandardInput*>(options.GetSource().get());
    return input && path == standardInputPath ? input->GetName() : path;
}

} // namespace Veld::Quor::Tools

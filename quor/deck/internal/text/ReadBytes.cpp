#include "quor/deck/internal/text/ReadBytes.h"

#include "quor/deck/DeckSource.h"

#include <cerrno>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Core::Decks {

namespace {

/// The number of bytes read: fewer than `size` at the end of the file.
std::size_t ReadAll(int descriptor, char* bytes, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = ::read(descriptor, bytes + done, size - done);
        if (count == 0)
            break;
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            FailBySystem();
    }
    return done;
}

} // namespace

void FailBySystem()
{
    const int error = errno; // which the exception changes if there is no memory for it
    throw SourceError(std::generic_category().message(error));
}

std::size_t ReadWhole(int descriptor, char* bytes, std::size_t size)
{
    const std::size_t done = ReadAll(descriptor, bytes, size);
    struct stat status = {};
    if (done < size && ::fstat(descriptor, &status) == 0 && static_cast<std::size_t>(status.st_size) < size)
        throw SourceError("it was cut short while it was read");
    return done;
}

std::string ReadToEnd(int descriptor)
{
    constexpr std::size_t most = std::size_t(64) << 20;
    constexpr std::size_t room = std::size_t(64) << 10;
    std::string bytes;
    for (std::size_t done = room; done == room;) {
        const std::size_t size = bytes.size();
        if (size >= most)
            throw SourceError("it has no size, and more than 64 MiB");
        bytes.resize(size + room);
        done = ReadAll(descriptor, bytes.data() + size, room);
        bytes.resize(size + done);
    }
    return bytes;
}

} // namespace Veld::Quor::Core::Decks

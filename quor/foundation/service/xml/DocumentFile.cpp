#include "quor/foundation/service/xml/internal/DocumentFile.h"

#include "quor/foundation/service/Log.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

/// A file descriptor that closes itself.
class File {
public:
    explicit File(const char* path) // without waiting for the other end of a pipe
        : descriptor_(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~File()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int Descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

void LogError(const std::string& text)
{
    Log::SendLogMessage(text.c_str(), MessageSeverity::Error);
}

std::nullopt_t Unreadable(const char* path, const std::string& why)
{
    LogError(std::string(path) + ": " + why);
    return std::nullopt;
}

} // namespace

/// Read, not mapped: a mapped file that another process cuts short kills this one.
std::optional<std::string> ReadFile(const char* path)
{
    const File file(path);
    struct stat status { };
    if (file.Descriptor() < 0 || ::fstat(file.Descriptor(), &status) != 0)
        return Unreadable(path, std::strerror(errno));
    if (!S_ISREG(status.st_mode))
        return Unreadable(path, "not a regular file");
    if (static_cast<std::size_t>(status.st_size) > XMLDocument::MaxBytes)
        return Unreadable(path, "larger than " + std::to_string(XMLDocument::MaxBytes) + " bytes");
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    while (size < text.size()) {
        const ssize_t count = ::read(file.Descriptor(), text.data() + size, text.size() - size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Unreadable(path, std::strerror(errno));
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
    }
    text.resize(size);
    return text;
}

void LogFailure(const char* name, const XMLDocument::Failure& failure)
{
    std::string text = name;
    if (failure.isLocated)
        text += ':' + std::to_string(failure.line) + ':' + std::to_string(failure.column);
    LogError(text + ": " + failure.reason);
}

} // namespace Veld::Quor::Core::Service::XML::Internal

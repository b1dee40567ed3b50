#include "quor/deck/DeckSource.h"

#include "quor/deck/internal/text/SystemPath.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Core::Decks {

namespace {

[[noreturn]] void FailBySystem()
{
    throw SourceError(std::generic_category().message(errno));
}

class Descriptor {
public:
    explicit Descriptor(const std::string& path)
        // Without blocking, so that a pipe that nobody writes to can be refused rather than waited for.
        : value_(::open(SystemPath(path), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        if (value_ < 0)
            FailBySystem();
    }
    ~Descriptor() { ::close(value_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return value_; }

private:
    int value_;
};

/// The number of bytes read: fewer than `size` if the file was cut short meanwhile.
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

/// All that there is to read. A file that the system makes while it is read has no size before, and may have
/// no end.
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

/// Mapping a smaller file costs more than reading it.
constexpr std::size_t leastMapped = std::size_t(64) << 10;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

struct Unmap {
    std::size_t size = 0;
    void operator()(const char* bytes) const { ::munmap(const_cast<char*>(bytes), size); }
};
using Mapping = std::unique_ptr<const char, Unmap>;

Mapping Map(int descriptor, std::size_t size)
{
    void* const bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (bytes == MAP_FAILED)
        FailBySystem();
    ::madvise(bytes, size, MADV_SEQUENTIAL);
    return Mapping(static_cast<const char*>(bytes), Unmap{size});
}

} // namespace

SourceError::SourceError(const std::string& reason)
    : Service::Exception(reason)
{
}

SourceError::~SourceError() = default;

class SourceText::Bytes {
public:
    explicit Bytes(std::string read)
        : read_(std::move(read))
    {
    }
    explicit Bytes(Mapping mapped)
        : mapped_(std::move(mapped))
    {
    }

    std::string_view Get() const
    {
        return mapped_ ? std::string_view(mapped_.get(), mapped_.get_deleter().size) : read_;
    }
    const char* GetMapped() const { return mapped_.get(); }

private:
    std::string read_;
    Mapping mapped_ = Mapping(nullptr, Unmap()); // or null
};

std::shared_ptr<const SourceText> SourceText::FromFile(const std::string& path)
{
    const Descriptor descriptor(path);
    struct stat status = {};
    if (::fstat(descriptor.Get(), &status) != 0)
        FailBySystem();
    if (S_ISDIR(status.st_mode))
        throw SourceError("it is a folder, not a file");
    if (!S_ISREG(status.st_mode))
        throw SourceError("it is not a regular file");
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size == 0)
        return FromMemory(ReadToEnd(descriptor.Get()));
    if (size >= leastMapped)
        return std::shared_ptr<const SourceText>(
            new SourceText(std::make_unique<const Bytes>(Map(descriptor.Get(), size))));
    std::string bytes(size, '\0');
    bytes.resize(ReadAll(descriptor.Get(), bytes.data(), size));
    return FromMemory(std::move(bytes));
}

std::shared_ptr<const SourceText> SourceText::FromMemory(std::string bytes)
{
    return std::shared_ptr<const SourceText>(new SourceText(std::make_unique<const Bytes>(std::move(bytes))));
}

SourceText::SourceText(std::unique_ptr<const Bytes> bytes)
    : bytes_(std::move(bytes))
{
}

SourceText::~SourceText() = default;

void SourceText::Release(std::size_t begin, std::size_t end) const
{
    const char* const mapped = bytes_->GetMapped();
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    begin = (begin + page - 1) / page * page;
    end = end / page * page;
    if (mapped && begin < end)
        ::madvise(const_cast<char*>(mapped) + begin, end - begin, MADV_DONTNEED);
}

std::string_view SourceText::GetText() const
{
    std::string_view text = bytes_->Get();
    text.remove_prefix(GetMark().size());
    return text;
}

std::string_view SourceText::GetMark() const
{
    const std::string_view text = bytes_->Get();
    return text.starts_with(utf8Mark) ? text.substr(0, utf8Mark.size()) : std::string_view();
}

bool SourceText::IsWide() const
{
    const std::string_view text = bytes_->Get();
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

} // namespace Veld::Quor::Core::Decks

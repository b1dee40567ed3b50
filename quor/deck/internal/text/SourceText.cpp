#include "quor/deck/internal/text/SourceText.h"

#include <cerrno>
#include <cstring>
#include <system_error>

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
        : value_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
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

/// How many bytes came: fewer than `size` if the file was cut short meanwhile.
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

/// Mapping a smaller file costs more than reading it.
constexpr std::size_t leastMapped = std::size_t(64) << 10;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

} // namespace

SourceText::Identity SourceText::Identify(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        throw SourceError("its name holds a zero byte");
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        FailBySystem();
    return {status.st_dev, status.st_ino};
}

SourceText SourceText::Read(const std::string& path)
{
    const Descriptor descriptor(path);
    struct stat status = {};
    if (::fstat(descriptor.Get(), &status) != 0)
        FailBySystem();
    if (S_ISDIR(status.st_mode))
        throw SourceError("it is a folder");
    if (!S_ISREG(status.st_mode))
        throw SourceError("it is no regular file");

    SourceText text;
    text.identity_ = {status.st_dev, status.st_ino};
    text.size_ = static_cast<std::size_t>(status.st_size);
    if (text.size_ >= leastMapped) {
        void* const bytes = ::mmap(nullptr, text.size_, PROT_READ, MAP_PRIVATE, descriptor.Get(), 0);
        if (bytes == MAP_FAILED)
            FailBySystem();
        ::madvise(bytes, text.size_, MADV_SEQUENTIAL);
        text.mapped_ = Mapping(static_cast<const char*>(bytes), Unmap{text.size_});
    } else {
        text.bytes_.resize(text.size_);
        text.bytes_.resize(ReadAll(descriptor.Get(), text.bytes_.data(), text.size_));
    }
    return text;
}

void SourceText::Unmap::operator()(const char* bytes) const
{
    ::munmap(const_cast<char*>(bytes), size);
}

void SourceText::Release(std::size_t begin, std::size_t end) const
{
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    begin = (begin + page - 1) / page * page;
    end = end / page * page;
    if (mapped_ && begin < end)
        ::madvise(const_cast<char*>(mapped_.get()) + begin, end - begin, MADV_DONTNEED);
}

std::string_view SourceText::GetText() const
{
    std::string_view text = GetBytes();
    if (text.starts_with(utf8Mark))
        text.remove_prefix(utf8Mark.size());
    return text;
}

bool SourceText::IsWide() const
{
    const std::string_view text = GetBytes();
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

bool LineReader::Next(Line& line)
{
    if (rest_.empty())
        return false;
    const void* const end = std::memchr(rest_.data(), '\n', rest_.size());
    const std::size_t length =
        end ? static_cast<std::size_t>(static_cast<const char*>(end) - rest_.data()) : rest_.size();
    line.text = rest_.substr(0, length);
    if (line.text.ends_with('\r'))
        line.text.remove_suffix(1);
    line.number = ++number_;
    rest_.remove_prefix(end ? length + 1 : length);
    return true;
}

} // namespace Veld::Quor::Core::Decks

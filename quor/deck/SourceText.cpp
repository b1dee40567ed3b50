#include "quor/deck/DeckSource.h"

#include "quor/deck/internal/text/FileBytes.h"
#include "quor/deck/internal/text/ReadBytes.h"
#include "quor/deck/internal/text/SystemPath.h"

#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Core::Decks {

namespace {

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

/// A smaller file costs less in a string.
constexpr std::size_t leastOfItsOwn = std::size_t(64) << 10;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

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
    explicit Bytes(std::unique_ptr<const FileBytes> file)
        : file_(std::move(file))
    {
    }

    std::string_view Get() const { return file_ ? file_->Get() : read_; }
    const FileBytes* GetFile() const { return file_.get(); }

private:
    std::string read_;
    std::unique_ptr<const FileBytes> file_; // null: the text is short, or of no file
};

void SourceText::AllowMapping()
{
    FileBytes::AllowMapping();
}

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
    if (size >= leastOfItsOwn)
        return std::shared_ptr<const SourceText>(new SourceText(
            std::make_unique<const Bytes>(std::make_unique<const FileBytes>(descriptor.Get(), size))));
    std::string bytes(size, '\0');
    bytes.resize(ReadWhole(descriptor.Get(), bytes.data(), size));
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
    if (const FileBytes* const file = bytes_->GetFile())
        file->Release(begin, end);
}

bool SourceText::IsIntact() const
{
    const FileBytes* const file = bytes_->GetFile();
    return !file || file->IsIntact();
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

#include "tools/quor/check/ResumeFile.h"

#include "tools/quor/Version.h"
#include "tools/quor/check/ResultBytes.h"
#include "tools/quor/settings/SettingInfo.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Tools {

namespace {

/// The first line: what the results depend on.
std::string HeaderOf(const CheckOptions& options)
{
    std::string header = fmt::format("quor {} check {} {} {} {} {} {} {}", GetVersion(),
        static_cast<int>(options.read.read.GetSection()), static_cast<int>(options.format), options.isAll,
        options.isQuiet, options.hasStatistics, options.newBaseline.empty(), options.read.settings.file);
    for (const SettingInfo& setting : AllSettings())
        header += fmt::format(" {}={}", setting.name, TextOf(setting, options.read.settings.given));
    for (char& c : header)
        c = c == '\n' ? ' ' : c;
    return header + '\n';
}

/// The deck, and what changes with its main file.
std::string KeyOf(const std::string& deck)
{
    struct stat status = {};
    if (::stat(deck.c_str(), &status) != 0)
        return {};
    return fmt::format("{} {} {}.{}", deck, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
}

} // namespace

ResumeFile::ResumeFile(const std::string& path, const CheckOptions& options)
    : path_(path)
    , file_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
{
    if (file_ < 0)
        FailOn(std::generic_category().message(errno));
    struct stat status = {};
    if (::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode))
        FailOn("it is not a regular file"); // a pipe would be waited for
    Load(HeaderOf(options));
}

ResumeFile::~ResumeFile()
{
    if (file_ >= 0)
        ::close(file_);
}

void ResumeFile::Load(const std::string& header)
{
    std::string bytes;
    std::array<char, 1U << 16U> part{};
    ssize_t count = 0;
    while ((count = ::read(file_, part.data(), part.size())) > 0)
        bytes.append(part.data(), static_cast<std::size_t>(count));
    if (count < 0)
        FailOn(std::generic_category().message(errno));
    if (bytes.empty()) {
        if (::write(file_, header.data(), header.size()) != static_cast<ssize_t>(header.size()))
            FailOn(std::generic_category().message(errno));
        return;
    }
    if (!bytes.starts_with(header.substr(0, header.find(' ') + 1)))
        FailOn("it has something else than results of a check");
    if (!bytes.starts_with(header))
        FailOn("it is of a check with other options; remove it to start over");
    const std::size_t size = bytes.size();
    bytes.erase(0, header.size());
    while (std::optional<DeckResult> result = TakeResult(bytes)) {
        const std::string key = result->key;
        results_.insert_or_assign(key, std::move(*result));
    }
    const auto whole = static_cast<off_t>(size - bytes.size());
    if (::ftruncate(file_, whole) != 0 || ::lseek(file_, whole, SEEK_SET) < 0)
        FailOn(std::generic_category().message(errno));
}

std::optional<DeckResult> ResumeFile::Take(const std::string& deck)
{
    const auto known = results_.find(KeyOf(deck));
    return known == results_.end() ? std::nullopt : std::optional(known->second);
}

void ResumeFile::Add(const std::string& deck, const DeckResult& result)
{
    if (!result.failure.empty())
        return;
    DeckResult keyed = result;
    keyed.key = KeyOf(deck);
    const std::string bytes = ToBytes(keyed);
    if (::write(file_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        FailOn(std::generic_category().message(errno));
}

void ResumeFile::Remove()
{
    ::unlink(path_.c_str());
}

void ResumeFile::FailOn(const std::string& what) const
{
    throw std::runtime_error(fmt::format("can't use the file '{}' to resume: {}", path_, what));
}

} // namespace Veld::Quor::Tools

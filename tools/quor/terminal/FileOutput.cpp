#include "tools/quor/terminal/FileOutput.h"

#include <fmt/format.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace Veld::Quor::Tools {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void FailBySystem(int error = errno)
{
    throw OutputError(std::generic_category().message(error));
}

/// What a link leads to, so that the link stays one.
std::string TargetOf(const std::string& path)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw OutputError("not a regular file");
    const fs::path target = fs::is_symlink(path, error) ? fs::weakly_canonical(path, error) : fs::path(path);
    return error ? path : target.string();
}

/// Signals that can be caught wait as long as it lives.
class HeldSignals {
public:
    HeldSignals()
    {
        sigset_t held;
        sigfillset(&held);
        for (const int own : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS, SIGTRAP})
            sigdelset(&held, own);
        ::pthread_sigmask(SIG_BLOCK, &held, &before_);
    }
    ~HeldSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    sigset_t before_;
};

/// A file beside the one that it is to replace. It is removed again unless that was done.
class PartFile {
public:
    explicit PartFile(const std::string& target)
        : path_(fmt::format("{}.{}.part", target, ::getpid()))
        , descriptor_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666))
    {
        if (descriptor_ < 0 && errno == EEXIST)
            throw OutputError(fmt::format("temporary file '{}' already exists", path_));
        if (descriptor_ < 0)
            FailBySystem();
    }
    ~PartFile()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
        if (!isDone_)
            ::unlink(path_.c_str());
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    void KeepOwnerAndMode(const std::string& target) const
    {
        struct stat own = {};
        struct stat wanted = {};
        if (::fstat(descriptor_, &own) != 0 || ::stat(target.c_str(), &wanted) != 0)
            FailBySystem();
        const bool isSame = own.st_uid == wanted.st_uid && own.st_gid == wanted.st_gid;
        if (!isSame && ::fchown(descriptor_, wanted.st_uid, wanted.st_gid) != 0)
            throw OutputError("its owner or group is another one, and can't be kept");
        if (::fchmod(descriptor_, wanted.st_mode & 07777U) != 0)
            FailBySystem();
        KeepAccessList(target);
    }

    void Write(std::string_view text) const
    {
        while (!text.empty()) {
            const ssize_t count = ::write(descriptor_, text.data(), text.size());
            if (count < 0 && errno != EINTR)
                FailBySystem();
            text.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
        }
    }

    void Close(Sync sync)
    {
        if (sync == Sync::AtOnce && ::fsync(descriptor_) != 0)
            FailBySystem();
        const int descriptor = std::exchange(descriptor_, -1);
        if (::close(descriptor) != 0)
            FailBySystem();
    }

    void Replace(const std::string& target)
    {
        if (std::rename(path_.c_str(), target.c_str()) != 0)
            FailBySystem();
        isDone_ = true;
    }

private:
    void KeepAccessList(const std::string& target) const
    {
        constexpr const char* name = "system.posix_acl_access";
        const ssize_t size = ::getxattr(target.c_str(), name, nullptr, 0);
        if (size <= 0) // none, or the file system has no such thing
            return;
        std::vector<char> list(static_cast<std::size_t>(size));
        if (::getxattr(target.c_str(), name, list.data(), list.size()) != size
            || ::fsetxattr(descriptor_, name, list.data(), list.size(), 0) != 0)
            throw OutputError("its access list can't be kept");
    }

    std::string path_;
    int descriptor_; // negative: closed
    bool isDone_ = false;
};

/// So that the name of the new file is on the disk too. A file system that can't do so has done all it can.
void SyncFolderOf(const std::string& path)
{
    const fs::path folder = fs::path(path).parent_path();
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

void CheckUnchanged(const std::string& target, const std::set<FileStamp>* known)
{
    if (known && known->count(StampOf(target)) == 0)
        throw OutputError("it was changed since it was read");
}

} // namespace

FileStamp StampOf(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    return {static_cast<long long>(status.st_dev), static_cast<long long>(status.st_ino), status.st_size,
        status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

bool HasHardLinks(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && status.st_nlink > 1;
}

void WriteFile(const std::string& path, std::string_view text, const std::set<FileStamp>* known, Sync sync)
{
    const HeldSignals held;
    const std::string target = TargetOf(path);
    CheckUnchanged(target, known);
    const bool isThere = ::access(target.c_str(), F_OK) == 0;
    if (isThere && ::access(target.c_str(), W_OK) != 0)
        FailBySystem();
    PartFile part(target);
    if (isThere)
        part.KeepOwnerAndMode(target);
    part.Write(text);
    part.Close(sync);
    CheckUnchanged(target, known); // as late as possible
    part.Replace(target);
    if (sync == Sync::AtOnce)
        SyncFolderOf(target);
}

} // namespace Veld::Quor::Tools

#pragma once

#include <cerrno>
#include <cstring>
#include <new>

#include <dirent.h>

namespace Veld::Quor::Core::Service {

/// The names in a folder, as the system returns them; none if it can't be read. The iterators of
/// std::filesystem allocate in functions that are noexcept: without memory they end the process.
class FolderEntries {
public:
    explicit FolderEntries(const char* folder)
        : folder_(::opendir(folder))
    {
        if (!folder_ && errno == ENOMEM)
            throw std::bad_alloc();
    }
    FolderEntries(const FolderEntries&) = delete;
    FolderEntries& operator=(const FolderEntries&) = delete;
    ~FolderEntries()
    {
        if (folder_)
            ::closedir(folder_);
    }

    /// Null after the last. Valid until the next call.
    const char* Next()
    {
        const dirent* entry = Read();
        while (entry && (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0))
            entry = Read();
        return entry ? entry->d_name : nullptr;
    }

private:
    const dirent* Read() { return folder_ ? ::readdir(folder_) : nullptr; }

    DIR* folder_;
};

} // namespace Veld::Quor::Core::Service

#include "quor/foundation/service/Directory.h"

#include "quor/foundation/service/internal/FolderEntries.h"

#include <algorithm>
#include <filesystem>
#include <regex>
#include <system_error>

namespace Veld::Quor::Core::Service {

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const std::string& path)
{
    return path.empty() ? fs::path(".") : fs::path(path);
}

/// Links to folders are not followed.
template <class Visit>
void ForEachEntry(const fs::path& folder, bool recursive, const Visit& visit)
{
    FolderEntries entries(folder.c_str());
    while (const char* const name = entries.Next()) {
        const fs::path entry = folder / name;
        visit(entry);
        std::error_code error;
        if (recursive && fs::is_directory(fs::symlink_status(entry, error)))
            ForEachEntry(entry, recursive, visit);
    }
}

} // namespace

Directory::Directory(const std::string& path)
    : path_(path)
{
}

Directory::Directory(const Directory&) = default;
Directory& Directory::operator=(const Directory&) = default;
Directory::~Directory() = default;

bool Directory::Exists() const
{
    std::error_code error;
    return fs::is_directory(PathOf(path_), error);
}

std::vector<std::string> Directory::Find(const std::string& pattern, bool files, bool directories,
    bool sorted, bool caseSensitive, bool recursive) const
{
    auto flags = std::regex::ECMAScript;
    if (!caseSensitive)
        flags |= std::regex::icase;
    const std::regex expression(pattern, flags);

    const fs::path root = PathOf(path_);
    std::vector<std::string> names;
    const auto take = [&](const fs::path& entry) {
        std::error_code error;
        const fs::file_status status = fs::status(entry, error);
        const bool wanted =
            (files && fs::is_regular_file(status)) || (directories && fs::is_directory(status));
        if (wanted && std::regex_search(entry.filename().string(), expression))
            names.push_back(entry.lexically_relative(root).string());
    };
    ForEachEntry(root, recursive, take);
    if (sorted)
        std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> Directory::GetNames(std::size_t most) const
{
    std::vector<std::string> names;
    FolderEntries entries(PathOf(path_).c_str());
    while (names.size() < most) {
        const char* const name = entries.Next();
        if (!name)
            break;
        names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace Veld::Quor::Core::Service

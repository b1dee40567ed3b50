#include "quor/foundation/service/Directory.h"

#include <algorithm>
#include <filesystem>
#include <regex>

namespace Veld::Quor::Core::Service {

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const std::string& path)
{
    return path.empty() ? fs::path(".") : fs::path(path);
}

/// Walks by error code: an entry that vanishes, or may not be read, ends the walk and is no failure.
template <class Iterator, class Visit>
void ForEachEntry(const fs::path& directory, Visit visit)
{
    std::error_code error;
    for (Iterator it(directory, fs::directory_options::skip_permission_denied, error), end;
         !error && it != end; it.increment(error))
        visit(*it);
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
    const auto take = [&](const fs::directory_entry& entry) {
        std::error_code error;
        const bool wanted =
            (files && entry.is_regular_file(error)) || (directories && entry.is_directory(error));
        if (wanted && std::regex_search(entry.path().filename().string(), expression))
            names.push_back(entry.path().lexically_relative(root).string());
    };
    if (recursive)
        ForEachEntry<fs::recursive_directory_iterator>(root, take);
    else
        ForEachEntry<fs::directory_iterator>(root, take);
    if (sorted)
        std::sort(names.begin(), names.end());
    return names;
}

} // namespace Veld::Quor::Core::Service

#include "quor/deck/internal/text/FolderBounds.h"

#include <algorithm>
#include <new>
#include <system_error>

namespace Veld::Quor::Core::Decks {

namespace fs = std::filesystem;

namespace {

/// Empty if it can't be found out.
fs::path WithoutLinks(const fs::path& path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    fs::path canonical = error ? fs::path() : fs::weakly_canonical(absolute, error);
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
    return error ? fs::path() : canonical;
}

} // namespace

FolderBounds::FolderBounds(const fs::path& folder)
    : folder_(WithoutLinks(folder.empty() ? fs::path(".") : folder))
{
    if (!folder_.has_filename()) // it ended in a slash
        folder_ = folder_.parent_path();
}

bool FolderBounds::Hold(const std::string& path)
{
    const auto [known, isNew] = known_.try_emplace(path, false);
    if (!isNew || folder_.empty())
        return known->second;
    const fs::path file = WithoutLinks(path);
    const auto ends = std::mismatch(folder_.begin(), folder_.end(), file.begin(), file.end());
    return known->second = ends.first == folder_.end();
}

} // namespace Veld::Quor::Core::Decks

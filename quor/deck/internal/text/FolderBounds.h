#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Knows which files are below a folder, wherever links lead.
class FolderBounds {
public:
    explicit FolderBounds(const std::filesystem::path& folder);

    /// False also if it can't be found out.
    bool Hold(const std::string& path);

private:
    std::filesystem::path folder_; // without links; empty if it can't be found out
    std::map<std::string, bool> known_; // by path
};

} // namespace Veld::Quor::Core::Decks

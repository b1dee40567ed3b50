#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools {

struct FileText {
    std::string path;
    std::string_view text;
};

/// Writes files, each whole or not at all, and the folders that they need. False, and reported with how many
/// were written before it, if one of them can't be written.
bool WriteFilesOrReport(const std::vector<FileText>& files);

} // namespace Veld::Quor::Tools

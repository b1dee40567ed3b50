#include "tools/quor/commands/WriteFiles.h"

#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <cstddef>
#include <filesystem>

namespace Veld::Quor::Tools {

namespace fs = std::filesystem;

bool WriteFilesOrReport(const std::vector<FileText>& files)
{
    std::size_t written = 0;
    const auto fail = [&](const FileText& file, const std::string& why) {
        PrintError(fmt::format("can't write '{}': {}", file.path, why));
        if (written > 0)
            PrintAside(fmt::format(
                "{} of {} were written before the error\n", written, Plural(files.size(), "file")));
        return false;
    };
    for (const FileText& file : files) {
        try {
            if (const fs::path folder = fs::path(file.path).parent_path(); !folder.empty())
                fs::create_directories(folder);
            WriteFile(file.path, file.text);
        } catch (const fs::filesystem_error& error) {
            return fail(file, error.code().message());
        } catch (const OutputError& error) {
            return fail(file, error.what());
        }
        ++written;
    }
    return true;
}

} // namespace Veld::Quor::Tools

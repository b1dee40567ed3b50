#include "tools/quor/terminal/FileOutput.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace Veld::Quor::Tools {

namespace fs = std::filesystem;

namespace {

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

/// 0, or the number of the error. The file must not exist; it gets the mode of `model`, if there is one.
int WriteNew(const std::string& path, const std::string& model, std::string_view text)
{
    struct stat status = {};
    const bool hasModel = ::stat(model.c_str(), &status) == 0;
    if (hasModel && ::access(model.c_str(), W_OK) != 0)
        return errno;
    std::FILE* const file = std::fopen(path.c_str(), "wx");
    if (!file)
        return errno;
    int error = hasModel && ::fchmod(::fileno(file), status.st_mode & 07777U) != 0 ? errno : 0;
    if (error == 0 && std::fwrite(text.data(), 1, text.size(), file) != text.size())
        error = errno;
    if (std::fclose(file) != 0 && error == 0)
        error = errno;
    return error;
}

} // namespace

void WriteFile(const std::string& path, std::string_view text)
{
    const std::string target = TargetOf(path);
    const std::string part = fmt::format("{}.{}.part", target, ::getpid());
    int error = WriteNew(part, target, text);
    if (error == EEXIST)
        throw OutputError(fmt::format("temporary file '{}' already exists", part));
    if (error == 0 && std::rename(part.c_str(), target.c_str()) != 0)
        error = errno;
    if (error == 0)
        return;
    std::remove(part.c_str());
    throw OutputError(std::generic_category().message(error));
}

} // namespace Veld::Quor::Tools

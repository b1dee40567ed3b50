#include "quor/deck/internal/read/words/OtherSpelling.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/foundation/service/internal/FolderEntries.h"

#include <algorithm>
#include <new>
#include <system_error>

namespace Veld::Quor::Core::Decks {

namespace {

namespace Files = std::filesystem;

void ThrowWithoutMemory(const std::error_code& error)
{
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
}

/// Empty if the folder has none of that name.
std::string FindEntry(const Files::path& folder, const std::string& name)
{
    constexpr int mostEntries = 4'096; // of a larger folder nobody waits for the rest
    std::error_code error;
    if (Files::exists(folder / name, error))
        return name;
    ThrowWithoutMemory(error);
    const std::string upper = ToUpper(name);
    Service::FolderEntries entries(folder.c_str());
    for (int i = 0; i < mostEntries; ++i) {
        const char* const entry = entries.Next();
        if (!entry || ToUpper(entry) == upper)
            return entry ? entry : "";
    }
    return {};
}

} // namespace

std::string FindOtherSpelling(const Files::path& folder, const std::string& name)
{
    std::string slashes = name;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    Files::path found;
    for (const Files::path& part : Files::path(slashes)) {
        const std::string entry = FindEntry(folder / found, part.string());
        if (entry.empty())
            return {};
        found /= entry;
    }
    std::error_code error;
    const bool isFile = Files::is_regular_file(folder / found, error);
    ThrowWithoutMemory(error);
    return isFile ? found.string() : std::string();
}

} // namespace Veld::Quor::Core::Decks

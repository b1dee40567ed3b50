#include "tools/quor/commands/FormatTree.h"

#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;

namespace {

/// Without "." and "..".
fs::path PlainPath(const fs::path& path)
{
    return fs::absolute(path).lexically_normal();
}

void CheckInclusion(const Decks::DeckFiles& files, const Decks::DeckFile& file)
{
    if (file.inclusion && fs::path(file.includedAs).is_absolute())
        throw TreeError(fmt::format("{}: '{}' is included by its absolute path, and would be elsewhere too",
            LocationText(files.LocationOf(*file.inclusion)), MakePrintable(file.includedAs)));
}

void CheckPath(const std::string& name)
{
    std::error_code error;
    if (!fs::equivalent(PlainPath(name), name, error))
        throw TreeError(fmt::format(
            "'{}' goes back from a link, and would be another file elsewhere", MakePrintable(name)));
}

fs::path CommonFolder(const std::map<std::string, fs::path>& paths)
{
    fs::path common = paths.begin()->second.parent_path();
    for (const auto& [name, path] : paths) {
        const fs::path folder = path.parent_path();
        const auto ends = std::mismatch(common.begin(), common.end(), folder.begin(), folder.end());
        fs::path shared;
        for (auto part = common.begin(); part != ends.first; ++part)
            shared /= *part;
        common = shared;
    }
    return common;
}

void CheckTarget(
    const fs::path& target, const fs::path& inner, const fs::path& folder, const std::set<fs::path>& sources)
{
    const fs::path actual = fs::weakly_canonical(target);
    if (actual != (fs::weakly_canonical(folder / "") / inner).lexically_normal())
        throw TreeError(fmt::format("'{}' is a link, or in a linked folder", MakePrintable(target.string())));
    if (sources.count(actual) > 0)
        throw TreeError(fmt::format(
            "'{}' is a file of the deck; use --in-place to overwrite it", MakePrintable(target.string())));
}

} // namespace

FormatTree::FormatTree(
    const Decks::DeckFiles& files, const std::vector<std::uint32_t>& indices, const std::string& folder)
{
    std::map<std::string, fs::path> paths; // by name
    std::set<fs::path> sources; // what is not to be overwritten
    for (const std::uint32_t index : indices) {
        const Decks::DeckFile& file = files.Get(index);
        CheckInclusion(files, file);
        if (!paths.emplace(file.name, fs::path()).second)
            continue;
        CheckPath(file.name);
        paths[file.name] = PlainPath(file.name);
        sources.insert(fs::canonical(file.name));
    }
    const fs::path common = CommonFolder(paths);
    for (auto& [name, path] : paths) {
        const fs::path inner = path.lexically_relative(common);
        path = fs::path(folder) / inner;
        CheckTarget(path, inner, folder, sources);
    }
    for (const std::uint32_t index : indices)
        targets_.push_back(paths[files.Get(index).name].string());
}

} // namespace Veld::Quor::Tools

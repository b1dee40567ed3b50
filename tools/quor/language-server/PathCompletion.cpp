#include "tools/quor/language-server/PathCompletion.h"

#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostPaths = 500;
constexpr int fileKind = 17; // as the protocol numbers them
constexpr int folderKind = 19;

} // namespace

void AddPaths(Json& items, const View& view, const ByteRange& word, const std::string& prefix)
{
    const fs::path root = view.places ? view.GetState().GetRoot() : PathOfUri(view.document->GetUri());
    const std::string folder = prefix.substr(0, prefix.rfind('/') + 1); // none: 0
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator entry(root.parent_path() / folder, error), end;
         !error && entry != end && entries.size() < mostPaths; entry.increment(error)) {
        if (!entry->path().filename().string().starts_with('.'))
            entries.push_back(*entry);
    }
    std::sort(entries.begin(), entries.end());
    for (const fs::directory_entry& entry : entries) {
        const bool isFolder = entry.is_directory(error);
        const std::string path = folder + entry.path().filename().string() + (isFolder ? "/" : "");
        if (!ToUpper(path).starts_with(ToUpper(prefix)))
            continue;
        const std::string written = '\'' + path + '\'';
        items.push_back({{"label", path}, {"kind", isFolder ? folderKind : fileKind}, {"filterText", written},
            {"textEdit", {{"range", ToJson(view.SpanOf(word))}, {"newText", written}}}});
    }
}

} // namespace Veld::Quor::Tools::LanguageServer

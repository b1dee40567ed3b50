#include "tools/quor/language-server/PathCompletion.h"

#include "quor/foundation/service/Directory.h"
#include "tools/quor/terminal/TextLayout.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

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
    const fs::path place = root.parent_path() / folder;
    for (const std::string& name : Core::Service::Directory(place.string()).GetNames(mostPaths)) {
        if (name.starts_with('.'))
            continue;
        std::error_code error;
        const bool isFolder = fs::is_directory(place / name, error);
        const std::string path = folder + name + (isFolder ? "/" : "");
        if (!ToUpper(path).starts_with(ToUpper(prefix)))
            continue;
        const std::string written = '\'' + path + '\'';
        items.push_back({{"label", path}, {"kind", isFolder ? folderKind : fileKind}, {"filterText", written},
            {"textEdit", {{"range", ToJson(view.SpanOf(word))}, {"newText", written}}}});
    }
}

} // namespace Veld::Quor::Tools::LanguageServer

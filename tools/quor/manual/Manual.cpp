#include "tools/quor/manual/Manual.h"

#include "tools/quor/assets/Assets.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/findings/FindingCodes.h"
#include "tools/quor/manual/Catalog.h"
#include "tools/quor/manual/IndexPages.h"
#include "tools/quor/manual/KeywordPage.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/tree/KeywordFacts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <set>
#include <utility>

namespace Veld::Quor::Tools {

namespace fs = std::filesystem;
using namespace Core::Keywords;

namespace {

/// What the search knows of a page: title, address, text, and words that lead to it too.
nlohmann::json SearchRow(
    const std::string& title, const std::string& address, const std::string& text, const std::string& words)
{
    return nlohmann::json::array({title, address, text, words});
}

nlohmann::json SearchRow(const Entry& entry)
{
    std::set<std::string> words = entry.ownWords;
    words.erase(""); // of what has no name
    for (const IKeywordSyntax* syntax : entry.syntaxes) {
        for (const std::string& alias : syntax->GetAliases()) {
            if (!syntax->IsHidden(alias))
                words.insert(alias);
        }
    }
    return SearchRow(entry.name, entry.address, entry.GetFirst().GetDescription(),
        fmt::format("{}", fmt::join(words, " ")));
}

/// A script, since a page that is a file may read no other.
std::string SearchData(const Catalog& catalog, const std::vector<ManualPage>& indices)
{
    auto rows = nlohmann::json::array();
    for (const Entry& entry : catalog.GetEntries())
        rows.push_back(SearchRow(entry));
    for (const ManualPage& page : indices)
        rows.push_back(SearchRow(page.title, page.path, "", ""));
    for (const FindingCode& code : AllFindingCodes())
        rows.push_back(
            SearchRow(code.info->name, "code/" + Slug(code.info->name) + ".html", code.info->meaning, ""));
    return "manualRows = " + rows.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + ";\n";
}

/// Removes pages beside the written ones, of keywords that are gone. What is no page of a manual stays.
void RemoveOthers(const std::vector<FileText>& written)
{
    std::set<fs::path> kept;
    std::set<fs::path> folders;
    for (const FileText& file : written) {
        const fs::path path = fs::path(file.path).lexically_normal();
        kept.insert(path);
        folders.insert(path.parent_path());
    }
    std::vector<fs::path> others;
    for (const fs::path& folder : folders) {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder.empty() ? "." : folder)) {
            const fs::path path = entry.path().lexically_normal();
            if (path.extension() == ".html" && kept.count(path) == 0 && IsPageOf("manual", path.string()))
                others.push_back(path);
        }
    }
    for (const fs::path& other : others)
        fs::remove(other);
}

} // namespace

Manual MakeManual(LoadedLanguage& language)
{
    const Core::Decks::DeckLanguage rules(language.GetTable());
    const Catalog catalog(language, rules);
    const RelatedVectors vectors(catalog);
    Manual manual;
    const auto add = [&manual](const std::vector<ManualPage>& pages) {
        for (const ManualPage& page : pages)
            manual.files.push_back({page.path, PageFile(page)});
    };
    for (const Entry& entry : catalog.GetEntries()) {
        manual.addresses[entry.name] = entry.address;
        if (!entry.IsVector())
            add({KeywordPage(entry, catalog, vectors)});
    }
    const std::vector<ManualPage> indices = IndexPages(catalog);
    add(VectorPages(catalog));
    add(indices);
    add(CodePages());
    manual.files.push_back({"search-data.js", SearchData(catalog, indices)});
    for (const char* asset : {"lunr.js", "licences.txt"})
        manual.files.push_back({asset, Asset(asset)});
    manual.files.push_back({"manual.css", Asset("assets/page.css") + Asset("manual/manual.css")});
    manual.files.push_back({"manual.js", Asset("manual/manual.js")});
    return manual;
}

bool WriteManual(const Manual& manual, const std::string& folder)
{
    std::vector<FileText> texts;
    for (const ManualFile& file : manual.files)
        texts.push_back({(fs::path(folder) / file.path).string(), file.text});
    if (!WriteFilesOrReport(texts, Sync::Later)) // so many files would wait long for the disk
        return false;
    try {
        RemoveOthers(texts);
        return true;
    } catch (const fs::filesystem_error& error) {
        PrintError(fmt::format("can't remove an earlier page of the manual, '{}': {}", error.path1().string(),
            error.code().message()));
        return false;
    }
}

} // namespace Veld::Quor::Tools

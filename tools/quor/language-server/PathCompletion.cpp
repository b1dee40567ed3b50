#include "tools/quor/language-server/PathCompletion.h"

#include "quor/data/Access.h"
#include "quor/data/PathAliases.h"
#include "quor/foundation/service/Directory.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "tools/quor/language-server/TextContext.h"
#include "tools/quor/report/ListedRecord.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <system_error>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;
using namespace Core::Keywords;

namespace {

constexpr std::size_t mostPaths = 500;
constexpr int fileKind = 17; // as the protocol numbers them
constexpr int folderKind = 19;

/// Whether the keyword is a list of aliases, each with its path.
bool DefinesAliases(const IKeywordSyntax& syntax, const Decks::DeckLanguage& language)
{
    const std::vector<Decks::KeywordRole> roles = language.GetRoles(syntax);
    const IKeywordRecordMD* const record = FindListedRecord(syntax);
    const auto isText = [record](int item) {
        return record->GetItemMD(item)->GetType() == IKeywordDataMD::MDType::String;
    };
    return record && record->GetSize() > 1 && isText(0) && isText(1)
        && std::any_of(roles.begin(), roles.end(),
            [](const Decks::KeywordRole& role) { return role.role == "aliases of paths"; });
}

/// The aliases that the settings of a deck and its keywords define, wherever they do.
class AliasesOfDeck {
public:
    explicit AliasesOfDeck(const DeckState& state);

    /// As they are written, with the "$".
    const std::set<std::string>& GetNames() const { return names_; }
    /// False if one is not known.
    bool Resolve(std::string& path) const { return !paths_.resolvePathAliases(path, path); }

private:
    void Add(const std::string& name, const std::string& path);

    std::set<std::string> names_;
    PathAliases paths_;
};

AliasesOfDeck::AliasesOfDeck(const DeckState& state)
{
    for (const auto& [name, path] : state.GetProject().settings.aliases.value_or(Settings::Texts()))
        Add(name, path);
    std::map<const IKeywordSyntax*, bool> known;
    for (const Decks::DeckKeyword keyword : state.GetDeck()) {
        const auto [defines, isNew] = known.try_emplace(&keyword.GetSyntax());
        if (isNew)
            defines->second = DefinesAliases(keyword.GetSyntax(), state.GetProject().language->language);
        if (!defines->second || !keyword.FindData())
            continue;
        for (const IKeywordRecordData& record : Records(AsList(keyword.GetData())))
            Add(GetOrDefault<std::string>(record, 0, SimulatorType::Any).ValueOr(""),
                GetOrDefault<std::string>(record, 1, SimulatorType::Any).ValueOr(""));
    }
}

void AliasesOfDeck::Add(const std::string& name, const std::string& path)
{
    paths_.setAlias(name, path);
    names_.insert(name.starts_with('$') ? name : '$' + name);
}

} // namespace

bool AddPaths(Json& items, const View& view, const ByteRange& word, char quote, const std::string& prefix)
{
    const auto continues = [begin = ToUpper(prefix)](
                               const std::string& path) { return ToUpper(path).starts_with(begin); };
    const auto add = [&](const std::string& name, bool isFolder) {
        const std::string path = name + (isFolder ? "/" : "");
        if (const std::string written = InQuotes(path, quote); !written.empty())
            items.push_back({{"label", path}, {"kind", isFolder ? folderKind : fileKind},
                {"filterText", quote + path + quote},
                {"textEdit", {{"range", ToJson(view.SpanOf(word))}, {"newText", written}}}});
    };
    const fs::path root = view.places ? view.GetState().GetRoot() : PathOfUri(view.document->GetUri());
    const std::string folder = prefix.substr(0, prefix.rfind('/') + 1); // none: 0
    std::string resolved = folder;
    if (view.places) {
        const AliasesOfDeck aliases(view.GetState());
        if (!aliases.Resolve(resolved))
            return false;
        for (const std::string& alias : aliases.GetNames()) {
            if (continues(alias))
                add(alias, true);
        }
    }
    const fs::path place = root.parent_path() / resolved;
    std::size_t left = mostPaths;
    for (const std::string& name : Core::Service::Directory(place.string()).GetNames()) {
        if (name.starts_with('.') || !continues(folder + name))
            continue;
        if (left-- == 0)
            return true;
        std::error_code error;
        add(folder + name, fs::is_directory(place / name, error));
    }
    return false;
}

} // namespace Veld::Quor::Tools::LanguageServer

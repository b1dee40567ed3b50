#include "tools/quor/syntax/SyntaxSnapshot.h"

#include "quor/lint/Document.h"
#include "tools/quor/commands/LanguageOrigin.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/settings/SettingSources.h"
#include "tools/quor/tree/KeywordFacts.h"
#include "tools/quor/tree/TreeJson.h"
#include "tools/quor/tree/ValidityTable.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

std::vector<std::string> FilesOf(const std::string& path)
{
    std::error_code error;
    Settings settings;
    if (std::filesystem::is_directory(path, error))
        settings.syntaxFolder = path;
    else
        settings.syntax = {path};
    return DocumentsOf(settings);
}

nlohmann::ordered_json SyntaxJson(const IKeywordSyntax& syntax)
{
    nlohmann::ordered_json json = {{"description", syntax.GetDescription()},
        {"validity", ValidityJson(syntax, syntax.GetName())}, {"aliases", syntax.GetAliases()},
        {"precedents", PrecedentsOf(syntax)}, {"cellProperty", CellText(syntax)},
        {"scope", ScopeText(syntax)}};
    json["data"] = TreeJson(syntax);
    return json;
}

} // namespace

SyntaxSnapshot TakeSnapshot(LoadedLanguage& language, const std::string& path)
{
    SyntaxSnapshot snapshot;
    if (path == builtinLanguage) {
        language.Load({});
        for (const IKeywordSyntax* const syntax : language.GetSyntaxes(true))
            snapshot[syntax->GetName()].push_back(SyntaxJson(*syntax));
        return snapshot;
    }
    const std::vector<std::string> files = FilesOf(path);
    language.Load(files);
    KeywordCounts counts; // of the document's keywords of a name, which are found first
    for (const std::string& file : files)
        CountKeywords(Core::Lint::Document::ReadFile(file), counts);
    for (auto& [name, count] : counts) {
        for (const IKeywordSyntax* const syntax : language.GetTable().LookupAll(name)) {
            if (syntax->GetName() == name && count > 0 && count--)
                snapshot[name].push_back(SyntaxJson(*syntax));
        }
    }
    return snapshot;
}

} // namespace Veld::Quor::Tools

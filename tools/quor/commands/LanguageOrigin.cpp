#include "tools/quor/commands/LanguageOrigin.h"

#include "quor/foundation/service/Environment.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>

namespace Veld::Quor::Tools {

namespace Lint = Core::Lint;

namespace {

std::string OwnText(LoadedLanguage& language)
{
    KeywordCounts counts;
    for (const std::string& path : language.GetDocuments())
        CountKeywords(Lint::Document::ReadFile(path), counts);
    std::vector<std::string> replaced;
    for (const auto& [name, count] : counts) {
        if (language.GetTable().LookupAll(name).size() > count)
            replaced.push_back(name);
    }
    const std::string files = fmt::format("{}", fmt::join(language.GetDocuments(), ", "));
    return fmt::format("own documents {}: {}{}\n", MakePrintable(files), Plural(counts.size(), "keyword"),
        replaced.empty() ? "" : fmt::format(", in place of the built-in {}", SomeOf(replaced)));
}

/// Of a variable that is set, and the document that it replaces.
std::string VariableText(
    LoadedLanguage& language, const char* variable, const char* kind, const Lint::Document& replaced)
{
    const std::string path = Core::Service::GetEnvVariable(variable);
    if (path.empty())
        return {};
    KeywordCounts counts;
    CountKeywords(replaced, counts);
    std::vector<std::string> missing;
    for (const auto& [name, count] : counts) {
        if (language.GetTable().LookupAll(name).empty())
            missing.push_back(name);
    }
    return fmt::format("{}: {} replaces the built-in {} document{}\n", variable, MakePrintable(path), kind,
        missing.empty() ? "" : fmt::format("; without its {}", SomeOf(missing)));
}

} // namespace

void CountKeywords(const Lint::Document& document, KeywordCounts& counts)
{
    if (document.GetRoot())
        Lint::ForEachBelow(*document.GetRoot(), "keyword",
            [&counts](const Lint::Element& keyword) { ++counts[keyword.Get("name")]; });
}

std::string OriginText(LoadedLanguage& language)
{
    std::string text = language.GetDocuments().empty() ? "" : OwnText(language);
    constexpr const char* ofTrusted = "QUOR_KEYWORD_TRUSTED_SYNTAX_DIR";
    constexpr const char* ofMain = "QUOR_KEYWORD_SYNTAX_FILE";
    if (Core::Service::GetEnvVariable(ofTrusted).empty() && Core::Service::GetEnvVariable(ofMain).empty())
        return text;
    const std::vector<Lint::Document> builtin = Lint::Document::ReadBuiltin(); // the trusted one first
    return text + VariableText(language, ofTrusted, "trusted", builtin.front())
        + VariableText(language, ofMain, "main", builtin.back());
}

std::vector<std::string> ReplacedBy(const std::vector<Lint::Document>& documents)
{
    KeywordCounts own;
    for (const Lint::Document& document : documents)
        CountKeywords(document, own);
    KeywordCounts builtin;
    if (!own.empty()) {
        for (const Lint::Document& document : Lint::Document::ReadBuiltin())
            CountKeywords(document, builtin);
    }
    std::vector<std::string> replaced;
    for (const auto& [name, count] : own) {
        if (builtin.count(name) > 0)
            replaced.push_back(name);
    }
    return replaced;
}

std::string SomeOf(const std::vector<std::string>& names)
{
    constexpr std::size_t most = 5;
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), most); ++i)
        text += (i == 0 ? "" : ", ") + names[i];
    if (names.size() > most)
        text += fmt::format(" and {} more", names.size() - most);
    return MakePrintable(text);
}

} // namespace Veld::Quor::Tools

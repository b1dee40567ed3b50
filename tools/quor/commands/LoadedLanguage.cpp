#include "tools/quor/commands/LoadedLanguage.h"

#include "quor/foundation/service/Environment.h"
#include "quor/foundation/service/Exception.h"
#include "quor/foundation/service/Log.h"
#include "quor/lint/Lint.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// Takes what goes to `std::cout`, as long as it lives.
class OutputGuard {
public:
    OutputGuard()
        : original_(std::cout.rdbuf(taken_.rdbuf()))
    {
    }
    ~OutputGuard() { std::cout.rdbuf(original_); }
    OutputGuard(const OutputGuard&) = delete;
    OutputGuard& operator=(const OutputGuard&) = delete;

private:
    std::ostringstream taken_;
    std::streambuf* original_;
};

/// Keeps what the library logs, as long as it lives.
class LogGuard {
public:
    LogGuard()
        : original_(Log::SetHandler([this](const char* text, Core::Service::MessageSeverity severity) {
            kept_.emplace_back(text, severity);
        }))
    {
    }
    ~LogGuard() { Log::SetHandler(original_); }
    LogGuard(const LogGuard&) = delete;
    LogGuard& operator=(const LogGuard&) = delete;

    void Send()
    {
        Log::SetHandler(original_);
        for (const auto& [text, severity] : kept_)
            Log::SendLogMessage(text.c_str(), severity);
    }

private:
    using Log = Core::Service::Log;

    std::vector<std::pair<std::string, Core::Service::MessageSeverity>> kept_;
    Core::Service::LogHandler original_;
};

/// The library prints the failures of a load on standard output, which is for data here; the exception that
/// comes with each says the same.
KeywordSyntaxTable& LoadTable()
{
    const OutputGuard guard;
    return KeywordSyntaxTable::Instance();
}

} // namespace

LoadedLanguage::LoadedLanguage(const std::vector<std::string>& documents)
{
    Load(documents);
}

std::string LoadedLanguage::ErrorIn(const std::vector<std::string>& documents)
{
    for (const std::string& path : documents) {
        std::vector<Core::Lint::Document> alone;
        try {
            alone.push_back(Core::Lint::Document::ReadFile(path));
        } catch (const Core::Lint::DocumentError& error) {
            return fmt::format("can't read '{}': {}", path, error.what());
        }
        if (const Core::Lint::Element* const root = alone.back().GetRoot(); root && root->tag == "rules")
            return fmt::format(
                "'{}' is a document of rules, not of keywords; name it with --rules ('rules' in quor.toml), "
                "and keep it out of the folder of --syntax-folder",
                path);
        const auto report = Core::Lint::LintDocuments(alone, 1000);
        for (const Core::Decks::Finding& finding : report.findings) {
            if (finding.severity == Core::Decks::Severity::Error)
                return Core::Decks::ToString(finding);
        }
        if (report.keywords.front() == 0)
            return fmt::format("'{}' has no keyword", path);
    }
    return {};
}

void LoadedLanguage::Load(const std::vector<std::string>& documents)
{
    if (table_)
        KeywordSyntaxTable::Instance(true, false);
    table_ = nullptr;
    documents_ = documents;
    const auto start = std::chrono::steady_clock::now();
    KeywordSyntaxTable::SetOwnDocuments(documents);
    LogGuard log; // what is wrong with an own document is reported once, with the error
    try {
        table_ = &LoadTable();
    } catch (const Core::Service::Exception&) {
        const std::string error = ErrorIn(documents);
        if (!error.empty())
            throw std::runtime_error(fmt::format("can't load the language: {}", error));
        log.Send();
        throw;
    }
    log.Send();
    loadTime_ =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
}

LoadedLanguage::Syntaxes LoadedLanguage::GetSyntaxes(bool withHidden)
{
    Syntaxes syntaxes;
    KeywordSyntaxEnumerator enumerator = table_->KeywordsEnumerator();
    while (withHidden ? enumerator.NextWithHidden() : enumerator.Next()) {
        const auto& [name, syntax] = *enumerator.Current();
        if (*name == syntax->GetName()) // else reached by an alias
            syntaxes.push_back(syntax);
    }
    std::stable_sort(syntaxes.begin(), syntaxes.end(), [](const IKeywordSyntax* a, const IKeywordSyntax* b) {
        return std::forward_as_tuple(a->GetName(), a->GetFirstValidSection())
            < std::forward_as_tuple(b->GetName(), b->GetFirstValidSection());
    });
    return syntaxes;
}

std::string LoadedLanguage::GetOrigin()
{
    const std::string main = Core::Service::GetEnvVariable("QUOR_KEYWORD_SYNTAX_FILE");
    const std::string trusted = Core::Service::GetEnvVariable("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    std::string origin = main.empty() && trusted.empty()
        ? "built-in documents"
        : fmt::format("{}, {}", main.empty() ? "built-in main document" : main,
            trusted.empty() ? "built-in trusted document" : trusted);
    for (const std::string& own : KeywordSyntaxTable::GetOwnDocuments())
        origin += ", " + own;
    return origin;
}

} // namespace Veld::Quor::Tools

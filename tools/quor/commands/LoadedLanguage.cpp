#include "tools/quor/commands/LoadedLanguage.h"

#include "quor/foundation/service/Environment.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <tuple>

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

/// The library prints the failures of a load on standard output, which is for data here; the exception that
/// comes with each says the same.
KeywordSyntaxTable& Load()
{
    const OutputGuard guard;
    return KeywordSyntaxTable::Instance();
}

} // namespace

LoadedLanguage::LoadedLanguage()
    : start_(std::chrono::steady_clock::now())
    , table_(Load())
    , loadTime_(
          std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start_))
{
}

LoadedLanguage::Syntaxes LoadedLanguage::GetSyntaxes(bool withHidden)
{
    Syntaxes syntaxes;
    KeywordSyntaxEnumerator enumerator = table_.KeywordsEnumerator();
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
    if (main.empty() && trusted.empty())
        return "built-in documents";
    return fmt::format("{}, {}", main.empty() ? "built-in main document" : main,
        trusted.empty() ? "built-in trusted document" : trusted);
}

} // namespace Veld::Quor::Tools

// Bytes become a file that a project has beside its decks, which the first of them chooses: settings, a
// baseline, rules, the results of a run that was ended. It is read, or refused with a sentence that names it;
// what was written of it is read as the same.

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/foundation/service/Log.h"
#include "quor/lint/Lint.h"
#include "quor/syntax/KeywordSyntaxTable.h"
#include "tests/support/Documents.h"
#include "tools/quor/check/CheckOptions.h"
#include "tools/quor/check/ResumeFile.h"
#include "tools/quor/findings/Baseline.h"
#include "tools/quor/settings/SettingsFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tools;
namespace Lint = Veld::Quor::Core::Lint;
using Veld::Quor::Core::Keywords::KeywordSyntaxTable;
using Veld::Quor::Tests::TemporaryDirectory;

namespace {

void Require(bool holds, const std::string& claim)
{
    if (holds)
        return;
    std::cerr << "does not hold: " << claim << '\n';
    std::abort();
}

const TemporaryDirectory& GetFolder()
{
    static const TemporaryDirectory folder;
    return folder;
}

/// Why the file is refused: one line for people, which names it.
void RequireReason(const std::exception& error, const std::string& file)
{
    const std::string text = error.what();
    Require(text.find(std::filesystem::path(file).filename()) != std::string::npos,
        "the file is named in: " + text);
    for (const char c : text)
        Require(static_cast<unsigned char>(c) >= ' ' || c == '\t', "no control character is in: " + text);
}

void ReadBaseline(const std::string& file)
{
    const Baseline baseline = Baseline::Read(file);
    const std::string text = baseline.ToText();
    const std::string again = GetFolder().Write("again.json", text);
    Require(Baseline::Read(again).ToText() == text, "a baseline that was written is the same");
}

void ReadRules(const std::string& file)
{
    std::vector<Lint::Document> documents;
    documents.push_back(Lint::Document::ReadFile(file));
    Lint::LintDocuments(documents, 100);
    const DeckLanguage language(KeywordSyntaxTable::Instance(), {file});
    language.GetOwnCodes();
    language.GetNameKinds();
    for (const char* const name : {"WELSPECS", "COMPDAT", "EQUALS", "GRUPTREE", "DIMENS"})
        language.GetRules(*KeywordSyntaxTable::Instance().Lookup(name, false));
}

void ReadResults(const std::string& file)
{
    ResumeFile results(file, CheckOptions());
    results.Take("deck.data");
}

struct Kind {
    const char* name;
    void (*read)(const std::string& file);
};
constexpr Kind kinds[] = {
    {"quor.toml", [](const std::string& file) { ReadSettingsFile(file); }},
    {"baseline.json", ReadBaseline},
    {"rules.xml", ReadRules},
    {"results", ReadResults},
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    Veld::Quor::Core::Service::Log::SetHandler(
        [](const char*, Veld::Quor::Core::Service::MessageSeverity) {});
    if (std::filesystem::is_directory("/dev/shm")) // files in memory are faster
        ::setenv("TMPDIR", "/dev/shm", 0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.empty())
        return -1;
    const Kind& kind = kinds[static_cast<std::uint8_t>(bytes.front()) % std::size(kinds)];
    const std::string file = GetFolder().Write(kind.name, bytes.substr(1));
    try {
        kind.read(file);
    } catch (const std::exception& error) {
        RequireReason(error, file);
    }
    return 0;
}

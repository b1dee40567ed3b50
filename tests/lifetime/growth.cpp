// Loads, loads that fail, and decks, a thousand of each: the memory of the process stays as it is.

#include <quor/Deck.h>
#include <quor/Keywords.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

using namespace Veld::Quor::Core;
using Keywords::KeywordSyntaxTable;

namespace {

constexpr int turns = 1'000;
constexpr int firstTurns = 10;
constexpr long mostGrowth = 1L << 20;

constexpr const char* document = R"(<keywords>
  <keyword name="SIZES"><data><record><item name="N"><integer/></item></record></data></keyword>
  <keyword name="W*"><data><list><record><item name="WELL" identifier="true"><string/></item>
    <item name="RATE"><real><default type="calculated"/></real></item></record></list></data></keyword>
</keywords>)";
constexpr const char* deckText =
    "RUNSPEC\nSIZES\n 3 /\nSCHEDULE\nWELLS\n A 1 /\n 'B C' 1* /\n/\nWELLZ\n A x /\n/\n";

long ResidentBytes()
{
    long all = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

template <class Action>
bool StaysSmall(const char* name, Action action)
{
    long first = 0;
    for (int i = 0; i < turns; ++i) {
        action();
        if (i + 1 == firstTurns)
            first = ResidentBytes();
    }
    const long growth = ResidentBytes() - first;
    std::printf("%d %s: %ld KiB more than after the first %d\n", turns, name, growth / 1024, firstTurns);
    return growth < mostGrowth;
}

void Load()
{
    KeywordSyntaxTable::Instance(true, false);
    KeywordSyntaxTable::Instance();
}

void FailToLoad()
{
    try {
        Load();
        std::exit(3);
    } catch (const Service::Exception&) {
        KeywordSyntaxTable::Instance(true, false);
    }
}

bool AllStaySmall()
{
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("growth-" + std::to_string(::getpid()));
    ::setenv("QUOR_KEYWORD_SYNTAX_FILE", file.c_str(), 1);
    std::ofstream(file) << document;
    bool isSmall = StaysSmall("loads", Load);
    const Decks::DeckLanguage language;
    isSmall &= StaysSmall("decks", [&] {
        const auto deck = Decks::Deck::ReadText(deckText, language, Decks::ReadOptions().SetEditable(true));
        Decks::DeckEditor editor(deck);
        editor.SetValue("WELLS['B C'].RATE", 2.5);
        if (editor.Read(language).GetFindings().GetCount(Decks::Severity::Error) == 0)
            std::exit(4); // the deck has one
    });
    std::ofstream(file) << "<keywords><keyword name='A'><data><record><item name='X'><real><default "
                           "type='x'/></real></item></record></data></keyword></keywords>";
    isSmall &= StaysSmall("loads that fail", FailToLoad);
    std::filesystem::remove(file);
    return isSmall;
}

} // namespace

int main()
try {
    Service::Log::SetHandler([](const char*, Service::MessageSeverity) {});
    return AllStaySmall() ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}

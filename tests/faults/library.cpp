// A host that loads, makes, reads, checks, writes and edits while memory fails: what runs out of it throws
// `std::bad_alloc` or does the same as ever, and the same call succeeds afterwards. FailingMemory.cpp, which
// is preloaded, makes the failures, and each in a process of its own.

#include <quor/Deck.h>
#include <quor/Keywords.h>

#include <memory>
#include <new>
#include <string>

#include <unistd.h>

extern "C" {
void FaultsBegin() __attribute__((weak));
bool FaultsEnd() __attribute__((weak));
}

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Core::Decks;
namespace Service = Veld::Quor::Core::Service;

namespace {

constexpr const char* text =
    "RUNSPEC\nDIMENS\n 2 2 2 /\nWATR\nGRID\nPORO\n 3*0.25 5*0.2 / -- a comment\n"
    "SCHEDULE\nWELSPECS\n 'A well' 'G' 1 1 2000 OIL /\n/\nWCONPROD\n 'A well' OPEN ORAT 5 /\n/\n"
    "DATES\n 1 FEB 2020 /\n/\n";

std::string Load()
{
    KeywordSyntaxTable::Instance(true, false);
    return KeywordSyntaxTable::Instance().Lookup("WELSPECS", true) ? "loaded" : "missing";
}

std::string Fill()
{
    const IKeywordSyntax& syntax = *KeywordSyntaxTable::Instance().Lookup("WELSPECS", true);
    const auto data = KeywordDataFactory::Instance().Construct(syntax);
    Set(AddRecord(AsList(*data)), 0, "A name that is too long to be stored in place");
    const auto clone = data->CloneSafely();
    Set(AddRecord(AsList(*clone)), 0, "another");
    int stops = 0;
    for (ConstDataIterator stop(*clone); stop != ConstDataIterator::End(); ++stop)
        ++stops;
    return std::to_string(*data == *clone) + ' ' + std::to_string(stops) + WriteKeyword(*clone);
}

std::string Read(const DeckLanguage& language)
{
    const Deck deck = Deck::ReadText(text, language, ReadOptions().SetEditable(true));
    std::string result = DeckFormatter(deck, FormatOptions().SetNormalized(true)).FormatAll();
    for (const Finding& finding : deck.GetFindings())
        result += ToString(finding);
    DeckEditor editor(deck);
    editor.SetValue("WCONPROD.ORAT", 7.5);
    const Deck changed = editor.Read(language);
    return result + editor.GetText(0) + std::to_string(Compare(deck, changed).groups.size())
        + Summarize(deck).title;
}

std::string List()
{
    std::string names;
    for (const std::string& name :
        Service::Directory("/proc/self").Find("^stat", true, false, true, true, false))
        names += name + ' ';
    return names;
}

/// Exits if memory failed, with what came of it.
template <class Action>
void Try(const std::string& expected, Action action)
{
    bool hasThrown = false;
    std::string result;
    FaultsBegin();
    try {
        result = action();
    } catch (const std::bad_alloc&) {
        hasThrown = true;
    }
    if (FaultsEnd())
        ::_exit(!hasThrown && result != expected ? 3 : action() != expected ? 4 : 0);
}

} // namespace

int main()
{
    if (!FaultsBegin)
        return 1;
    const std::string loaded = "loaded";
    Try(loaded, Load); // for the first time in the process
    Try(loaded, Load);
    Try(Fill(), Fill);
    Try("stat statm status ", List);
    Try(std::string(), [] { return DeckLanguage(), std::string(); });
    const DeckLanguage language;
    const auto read = [&language] { return Read(language); };
    Try(read(), read);
    return 0;
}

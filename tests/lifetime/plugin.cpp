// What a plug-in of a host does: reads a deck, a document, and answers. It brings the libraries into the
// process.

#include <quor/Deck.h>
#include <quor/Keywords.h>
#include <quor/foundation/service/xml/XMLDocument.h>

#include <cstddef>
#include <string_view>

using namespace Veld::Quor::Core;

/// The sum of the porosities of a deck; negative if something else goes wrong.
extern "C" [[gnu::visibility("default")]] double Work() noexcept
try {
    constexpr std::string_view document = "<keywords/>";
    Service::XML::XMLDocument xml;
    if (!xml.readMemory(document.data(), document.size(), "plug-in"))
        return -1;
    const Decks::DeckLanguage language;
    const Decks::Deck deck =
        Decks::Deck::ReadText("RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nPORO\n 3*0.25 5*0.5 /\n", language);
    const auto values = Keywords::As<double>(Keywords::AsList(deck.Get("PORO").GetData()));
    double sum = 0;
    for (std::size_t i = 0; i < values.size(); ++i)
        sum += values[i];
    return sum;
} catch (...) {
    return -2;
}

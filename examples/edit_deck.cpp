// Changes a value of a deck, and shows that no other byte of the deck changes.

#include "quor/Deck.h"

#include <exception>
#include <iostream>
#include <string>

using namespace Veld::Quor::Core::Decks;

int main()
{
    const std::string text = "RUNSPEC\nDIMENS\n  4*12 /   -- the comment stays\n"
                             "SCHEDULE\nWELSPECS\n  P1 FIELD 2 3 1* OIL /\n/\n";
    try {
        const DeckLanguage language;
        const Deck deck = Deck::ReadText(text, language, ReadOptions().SetEditable(true));
        DeckEditor editor(deck);
        editor.SetValue("WELSPECS[P1].I", 7);
        const std::string changed = editor.GetText(0);
        const Deck again = editor.Read(language);

        const TextEdit edit = editor.GetEdits().front();
        const std::size_t end = edit.range.offset + edit.range.length;
        const bool isSameBefore = text.compare(0, edit.range.offset, changed, 0, edit.range.offset) == 0;
        const bool isSameAfter = text.substr(end) == changed.substr(edit.range.offset + edit.text.size());
        std::cout << deck.GetFiles().GetText(edit.range) << " becomes " << edit.text << "; all else is "
                  << (isSameBefore && isSameAfter ? "the same" : "different") << '\n'
                  << ResolveOne(again, ValueAddress::Parse("WELSPECS[P1].I")).text << '\n';
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

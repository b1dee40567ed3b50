// Reads a deck, prints what is wrong with it, and the mean of the porosities that it gives.

#include "quor/Deck.h"

#include <cstddef>
#include <exception>
#include <iostream>

using namespace Veld::Quor::Core;

int main(int count, char** arguments)
{
    if (count != 2) {
        std::cerr << "usage: read-deck DECK\n";
        return 2;
    }
    try {
        const Decks::DeckLanguage language;
        const Decks::Deck deck = Decks::Deck::Read(arguments[1], language);
        for (const Decks::Finding& finding : deck.GetFindings())
            std::cout << ToString(finding) << '\n';

        const auto porosities = Keywords::As<double>(Keywords::AsList(deck.Get("PORO").GetData()));
        double sum = 0;
        std::size_t given = 0;
        for (std::size_t i = 0; i < porosities.size(); ++i) {
            if (porosities.IsDefaulted(i))
                continue;
            sum += porosities[i];
            ++given;
        }
        if (given > 0)
            std::cout << "mean of PORO " << sum / static_cast<double>(given) << '\n';
        return deck.IsClean() ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}

// Reads decks in eight threads with one language, which is loaded once, and counts what is wrong with them.

#include "quor/Deck.h"

#include <cstddef>
#include <exception>
#include <future>
#include <iostream>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Decks;

int main()
{
    try {
        const DeckLanguage language;
        std::vector<std::future<std::size_t>> counts;
        std::string text = "RUNSPEC\nTITLE\n a member of an ensemble\n";
        for (int member = 0; member < 8; ++member) {
            counts.push_back(std::async(std::launch::async, [&language, text] {
                const Deck deck = Deck::ReadText(text, language);
                return deck.GetFindings().GetCount(Severity::Error);
            }));
            text += "NOSUCHKW\n"; // the next deck has one more keyword that does not exist
        }
        for (std::future<std::size_t>& count : counts)
            std::cout << count.get() << ' ';
        std::cout << "errors\n";
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

// Reads decks in eight threads with one language, which is loaded once, and counts what is wrong with them.

#include "quor/Deck.h"

#include <array>
#include <exception>
#include <iostream>
#include <thread>

using namespace Veld::Quor::Core::Decks;

int main()
{
    const DeckLanguage language;
    std::array<std::size_t, 8> errors = {};
    std::array<std::thread, 8> threads;
    for (std::size_t i = 0; i < threads.size(); ++i)
        threads[i] = std::thread([&language, &count = errors[i], i] {
            // Each deck has one keyword more that does not exist.
            std::string text = "RUNSPEC\nTITLE\n a member of an ensemble\n";
            for (std::size_t line = 0; line < i; ++line)
                text += "NOSUCHKW\n";
            const Deck deck = Deck::ReadText(text, language);
            count = deck.GetFindings().GetCount(Severity::Error);
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::size_t count : errors)
        std::cout << count << ' ';
    std::cout << "errors\n";
}

#include "tools/deck/DeckCheck.h"

#include "tools/deck/Deck.h"

#include <memory>
#include <utility>

namespace Veld::Quor::Tools::Deck {

DeckReport CheckDeck(const std::string& path, const CheckOptions& options, Vocabulary& vocabulary)
{
    const std::unique_ptr<Deck> deck =
        ReadDeck(path, {options.target, options.maxFindings, options.progress, options.isKnown}, vocabulary);
    return {std::move(deck->findings), deck->keywords.size(), deck->sections, deck->distinctFiles};
}

} // namespace Veld::Quor::Tools::Deck

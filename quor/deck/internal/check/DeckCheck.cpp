#include "quor/deck/internal/check/DeckCheck.h"

#include <memory>
#include <utility>

namespace Veld::Quor::Core::Decks {

DeckReport CheckDeck(const std::string& path, const ReadOptions& options, const DeckLanguage& language)
{
    const std::unique_ptr<Deck> deck = ReadDeck(path, options, language);
    return {std::move(deck->findings), deck->keywords.size(), deck->sections, deck->distinctFiles};
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/DeckFormatter.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/write/DeckWriter.h"

#include <stdexcept>

namespace Veld::Quor::Core::Decks {

DeckFormatter::DeckFormatter(const Deck& deck, const FormatOptions& options)
    : deck_(deck)
    , id_(ContentsOf(deck).id)
    , writer_(std::make_unique<DeckWriter>(ContentsOf(deck), options.IsNormalized()))
{
}

DeckFormatter::~DeckFormatter() = default;

std::string DeckFormatter::FormatFile(std::uint32_t file)
{
    CheckDeck();
    deck_.GetFiles().Get(file); // throws if there is none
    return writer_->WriteFile(file);
}

std::string DeckFormatter::FormatAll()
{
    CheckDeck();
    return writer_->WriteAll();
}

void DeckFormatter::CheckDeck() const
{
    if (ContentsOf(deck_).id != id_)
        throw std::logic_error("the deck of the formatter was assigned to");
}

} // namespace Veld::Quor::Core::Decks

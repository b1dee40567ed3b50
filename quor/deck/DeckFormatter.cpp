#include "quor/deck/DeckFormatter.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/write/DeckWriter.h"

namespace Veld::Quor::Core::Decks {

DeckFormatter::DeckFormatter(const Deck& deck, const FormatOptions& options)
    : deck_(deck)
    , writer_(std::make_unique<DeckWriter>(ContentsOf(deck), options.IsNormalized()))
{
}

DeckFormatter::~DeckFormatter() = default;

std::string DeckFormatter::FormatFile(std::uint32_t file)
{
    deck_.GetFiles().Get(file); // throws if there is none
    return writer_->WriteFile(file);
}

std::string DeckFormatter::FormatAll()
{
    return writer_->WriteAll();
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/DeckFormatter.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/write/DeckWriter.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Veld::Quor::Core::Decks {

DeckFormatter::DeckFormatter(const Deck& deck)
    : deck_(deck)
    , writer_(std::make_unique<DeckWriter>(ContentsOf(deck)))
{
}

DeckFormatter::~DeckFormatter() = default;

std::string DeckFormatter::FormatFile(std::uint32_t file)
{
    if (file >= deck_.GetFiles().GetSize())
        throw std::out_of_range(fmt::format(
            "file index {} is out of range (the deck has {} files)", file, deck_.GetFiles().GetSize()));
    return writer_->WriteFile(file);
}

std::string DeckFormatter::FormatAll()
{
    return writer_->WriteAll();
}

} // namespace Veld::Quor::Core::Decks

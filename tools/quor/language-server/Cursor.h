#pragma once

#include "quor/deck/DeckKeyword.h"
#include "quor/deck/ValueAddress.h"
#include "tools/quor/language-server/Places.h"
#include "tools/quor/language-server/Scalars.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

/// A value of a deck that a word stands for.
struct ScalarAt {
    ScalarPlace place; ///< of the first that the word stands for
    std::size_t count = 1; ///< how many it stands for
    Core::Decks::TextRange range; ///< the word
};

/// The keyword to whose name or data a position of the document belongs, as the deck was read; empty before
/// the first keyword.
std::optional<Core::Decks::DeckKeyword> FindKeywordAt(const View& view, std::size_t offset);

/// Whether the position is at the name of the keyword.
bool IsAtName(const View& view, const Core::Decks::DeckKeyword& keyword, std::size_t offset);

/// The value whose word is at the position; empty if there is none, or errors in the keyword hide it.
std::optional<ScalarAt> FindScalarAt(
    const View& view, const Core::Decks::DeckKeyword& keyword, std::size_t offset);

/// The place of a value by its slot.
ScalarPlace PlaceOf(const Core::Decks::DeckKeyword& keyword, std::size_t slot);

/// The word of letters, digits and marks of names at the position, and where it begins.
std::pair<std::string_view, std::size_t> WordAt(std::string_view text, std::size_t offset);

} // namespace Veld::Quor::Tools::LanguageServer

#include "quor/deck/CellArrays.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/compare/ArrayOperations.h"

namespace Veld::Quor::Core::Decks {

CellArrays FindCellArrays(const Deck& deck)
{
    const DeckContents& contents = ContentsOf(deck);
    ArrayOperations operations(contents, true);
    for (const KeywordInstance& keyword : contents.keywords)
        operations.Follow(keyword);
    return operations.TakeValues();
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/CellArrays.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/compare/ArrayOperations.h"

namespace Veld::Quor::Core::Decks {

CellArrays FindCellArrays(const Deck& deck)
{
    const DeckContents& contents = ContentsOf(deck);
    RolePlans plans(contents.language.GetRules(), RolePlans::Which::All);
    ArrayOperations operations(contents, plans, true);
    for (const KeywordInstance& keyword : contents.keywords)
        operations.Follow(keyword);
    return operations.TakeValues();
}

} // namespace Veld::Quor::Core::Decks

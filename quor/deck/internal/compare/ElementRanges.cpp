#include "quor/deck/internal/compare/ElementRanges.h"

#include <cstdint>

namespace Veld::Quor::Core::Decks {

TextRange RangeOf(const DeckKeyword& keyword, std::size_t element)
{
    if (element >= keyword.records.size())
        return keyword.name;
    const RecordStart& start = keyword.records[element];
    return {static_cast<std::uint32_t>(start.file), start.offset, 1};
}

} // namespace Veld::Quor::Core::Decks

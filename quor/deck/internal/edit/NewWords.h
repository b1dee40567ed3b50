#pragma once

#include "quor/deck/DeckEditor.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/edit/ValueEdits.h"
#include "quor/deck/internal/read/contents/DeckContents.h"

#include <optional>

namespace Veld::Quor::Core::Decks {

/// The value as the deck would hold it at the place; empty if it is there already. Throws `DataAccessError`
/// if the item is of another type, `EditError` if no deck can hold the value, or it would be read as another.
std::optional<NewWord> MakeNewWord(
    const KeywordInstance& keyword, const ValuePath& path, const NewValue& value, const Target& target);

/// The same for the default.
std::optional<NewWord> MakeDefaultWord(
    const KeywordInstance& keyword, const ValuePath& path, const Target& target);

} // namespace Veld::Quor::Core::Decks

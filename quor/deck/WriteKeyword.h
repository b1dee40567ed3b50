#pragma once

#include "quor/deck/Target.h"
#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Core::Decks {

/// The text of a keyword with its data, laid out as `DeckFormatter` does and with whole lines: ready for
/// `DeckEditor::AddKeywordInStep` and its like. `data` is the root of a keyword's data, such as
/// `Keywords::KeywordDataFactory` makes. Throws `EditError` for a part of such data, and for data that no
/// deck can hold, such as no value where there is no default. Several threads may call it at once.
VELD_QUOR_EXPORT std::string WriteKeyword(
    const Keywords::IKeywordData& data, const Target& target = Target());

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordMapMD.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Keywords {
class IKeywordMapData;
}

namespace Veld::Quor::Core::Decks {

/// Of a text in UTF-8.
std::size_t CountCharacters(std::string_view text);

/// The words of a choice that a misspelt one may stand for, or all of them.
std::string HintOfChoice(const Core::Keywords::IKeywordChoiceMD& choice, const std::string& word);

/// The keys of a map that a misspelt one may stand for; empty if none is near.
std::string HintOfKey(const Core::Keywords::IKeywordMapMD& map, const std::string& word);

/// The assignment that a key selects by one of its names; null if none does.
const Core::Keywords::IKeywordAssignmentMD* FindAssignment(
    const Core::Keywords::IKeywordMapMD& map, const std::string& key);

} // namespace Veld::Quor::Core::Decks

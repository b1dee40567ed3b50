#pragma once

#include "quor/metadata/ChoiceMatch.h"
#include "quor/metadata/KeywordChoiceMDImpl.h"

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords::Internal {

using Choices = std::vector<KeywordChoiceMDImpl::ChoiceMD>;

/// The index of the first choice of that word, or -1. Case does not matter, and all blank words are one.
int FindWord(const Choices& choices, std::string_view text);

/// The one matching of a text with words, aliases and their starts. Logs nothing.
ChoiceMatch MatchChoice(const Choices& choices, std::string_view text);

/// The warning of a match that needs one.
std::string WarningOf(const Choices& choices, const ChoiceMatch& match, std::string_view text);

} // namespace Veld::Quor::Core::Keywords::Internal

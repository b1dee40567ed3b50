#pragma once

#include "quor/deck/DeckEditor.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Veld::Quor::Tests {

/// A change of a deck, for a row of a table. Keywords are the last of their name.
using Change = std::function<void(Core::Decks::DeckEditor&, const Core::Decks::Deck&)>;

Change Set(const char* address, const Core::Decks::NewValue& value);
Change Clear(const char* address);
Change Both(const Change& first, const Change& second);
Change Array(const char* keyword, const std::vector<int>& values);
Change Reals(const char* keyword, const std::vector<double>& values);
Change Add(const char* keyword, const char* record);
Change Remove(const char* keyword, std::size_t record);
Change Remove(const char* keyword);
Change AddAfter(const char* keyword, const char* text);
Change AddIn(Core::Keywords::SectionType::Enum section, const char* text);
Change AddIn(std::size_t step, const char* text);

} // namespace Veld::Quor::Tests

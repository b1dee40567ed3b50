#pragma once

#include "quor/deck/DeckEditor.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Veld::Quor::Tests {

/// What is done to a deck, for a row of a table. Keywords are the last of their name.
using EditStep = std::function<void(Core::Decks::DeckEditor&, const Core::Decks::Deck&)>;

EditStep Set(const char* address, const Core::Decks::NewValue& value);
EditStep Clear(const char* address);
EditStep Both(const EditStep& first, const EditStep& second);
EditStep Array(const char* keyword, const std::vector<int>& values);
EditStep Reals(const char* keyword, const std::vector<double>& values);
EditStep Add(const char* keyword, const char* record);
EditStep Remove(const char* keyword, std::size_t record);
EditStep Remove(const char* keyword);
EditStep AddAfter(const char* keyword, const char* text);
EditStep AddIn(Core::Keywords::SectionType::Enum section, const char* text);
EditStep AddIn(std::size_t step, const char* text);

} // namespace Veld::Quor::Tests

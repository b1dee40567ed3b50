#include "tests/deck/EditorChanges.h"

namespace Veld::Quor::Tests {

using namespace Core::Decks;
using Core::Keywords::SectionType;

EditStep Set(const char* address, const NewValue& value)
{
    return [=](DeckEditor& editor, const Deck& /*deck*/) { editor.SetValue(address, value); };
}

EditStep Clear(const char* address)
{
    return [=](DeckEditor& editor, const Deck& /*deck*/) { editor.ClearValue(address); };
}

EditStep Both(const EditStep& first, const EditStep& second)
{
    return [=](DeckEditor& editor, const Deck& deck) {
        first(editor, deck);
        second(editor, deck);
    };
}

EditStep Array(const char* keyword, const std::vector<int>& values)
{
    return [=](DeckEditor& editor, const Deck& deck) {
        editor.SetArray(deck.Get(keyword), values.data(), values.size());
    };
}

EditStep Reals(const char* keyword, const std::vector<double>& values)
{
    return [=](DeckEditor& editor, const Deck& deck) {
        editor.SetArray(deck.Get(keyword), values.data(), values.size());
    };
}

EditStep Add(const char* keyword, const char* record)
{
    return [=](DeckEditor& editor, const Deck& deck) { editor.AddRecord(deck.Get(keyword), record); };
}

EditStep Remove(const char* keyword, std::size_t record)
{
    return [=](DeckEditor& editor, const Deck& deck) { editor.RemoveRecord(deck.Get(keyword), record); };
}

EditStep Remove(const char* keyword)
{
    return [=](DeckEditor& editor, const Deck& deck) { editor.RemoveKeyword(deck.Get(keyword)); };
}

EditStep AddAfter(const char* keyword, const char* text)
{
    return [=](DeckEditor& editor, const Deck& deck) { editor.AddKeywordAfter(deck.Get(keyword), text); };
}

EditStep AddIn(SectionType::Enum section, const char* text)
{
    return [=](DeckEditor& editor, const Deck& /*deck*/) { editor.AddKeywordAtEnd(section, text); };
}

EditStep AddIn(std::size_t step, const char* text)
{
    return [=](DeckEditor& editor, const Deck& /*deck*/) { editor.AddKeywordInStep(step, text); };
}

} // namespace Veld::Quor::Tests

// Bytes become a deck and a script of changes. Each change is made as a whole or refused, and then nothing
// has changed; the text is the one that was read with the edits made to it, and can be read again. In a deck
// without errors each value can be set to another one, and all others stay.

#include "quor/data/Access.h"
#include "quor/deck/DeckEditor.h"
#include "quor/foundation/service/Log.h"
#include "tests/deck/ValueChanges.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Core::Decks;

namespace {

/// Between the deck and the script.
constexpr char separator = '\x1E';
/// Each value of a deck is set, and the deck read again.
constexpr std::size_t largestDeck = 2'000;
constexpr std::size_t largestScript = 60;

constexpr const char* words[] = {
    "", "1*", "P1", "'A B'", "OPEN", "2*0.5", "/", "--", "-1", "1e400", "SHUT", "\n"};
constexpr const char* texts[] = {"", "ECHO", "TITLE\nA deck\n", "PORO\n 8*0.2 /\n",
    "WCONPROD\n P1 OPEN ORAT 800 /\n/\n", "END\n", "DATES\n 1 JAN 2030 /\n/\n", "DIMENS\n 2 2 2 /",
    " PORO\n 1 /", "SKIP\n", "PORO\n 'unclosed\n", "NOKEYWORD\n"};
constexpr SectionType::Enum sections[] = {
    SectionType::None, SectionType::RUNSPEC, SectionType::GRID, SectionType::PROPS, SectionType::SCHEDULE};

void Require(bool holds, const char* claim)
{
    if (holds)
        return;
    std::cerr << "does not hold: " << claim << '\n';
    std::abort();
}

/// The next bytes of a script, 0 behind its end.
class Script {
public:
    explicit Script(std::string_view bytes)
        : bytes_(bytes)
    {
    }

    bool IsAtEnd() const { return bytes_.empty(); }
    std::size_t Next(std::size_t count)
    {
        if (bytes_.empty())
            return 0;
        const auto byte = static_cast<std::uint8_t>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte % count;
    }
    template <class T, std::size_t Size>
    T Choose(T (&rows)[Size])
    {
        return rows[Next(Size)];
    }

private:
    std::string_view bytes_;
};

NewValue ChooseValue(Script& script)
{
    switch (script.Next(4)) {
    case 0:
        return script.Next(2) == 0;
    case 1:
        return static_cast<int>(script.Next(256)) - 8;
    case 2:
        return static_cast<double>(script.Next(256)) / 8;
    default:
        return script.Choose(words);
    }
}

std::optional<DeckValue> ChooseValueOf(const Deck& deck, const DeckKeyword& keyword, Script& script)
{
    const std::vector<DeckValue> values = Resolve(deck, {keyword.GetName()});
    if (values.empty())
        return std::nullopt;
    return values[script.Next(values.size())];
}

void SetArray(DeckEditor& editor, const DeckKeyword& keyword, std::size_t size)
{
    const std::vector<double> values(size, 0.25);
    editor.SetArray(keyword, values.data(), values.size());
}

void Change(DeckEditor& editor, const Deck& deck, Script& script)
{
    const std::size_t kind = script.Next(9);
    const DeckKeyword keyword = deck[script.Next(deck.GetSize())];
    switch (kind) {
    case 0:
        if (const auto value = ChooseValueOf(deck, keyword, script))
            editor.SetValue(*value, ChooseValue(script));
        return;
    case 1:
        if (const auto value = ChooseValueOf(deck, keyword, script))
            editor.ClearValue(*value);
        return;
    case 2:
        return editor.AddRecord(
            keyword, std::string(script.Choose(words)) + " " + script.Choose(words) + " /");
    case 3:
        return editor.RemoveRecord(keyword, script.Next(4));
    case 4:
        return editor.AddKeywordAfter(keyword, script.Choose(texts));
    case 5:
        return editor.RemoveKeyword(keyword);
    case 6:
        return editor.AddKeywordAtEnd(script.Choose(sections), script.Choose(texts));
    case 7:
        return editor.AddKeywordInStep(script.Next(3), script.Choose(texts));
    default:
        return SetArray(editor, keyword, script.Next(20));
    }
}

/// All bytes of the deck, with the edits made to them.
std::string BytesOf(const Deck& deck, std::vector<TextEdit> edits = {})
{
    const SourceText& text = *deck.GetFiles().Get(0).text;
    return std::string(text.GetMark()) + ApplyEdits(text.GetText(), std::move(edits));
}

/// The changed text, which must be the one that was read with the edits made to it.
std::string TextOf(const DeckEditor& editor, const Deck& deck)
{
    std::string text = editor.GetText(0);
    Require(text == BytesOf(deck, editor.GetEdits()), "the changed text has the edits and nothing else");
    return text;
}

void RunScript(const Deck& deck, const DeckLanguage& language, Script script)
{
    DeckEditor editor(deck);
    std::string changed = TextOf(editor, deck);
    while (!script.IsAtEnd()) {
        try {
            Change(editor, deck, script);
            changed = TextOf(editor, deck);
        } catch (const Veld::Quor::Core::Service::Exception&) {
            Require(TextOf(editor, deck) == changed, "what is refused changes nothing");
        } catch (const std::out_of_range&) {
            Require(TextOf(editor, deck) == changed, "what is not there changes nothing");
        }
    }
    const Deck again = editor.Read(language);
    Require(BytesOf(again) == changed, "the changed deck is the changed text");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    testing::InitGoogleTest(argc, *argv);
    testing::GTEST_FLAG(break_on_failure) = true;
    Veld::Quor::Core::Service::Log::SetHandler(
        [](const char*, Veld::Quor::Core::Service::MessageSeverity) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const DeckLanguage language;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(bytes.find(separator), size);
    const std::string_view script = bytes.substr(std::min(end + 1, size));
    if (end > largestDeck || script.size() > largestScript)
        return -1;
    const auto source = std::make_shared<MemorySource>();
    source->Set("deck.data", std::string(bytes.substr(0, end)));
    const auto options = ReadOptions().SetEditable(true).SetSource(source).SetMaxRepeatedValues(1'000);
    const Deck deck = Deck::Read("deck.data", language, options);
    if (deck.GetSize() == 0)
        return 0;
    RunScript(deck, language, Script(script));
    if (script.empty() && deck.GetFindings().GetCount(Severity::Error) == 0)
        Veld::Quor::Tests::ExpectEachValueToBeChanged(deck, language, options);
    return 0;
}

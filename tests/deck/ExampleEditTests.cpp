#include "quor/data/Access.h"
#include "quor/deck/DeckEditor.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

using MDType = IKeywordDataMD::MDType;

const IKeywordData& ContainerAt(const IKeywordData& node, std::size_t index)
{
    if (node.GetMD()->GetType() == MDType::List)
        return *static_cast<const IKeywordData*>(static_cast<const IKeywordListData&>(node).GetData(index));
    return *static_cast<const IKeywordData*>(
        static_cast<const IKeywordRecordData&>(node).GetData(static_cast<int>(index)));
}

const IKeywordDataMD& MetadataOf(const ValuePlace& place)
{
    const IKeywordData* node = place.keyword.FindData();
    for (std::size_t i = 0; i + 1 < place.path.size(); ++i)
        node = &ContainerAt(*node, place.path[i]);
    if (node->GetMD()->GetType() == MDType::List)
        return *AsList(*node->GetMD()).GetItemMD();
    return *AsRecord(*node->GetMD()).GetItemMD(static_cast<int>(place.path.back()));
}

/// Another value than the one that stands there, and its text.
std::pair<NewValue, std::string> AnotherValue(const ValuePlace& place)
{
    const IKeywordDataMD& md = MetadataOf(place);
    switch (md.GetType()) {
    case MDType::Boolean:
        return place.text == "YES" ? std::pair(NewValue(false), "NO") : std::pair(NewValue(true), "YES");
    case MDType::Integer:
        return place.text == "2" ? std::pair(NewValue(3), "3") : std::pair(NewValue(2), "2");
    case MDType::Real:
        return place.text == "0.375" ? std::pair(NewValue(0.25), "0.25")
                                     : std::pair(NewValue(0.375), "0.375");
    case MDType::Choice: {
        const auto& choice = static_cast<const IKeywordChoiceMD&>(md);
        const std::string& word =
            choice.GetChoice(choice.GetChoice(0) == place.text ? choice.NumChoices() - 1 : 0);
        return {word, word};
    }
    default:
        break;
    }
    const std::string text = place.text == "'X' 2" ? "OIL" : "'X' 2";
    return {text, text};
}

const std::filesystem::path folder = std::filesystem::path(QUOR_SOURCE_DIR) / "examples" / "decks";

using Places = std::vector<ValuePlace>;

/// The values of each keyword of a deck, by its index.
std::map<std::size_t, Places> ValuesOf(const Deck& deck)
{
    std::set<std::string> names;
    for (const DeckKeyword keyword : deck)
        names.insert(keyword.GetName());
    std::map<std::size_t, Places> values;
    for (const std::string& name : names) {
        for (ValuePlace& place : Resolve(deck, {name}))
            values[place.keyword.GetIndex()].push_back(std::move(place));
    }
    return values;
}

bool IsWithin(const TextEdit& edit, const Places& places)
{
    return std::any_of(places.begin(), places.end(), [&](const ValuePlace& place) {
        return place.range->file == edit.range.file && place.range->offset == edit.range.offset
            && place.range->length == edit.range.length;
    });
}

/// Sets all these values of one keyword to others, and reads the deck again.
void ExpectToBeChanged(const Deck& deck, const DeckLanguage& language, const Places& places)
{
    DeckEditor editor(deck);
    std::vector<std::pair<ValuePath, std::string>> changed;
    for (const ValuePlace& place : places) {
        const auto [value, text] = AnotherValue(place);
        try {
            editor.SetValue(place, value);
            changed.emplace_back(place.path, text);
        } catch (const EditError& error) {
            EXPECT_EQ(place.range->length, 0U) << place.address.ToString() << ": " << error.what();
        }
    }
    for (const TextEdit& edit : editor.GetEdits())
        EXPECT_TRUE(IsWithin(edit, places)) << edit.text;
    const Deck again = editor.Read(language, ReadOptions().SetEditable(true));
    for (const auto& [path, text] : changed) {
        const ValuePlace place = PlaceOf(again, again[places.front().keyword.GetIndex()], path);
        EXPECT_EQ(place.text, text) << place.address.ToString();
    }
}

class ExampleDecks : public testing::TestWithParam<const char*> { };

TEST_P(ExampleDecks, TakeAnotherValueInPlaceOfEach)
{
    static const DeckLanguage language;
    const Deck deck =
        Deck::Read(folder / (std::string(GetParam()) + ".data"), language, ReadOptions().SetEditable(true));
    const auto values = ValuesOf(deck);
    EXPECT_GT(values.size(), 20U);
    for (const auto& [keyword, places] : values) {
        for (const ValuePlace& place : places) {
            ASSERT_TRUE(place.range) << place.address.ToString();
            ASSERT_TRUE(ValueAddress::Parse(place.address.ToString()) == place.address);
        }
        for (const std::size_t at : {std::size_t(0), places.size() / 2, places.size() - 1}) {
            EXPECT_EQ(ResolveOne(deck, places[at].address).path, places[at].path);
            ExpectToBeChanged(deck, language, {places[at]});
        }
        ExpectToBeChanged(deck, language, places);
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExampleDecks,
    testing::Values("first-comparative", "compositional", "steam-injection", "field/field"));

} // namespace

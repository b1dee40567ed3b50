#include "tests/deck/ValueChanges.h"

#include "quor/data/Access.h"
#include "quor/deck/DeckEditor.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tests {

using namespace Core::Keywords;
using namespace Core::Decks;

namespace {

using MDType = IKeywordDataMD::MDType;

const IKeywordData& ContainerAt(const IKeywordData& node, std::size_t index)
{
    if (node.GetMD()->GetType() == MDType::List)
        return *static_cast<const IKeywordData*>(static_cast<const IKeywordListData&>(node).GetData(index));
    return *static_cast<const IKeywordData*>(
        static_cast<const IKeywordRecordData&>(node).GetData(static_cast<int>(index)));
}

const IKeywordDataMD& MetadataOf(const DeckValue& place)
{
    const IKeywordData* node = place.keyword.FindData();
    for (std::size_t i = 0; i + 1 < place.path.size(); ++i)
        node = &ContainerAt(*node, place.path[i]);
    if (node->GetMD()->GetType() == MDType::List)
        return *AsList(*node->GetMD()).GetItemMD();
    return *AsRecord(*node->GetMD()).GetItemMD(static_cast<int>(place.path.back()));
}

/// Another value than the one that stands there, and its text.
std::pair<NewValue, std::string> AnotherValue(const DeckValue& place)
{
    const IKeywordDataMD& md = MetadataOf(place);
    switch (md.GetType()) {
    case MDType::Boolean: {
        const bool value = place.text != "YES";
        return {value, value ? "YES" : "NO"};
    }
    case MDType::Integer: {
        const int value = place.text == "2" ? 3 : 2;
        return {value, std::to_string(value)};
    }
    case MDType::Real: {
        const bool isTaken = place.text == "0.375";
        return {isTaken ? 0.25 : 0.375, isTaken ? "0.25" : "0.375"};
    }
    case MDType::Choice: {
        const auto& choice = static_cast<const IKeywordChoiceMD&>(md);
        const std::string& word =
            choice.GetChoice(choice.GetChoice(0) == place.text ? choice.NumChoices() - 1 : 0);
        return {word, word};
    }
    default:
        break;
    }
    static const std::string texts[] = {"'X' 2", "OIL", "/", "A/B", "//", "--", "X -- Y", "\"-\"", "3*",
        "2*A", "*", "GRID", "END", "ECHO", "A, B", ",", "\\", "$X", "A$B.C", "$", "", " ", " P", "P\t",
        "A\tB", "\v", "\v-- X", "\x1b\x7f", "\f/", "'\"", "A\nB", "A\r", "\xE2\x80\x98", "/ X", "1E5",
        std::string(300, 'X')};
    static std::size_t next = 0;
    std::string text = texts[next++ % std::size(texts)];
    return {text, text};
}

using Places = std::vector<DeckValue>;

/// The values of each keyword of a deck, by its index.
std::map<std::size_t, Places> ValuesOf(const Deck& deck)
{
    std::set<std::string> names;
    for (const DeckKeyword keyword : deck)
        names.insert(keyword.GetName());
    std::map<std::size_t, Places> values;
    for (const std::string& name : names) {
        for (DeckValue& place : Resolve(deck, {name}))
            values[place.keyword.GetIndex()].push_back(std::move(place));
    }
    return values;
}

bool IsWithin(const TextEdit& edit, const Places& places)
{
    return std::any_of(places.begin(), places.end(), [&](const DeckValue& place) {
        return place.range->file == edit.range.file && place.range->offset == edit.range.offset
            && place.range->length == edit.range.length;
    });
}

/// The texts of the keyword's values that are not among `changed`.
std::map<ValuePath, std::string> OthersIn(
    const Places& places, const std::map<ValuePath, std::string>& changed)
{
    std::map<ValuePath, std::string> others;
    for (const DeckValue& place : places) {
        if (changed.count(place.path) == 0)
            others[place.path] = place.text;
    }
    return others;
}

/// Sets values of one keyword, all of them in `all`, to others, and reads the deck again.
void ExpectToBeChanged(const Deck& deck, const DeckLanguage& language, const ReadOptions& options,
    const Places& places, const Places& all)
{
    DeckEditor editor(deck);
    std::map<ValuePath, std::string> changed;
    for (const DeckValue& place : places) {
        const auto [value, text] = AnotherValue(place);
        try {
            editor.SetValue(place, value);
            changed.emplace(place.path, text);
        } catch (const EditError& error) {
            const std::string reason = error.what();
            const bool isRefused = reason.find("variable") != std::string::npos
                || reason.find("can't write") != std::string::npos;
            EXPECT_TRUE(isRefused || place.range->length == 0)
                << place.address.ToString() << ": " << error.what();
        }
    }
    for (const TextEdit& edit : editor.GetEdits())
        EXPECT_TRUE(IsWithin(edit, places)) << edit.text;
    const Deck again = editor.Read(language, options);
    const DeckKeyword keyword = again[places.front().keyword.GetIndex()];
    SCOPED_TRACE("changed to: " + std::string(keyword.GetText()));
    std::map<ValuePath, std::string> expected = OthersIn(all, changed);
    expected.insert(changed.begin(), changed.end());
    for (const auto& [path, text] : expected)
        ASSERT_EQ(ResolvePath(again, keyword, path).text, text)
            << ResolvePath(deck, deck[keyword.GetIndex()], path).address.ToString();
}

} // namespace

std::size_t ExpectEachValueToBeChanged(
    const Deck& deck, const DeckLanguage& language, const ReadOptions& options)
{
    const auto values = ValuesOf(deck);
    for (const auto& [keyword, places] : values) {
        for (const DeckValue& place : places) {
            EXPECT_TRUE(place.range) << place.address.ToString();
            EXPECT_TRUE(ValueAddress::Parse(place.address.ToString()) == place.address);
        }
        for (const std::size_t at : {std::size_t(0), places.size() / 2, places.size() - 1}) {
            EXPECT_EQ(ResolveOne(deck, places[at].address).path, places[at].path);
            ExpectToBeChanged(deck, language, options, {places[at]}, places);
        }
        ExpectToBeChanged(deck, language, options, places, places);
        if (testing::Test::HasFailure())
            break;
    }
    return values.size();
}

} // namespace Veld::Quor::Tests

#include "quor/Deck.h"
#include "tests/data/DataText.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Documents.h"
#include "tests/support/FailingAllocation.h"

#include <fmt/format.h>

#include <functional>
#include <memory>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

// Every kind of data, and of what is worked out at its first use.
const std::string date = R"(
  <item name='DAY'><integer/></item> <item name='MONTH'><string/></item>
  <item name='YEAR'><integer/></item> <item name='TIME' optional='true'><string/></item>)";
const std::string keywords = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='SCHEDULE'/> <keyword name='METRIC'/>
<keyword name='INCLUDE'/> <keyword name='END'/> <keyword name='ENDINC'/> <keyword name='FLAG'/>
<keyword name='SKIP'/> <keyword name='SKIPCAR'/> <keyword name='SKIPDUN'/> <keyword name='ENDSKIP'/>
<keyword name='DIMENS'><validSections><section name='RUNSPEC'/></validSections><data><record termination='SLASH'>
  <item name='NX'><integer><min val='1'/><default type='specified' val='1'/></integer></item>
  <item name='NY'><integer><min val='1'/><default type='specified' val='1'/></integer></item>
</record></data></keyword>
<keyword name='PATHS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='ALIAS'><string/></item> <item name='PATH'><string/></item>
</record></list></data></keyword>
<keyword name='START'><data><record termination='SLASH'>)"
    + date + R"(</record></data></keyword>
<keyword name='DATES'><data><list><record termination='SLASH'>)"
    + date + R"(</record></list></data></keyword>
<keyword name='TSTEP'><data><list><real/></list></data></keyword>
<keyword name='TITLE'><data><record termination='EOL'><item name='T'><line/></item></record></data></keyword>
<keyword name='ARRAY'><cell property='POROSITY'/><data>
  <list size='NX*NY' termination='SLASH' itemsDefaultable='true'><real><min val='0'/><max val='100'/></real></list>
</data></keyword>
<keyword name='NAMES'><data><list><string/></list></data></keyword>
<keyword name='WCONPROD'><validSections><section name='SCHEDULE'/></validSections><data>
  <list termination='SLASH'><record termination='SLASH'>
  <item name='WELL' identifier='true'><string><lengthLimit>8</lengthLimit></string></item>
  <item name='STATUS' optional='true'><choice><values><value string='OPEN'/><value string='SHUT'>
    <aliases>
      <alias name='CLOSED'>
        <isHiddenAlias/>
      </alias>
    </aliases>
    <unsupportedBy>
      <simulator name='Carrow'/>
    </unsupportedBy></value><value string='STOPPED'>
    <validity>
      <simulator name='Dunmere'/>
    </validity></value></values><default type='specified' val='OPEN'/></choice></item>
  <item name='RATE' optional='true'><real><min val='0'/><default type='specified' val='2.5'/></real><unsupportedBy>
    <simulator name='Carrow'/>
  </unsupportedBy></item>
  <item name='ON' optional='true'><boolean/></item>
  <item name='COUNT' optional='true'><integer><max val='9'/></integer></item>
</record></list></data></keyword>
<keyword name='WELSPECS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='WELL'><string/></item> <item name='GROUP'><string/></item>
</record></list></data></keyword>
<keyword name='TABLES'><data><list size='2' termination='NONE'><list minSize='2' maxSize='4' termination='SLASH'>
  <record termination='NONE'>
    <item name='X' columnConstraint='strictly_increasing'><real/></item>
    <item name='Y'><real><default type='calculated'/></real></item>
  </record></list></list></data></keyword>
<keyword name='MAP'><data><map>
  <assignment name='A'><integer><min val='1'/><max val='5'/></integer></assignment>
  <assignment name='BETA'><integer/></assignment></map></data></keyword>
<keyword name='LINES'><data><list><line/><customReadTermination><stringTermination>/</stringTermination>
  </customReadTermination></list></data></keyword>
<keyword name='RAW'><data><raw stringTermination='ENDRAW'/></data></keyword>
<keyword name='OTHER'/>
<keyword name='NEEDS'><precedents><precedent name='FLAG'/></precedents></keyword>
<keyword name='NEEDSALL'><precedents><precedent name='NEEDS'/><precedent name='OTHER'/></precedents></keyword>
<keyword name='OPEN'><scope><endKeyword name='SHUT' explicit='true'/><endKeyword name='SHUTALL'/></scope></keyword>
<keyword name='SHUT'/> <keyword name='SHUTALL'/>
)";

constexpr const char* text = R"(RUNSPEC -- a comment that is too long to be stored in place
TITLE
 A field with a name that is too long to be stored in place
METRIC
DIMENS
 2 2 /
START
 1 JAN 2020 12:30:15.5 /
PATHS
 'PARTS' 'a/folder/with/a/long/name' /
/
GRID
INCLUDE
 '$PARTS/array.inc' /
INCLUDE
 'a/missing/file/with/a/long/name.inc' /
INCLUDE
 '$NOPATH/file.inc' /
ARRAI
 1 2 3 4 5 6 7 /
metric
NEEDSALL
TABLES
 1 2
 3 4 /
 5 1*
 4 4 /
SKIPDUN
 a block that is not read, with more than sixteen letters
ENDSKIP
ENDSKIP
SCHEDULE
DATES
 1 FEB 2020 /
 31 FEB 2020 /
 1 MAR 2020 '25:00:00' /
 15 JAN 2020 /
 1 MAR 2020 06:00:00.25 /
/
WELSPECS
 P1 'A group with a long name' /
/
OPEN
WCONPROD
 'A well with a long name' SHUT $RATE_OF_THE_FIRST_WELL YES 3 / a remark
 P2 CLOSED -1 MAYBE 10 /
 P3 ST 2.5 NO /
 P4 NEITHER_OPEN_NOR_SHUT 2.5 /
 '$WELL_WITHOUT_A_VALUE' OPEN twelve 1* 1.5 1 2 3 /
 P5 'OPEN /
/
MAP
 A=7 BETA=$RATE_OF_THE_FIRST_WELL GAMMA=3 /
LINES
 A line that is too long to be stored in place
/
RAW
 A raw text that is too long to be stored in place
ENDRAW
NAMES
 3*'A name that is too long to be stored in place' 0*X /
TSTEP
 2*1 -400 /
SHUT
SHUT
WCONPROD
 P1 OPEN 1 / -- quor: off out-of-range, no-such-code-at-all
 P2 OPEN -1 / -- quor: off out-of-range
/
DIMENS
 1 1 /
Here is a text where a keyword is expected
OPEN
)";

ReadOptions Options()
{
    const auto source = std::make_shared<MemorySource>();
    source->Set(
        "a/folder/with/a/long/name/array.inc", "ARRAY\n 3*0.25 400 -- a comment of the included file\n/\n");
    return ReadOptions()
        .SetSource(source)
        .SetSimulator(SimulatorType::Carrow)
        .SetVariable("RATE_OF_THE_FIRST_WELL", "3")
        .SetEditable(true);
}

std::string Show(const Deck& deck)
{
    std::string dump = Dump(deck.GetFindings(), "none");
    for (std::size_t i = 0; i < deck.GetSize(); ++i) {
        const DeckKeyword keyword = deck[i];
        dump += fmt::format("\n{} {} ", keyword.GetName(), keyword.IsSound());
        if (keyword.FindData())
            dump += Dump(keyword.GetData());
    }
    for (const ReportStep& step : deck.GetSteps())
        dump += '\n' + DateText(step.time);
    return dump;
}

std::string Show(const DeckSummary& summary)
{
    std::string dump = summary.title + "|" + summary.units + "|" + DateText(summary.end);
    for (const auto& file : summary.files)
        dump += fmt::format("\n{} {} {}", file.name, file.bytes, file.keywords);
    for (const auto& section : summary.sections)
        dump += fmt::format("\n{} {}", section.location.line, section.keywords);
    for (const auto& well : summary.wells)
        dump += fmt::format("\n{} {} {}", well.name, well.group, well.control);
    for (const auto& property : summary.properties)
        dump += fmt::format("\n{} {} {}", property.keyword, property.property, property.count);
    for (const auto& variable : summary.variables)
        dump += fmt::format("\n{} {}", variable.name, variable.uses.size());
    return dump;
}

std::string Show(const Difference& difference)
{
    std::string dump;
    for (const ChangeGroup& group : difference.groups) {
        dump += '\n' + group.step;
        for (const Change& change : group.changes)
            dump += fmt::format("\n  {} {} {} {} {}", change.keyword, change.identity, change.item.item,
                change.item.before, change.item.after);
    }
    return dump;
}

std::string Show(const std::vector<Loss>& losses)
{
    std::string dump;
    for (const Loss& loss : losses)
        dump += fmt::format("\n{} {} {} {} {}", static_cast<int>(loss.kind), loss.keyword, loss.item,
            loss.detail, loss.locations.size());
    return dump;
}

/// Each of the first allocations, and then fewer and fewer.
long Next(long number)
{
    return number < 1500 ? number + 1 : number + 7 + number / 50;
}

class DeckAllocation : public testing::Test {
protected:
    Deck Read(std::string deck = text) const { return Deck::ReadText(std::move(deck), language_, options_); }

    LoadedTable table_{keywords};
    DeckLanguage language_;
    ReadOptions options_ = Options();
};

/// `act` gives an object of which there is a `Show`: the same after each failure as without one.
template <class Action>
int FailEachOf(Action act)
{
    const std::string expected = Show(act());
    EXPECT_GT(expected.size(), 20U);
    return FailAllocations([&] { act(); }, [&] { EXPECT_EQ(Show(act()), expected); }, &Next);
}

} // namespace

TEST_F(DeckAllocation, OfAReadFailsAsAWhole)
{
    const Deck deck = Read();
    EXPECT_GT(deck.GetFindings().GetKept().size(), 25U) << "of many kinds";
    EXPECT_GT(FailEachOf([this] { return Read(); }), 400);
}

TEST_F(DeckAllocation, OfAnalysesFailsAsAWhole)
{
    const Deck deck = Read();
    std::string changed = text;
    changed.replace(changed.find("P3 ST"), 5, "P6 SHUT").replace(changed.find("3*'A"), 4, "3*'B");
    const Deck other = Read(changed);
    EXPECT_GT(FailEachOf([&] { return Summarize(deck); }), 20);
    EXPECT_GT(FailEachOf([&] { return Compare(deck, other); }), 100);
    const auto options = PortOptions().SetTo({SimulatorType::Carrow}).SetLocations(true);
    EXPECT_GT(FailEachOf([&] { return FindLosses(deck, options); }), 30);
}

TEST_F(DeckAllocation, OfTextsFailsAsAWhole)
{
    const Deck deck = Read();
    const std::string expected = DeckFormatter(deck).FormatAll();
    EXPECT_NE(expected, text);
    const int failures = FailAllocations([&] { DeckFormatter(deck).FormatAll(); },
        [&] { EXPECT_EQ(DeckFormatter(deck).FormatAll(), expected); }, &Next);
    EXPECT_GT(failures, 100);
    const Findings& findings = deck.GetFindings();
    const std::string dump = Dump(findings, "none");
    Findings copy = Deck::ReadText("RUNSPEC\n", language_).GetFindings();
    const auto copyTwice = [&] { copy = *std::make_unique<const Findings>(findings); };
    EXPECT_GT(FailEachAllocation(copyTwice,
                  [&] {
                      EXPECT_EQ(Dump(copy, "none"), "") << "as it was";
                      EXPECT_TRUE(copy.IsClean());
                      EXPECT_EQ(Dump(findings, "none"), dump);
                  }),
        100);
    EXPECT_EQ(Dump(copy, "none"), dump);
}

TEST_F(DeckAllocation, OfOptionsFailsAsAWhole)
{
    const auto before = options_.GetVariables();
    const std::string name = "A_VARIABLE_WITH_A_LONG_NAME";
    const std::string value = "a value that is too long to be stored in place";
    EXPECT_GT(FailEachAllocation([&] { options_.SetVariable(name, value); },
                  [&] { EXPECT_EQ(options_.GetVariables(), before); }),
        3);
    EXPECT_EQ(options_.GetVariables().at('$' + name), value);
}

TEST_F(DeckAllocation, OfALanguageFailsAsAWhole)
{
    const std::string deck = Show(Read());
    EXPECT_GT(FailAllocations([this] { DeckLanguage language(*table_.operator->()); },
                  [&] { EXPECT_EQ(Show(Deck::ReadText(text, language_, options_)), deck); }, &Next),
        50);
}

namespace {

/// Asks an object for the first time, with each allocation of that failing in turn, and then once more. The
/// object is a new one each time.
template <class Object, class Action, class Check>
void FailFirstOf(Action act, Check check)
{
    for (long number = 0;; ++number) {
        Object object;
        bool hasThrown = false;
        Allocations::FailAfter(number);
        try {
            act(object);
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        const bool hasFailed = Allocations::HasFailed();
        Allocations::FailAfter(-1);
        EXPECT_EQ(hasThrown, hasFailed);
        check(object);
        if (!hasFailed || testing::Test::HasFailure())
            return;
    }
}

struct NewLanguage {
    LoadedTable table{keywords};
    DeckLanguage language;

    Deck Read(const char* deck) const { return Deck::ReadText(deck, language); }
};

struct NewDeck {
    static inline const NewLanguage* language = nullptr;
    Deck deck = language->Read("RUNSPEC\nFLAG\nGRID\nFLAG\nFLAG\n");
};

} // namespace

// What a language or deck works out when it is first asked is never kept by halves.
TEST(FirstAllocation, OfALanguageFailsAsAWhole)
{
    constexpr const char* deck = "RUNSPEC\nNEEDSALL\nOPEN\nSHUT\nSHUT\nNEEDSALL\nOPEN\nGRID\n";
    const std::string expected = Show(NewLanguage().Read(deck));
    EXPECT_NE(expected.find("[missing-precedent]"), std::string::npos);
    FailFirstOf<NewLanguage>([&](const NewLanguage& language) { language.Read(deck); },
        [&](const NewLanguage& language) { EXPECT_EQ(Show(language.Read(deck)), expected); });
    FailFirstOf<NewLanguage>(
        [](const NewLanguage& language) { language.table.Get("OPEN").GetScopeKeywords(); },
        [](const NewLanguage& language) {
            EXPECT_EQ(language.table.Get("OPEN").GetScopeKeywords().size(), 2U);
        });
}

TEST(FirstAllocation, OfADeckFailsAsAWhole)
{
    const NewLanguage language;
    NewDeck::language = &language;
    FailFirstOf<NewDeck>([](const NewDeck& object) { object.deck.GetAll("FLAG"); },
        [](const NewDeck& object) {
            EXPECT_EQ(object.deck.GetAll("FLAG").size(), 3U);
            EXPECT_EQ(object.deck.Get("FLAG").GetIndex(), 4U);
        });
    const auto misspelt = [](const NewDeck& object) -> std::string {
        try {
            object.deck.Get("FLAC");
        } catch (const KeywordNotFound& error) {
            return error.what();
        }
        return "found";
    };
    FailFirstOf<NewDeck>(misspelt, [&](const NewDeck& object) {
        EXPECT_EQ(misspelt(object), "the deck has no keyword 'FLAC'; did you mean FLAG?");
    });
}

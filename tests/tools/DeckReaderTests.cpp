#include "quor/deck/internal/read/Deck.h"

#include "quor/deck/internal/write/ValueEdit.h"
#include "tests/data/DataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
namespace Decks = Veld::Quor::Core::Decks;

namespace {

// Every kind of data that a deck's text can hold.
const std::string dataLanguage = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='SCHEDULE'/> <keyword name='FLAG'/>
<keyword name='INCLUDE'/> <keyword name='END'/> <keyword name='ENDINC'/>
<keyword name='SKIP'/> <keyword name='SKIPCAR'/> <keyword name='SKIPDUN'/> <keyword name='ENDSKIP'/>
<keyword name='DIMENS'><validSections><section name='RUNSPEC'/></validSections><data><record termination='SLASH'>
  <item name='NX'><integer><min val='1'/><default type='specified' val='1'/></integer></item>
  <item name='NY'><integer><min val='1'/><default type='specified' val='1'/></integer></item>
</record></data></keyword>
<keyword name='BOX'><data><record termination='SLASH'>
  <item name='I1' optional='true'><integer/></item> <item name='I2' optional='true'><integer/></item>
  <item name='J1' optional='true'><integer/></item> <item name='J2' optional='true'><integer/></item>
  <item name='K1' optional='true'><integer/></item> <item name='K2' optional='true'><integer/></item>
</record></data></keyword>
<keyword name='ENDBOX'/>
<keyword name='ARRAY'><data><list size='NX*NY' termination='SLASH' itemsDefaultable='true'>
  <real><min val='0'/><max val='100'/></real></list></data></keyword>
<keyword name='WHOLE'><data><list><integer><min val='0'/></integer></list></data></keyword>
<keyword name='PREVIOUS'><data>
  <list itemsDefaultable='true' fillEmptyElementsWithPreviousValue='true'><integer/></list></data></keyword>
<keyword name='FIXED'><data><list size='3' termination='NONE'><real/></list></data></keyword>
<keyword name='NAMES'><data><list><string/></list></data></keyword>
<keyword name='RECORD'><data><record termination='SLASH'>
  <item name='NAME'><string><lengthLimit>4</lengthLimit></string></item>
  <item name='RATE' optional='true'><real><min val='0'/><default type='specified' val='2.5'/></real></item>
  <item name='KIND' optional='true'><choice><values><value string='OIL'/><value string='WATER'>
    <aliases>
      <alias name='AQUA'>
        <isHiddenAlias/>
      </alias>
    </aliases></value><value string='GAS'>
    <validity>
      <simulator name='Dunmere'/>
    </validity></value></values><default type='no default'/></choice></item>
  <item name='ON' optional='true'><boolean/></item>
  <item name='COUNT'><integer><max val='9'/></integer></item>
</record></data></keyword>
<keyword name='ROWS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='A'><integer/></item> <item name='B' optional='true'><integer/></item>
</record></list></data></keyword>
<keyword name='TABLES'><data><list size='2' termination='NONE'><list minSize='2' termination='SLASH'>
  <record termination='NONE'>
    <item name='X' columnConstraint='strictly_increasing'><real/></item>
    <item name='Y' columnConstraint='decreasing'><real><default type='calculated'/></real></item>
  </record></list></list></data></keyword>
<keyword name='NESTED'><data><list termination='SLASH'><record termination='NONE'>
  <item name='HEAD'><real/></item>
  <item name='ROWS'><list termination='SLASH'><record termination='NONE'><item name='V'><real/></item></record></list></item>
</record></list></data></keyword>
<keyword name='COUNTED'><data><record termination='SLASH'>
  <item name='N'><integer/></item> <item name='VALUES'><list size='N' termination='NONE'><integer/></list></item>
</record></data></keyword>
<keyword name='SIZED'><data><record termination='SLASH'>
  <item name='N'><integer/></item> <item name='VALUES'><list termination='SLASH'>
    <list size='N' termination='NONE'><integer/></list></list></item>
</record></data></keyword>
<keyword name='ORDERED'><data><list><record termination='SLASH'>
  <item name='S' columnConstraint='increasing'><string/></item></record></list></data></keyword>
<keyword name='DATES'><data><list><record termination='SLASH'>
  <item name='D'><integer/></item></record></list></data></keyword>
<keyword name='MAP'><data><map>
  <assignment name='A'><integer><max val='5'/></integer><validity>
    <simulator name='Carrow'/>
  </validity></assignment>
  <assignment name='B'><integer/><validity>
    <simulator name='Dunmere'/>
  </validity></assignment></map></data></keyword>
<keyword name='TITLE'><data><record termination='EOL'><item name='T'><line/></item></record></data></keyword>
<keyword name='LINES'><data><list><line/><customReadTermination><stringTermination>/</stringTermination>
  </customReadTermination></list></data></keyword>
<keyword name='RAW'><data><raw stringTermination='ENDRAW'/></data></keyword>
<keyword name='NEEDS'><precedents><precedent name='FLAG'/></precedents></keyword>
<keyword name='OPEN'><scope><endKeyword name='SHUT' explicit='true'/></scope></keyword> <keyword name='SHUT'/>
)";

struct Reading {
    const char* name;
    std::string deck; ///< behind RUNSPEC
    const char* data; ///< of the last keyword; null: don't look
    const char* findings = ""; ///< "code:line:column"; the deck begins in line 2
    SimulatorType::Enum simulator = SimulatorType::Any;
};

std::string Dump(const Decks::Findings& findings)
{
    std::string text;
    for (const Decks::Finding& finding : findings.GetKept())
        text += (text.empty() ? "" : " ") + finding.code + ":" + std::to_string(finding.location.line) + ":"
            + std::to_string(finding.location.column);
    return text;
}

/// Has the language for the tests of one suite.
class Language : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        table_ = std::make_unique<LoadedTable>(dataLanguage);
        vocabulary_ = std::make_unique<Decks::Vocabulary>(*table_->operator->());
    }
    static void TearDownTestSuite()
    {
        vocabulary_.reset();
        table_.reset();
    }

    static std::unique_ptr<Decks::Deck> Read(const std::string& text, SimulatorType::Enum simulator)
    {
        const TemporaryDirectory folder;
        Decks::ReadOptions options;
        options.target.simulator = simulator;
        return Decks::ReadDeck(folder.Write("d.data", "RUNSPEC\n" + text), options, *vocabulary_);
    }

    static inline std::unique_ptr<LoadedTable> table_;
    static inline std::unique_ptr<Decks::Vocabulary> vocabulary_;
};

class Readings : public Language, public testing::WithParamInterface<Reading> { };

TEST_P(Readings, GiveDataAndFindings)
{
    const auto deck = Read(GetParam().deck, GetParam().simulator);
    EXPECT_EQ(Dump(deck->findings), GetParam().findings);
    if (GetParam().data) {
        EXPECT_EQ(Veld::Quor::Tests::Dump(*deck->keywords.back().data), GetParam().data);
    }
}

INSTANTIATE_TEST_SUITE_P(Arrays, Readings,
    testing::Values(Reading{"Plain", "DIMENS\n 2 2 /\nARRAY\n 1 +2.5, 3D1 4e-1/\n", "[1 2.5 30 0.4]"},
        Reading{
            "Repeats", "DIMENS\n 2 3 /\nARRAY\n 2*1 3*\n  2*\n/\n", "[1 1 0~ 0~ 0~ 0~]", "wrong-size:6:3"},
        Reading{"LoneAsterisk", "DIMENS\n 2 1 /\nARRAY\n * 1 /\n", "[0~ 1]"},
        Reading{"Surplus", "DIMENS\n 1 2 /\nARRAY\n 1 2\n 3 4*5 /\n", "[1 2]", "wrong-size:6:2"},
        // The error in the sizes is not told, and still leaves them as they were.
        Reading{
            "SilencedSizes", "DIMENS\n 3 1 /\nDIMENS\n 2 x / -- quor: off\nARRAY\n 1 2 3 /\n", nullptr, ""},
        Reading{"Short", "DIMENS\n 1 2 /\nARRAY\n 1 /\n", "[1]", "wrong-size:5:4"},
        Reading{"DefaultDimensions", "ARRAY\n 1 /\n", "[1]"},
        Reading{"InABox",
            "DIMENS\n 4 4 /\nBOX\n 2 3 2* 1 1 /\nARRAY\n 8*1 /\nENDBOX\nARRAY\n 16*1 /\nGRID\nFLAG\n",
            nullptr},
        Reading{"OneMessageForManyBeyond", "DIMENS\n 5 1 /\nARRAY\n 1 101 3 -1 2*200 /\n", nullptr,
            "out-of-range:5:4 wrong-size:5:13"},
        Reading{"WrongWord", "DIMENS\n 2 1 /\nARRAY\n 1 x 2 /\n", "[1 2]", "wrong-type:5:4"},
        Reading{"NumberWithATail", "DIMENS\n 2 1 /\nARRAY\n 1.0.0 2 3 /\n", "[2 3]", "wrong-type:5:2"},
        Reading{"InfinityIsNoNumber", "DIMENS\n 1 1 /\nARRAY\n inf 1e999 nan 7 /\n", "[7]",
            "wrong-type:5:2 wrong-type:5:6 wrong-type:5:12"},
        Reading{"Comments", "DIMENS\n 2 1 /\nARRAY -- c\n-- FLAG\n 1--c\n 2 / text\n", "[1 2]"},
        Reading{"OnTheLineOfItsKeyword", "DIMENS 2 1 /\nARRAY 1 2 /\n", "[1 2]"},
        Reading{"WholeNumbers", "WHOLE\n 1 2*3 1.5 -1 99999999999 /\n", "[1 3 3 -1]",
            "wrong-type:3:8 wrong-type:3:15 out-of-range:3:12"},
        Reading{"PreviousValueFills", "PREVIOUS\n 4 2* 7 1* /\n", "[4 4~ 4~ 7 7~]"},
        Reading{"EndsByItself", "FIXED\n 1 2 3\nFLAG\n", nullptr},
        Reading{"SlashDoesNoHarm", "FIXED\n 3*1 /\n", "[1 1 1]"},
        Reading{"BadRepeat", "WHOLE\n 0*1 2 99999999999*3 /\n", "[1 2 3]", "bad-repeat:3:2 bad-repeat:3:8"},
        Reading{"RepeatsBeyondAllSense", "NAMES\n 1000001*A B /\n", "['A' 'B']", "bad-repeat:3:2"},
        Reading{"RepeatedNamesOfAMap", "MAP\n 3*A /\n", "{A=1 B=-}", "bad-repeat:3:2"},
        Reading{"Names", "NAMES\n A 'B C' 2*D \"E/\" 2*'F G' O'K /\n",
            "['A' 'B C' 'D' 'D' 'E/' 'F G' 'F G' 'O'K']"},
        Reading{"OpenQuote", "NAMES\n 'A\n B /\n", "['A' 'B']", "unclosed-quote:3:2"},
        Reading{"KeywordWithASlashIsAName", "NAMES\nFLAG /\n", "['FLAG']"},
        Reading{"KeywordEndsOpenData", "NAMES\n A\nFLAG\n", nullptr, "unclosed-data:3:3"},
        Reading{"EndOfDeckEndsOpenData", "ROWS\n 1 2\n", nullptr, "unclosed-data:3:5"}),
    CaseName<Reading>);

INSTANTIATE_TEST_SUITE_P(Records, Readings,
    testing::Values(Reading{"All", "RECORD\n P1 7.5 GAS YES 3 /\n", "('P1' 7.5 2 1 3)"},
        Reading{"Defaults", "RECORD\n P1 3* 3 /\n", "('P1' - - - 3)"},
        Reading{"TooFew", "RECORD\n P1 2 /\n", "('P1' 2 - - -)", "too-few-values:3:7"},
        Reading{"TooMany", "RECORD\n P1 1 OIL NO 3 4 5 /\nFLAG\n", nullptr, "too-many-values:3:16"},
        Reading{"NoDefault", "RECORD\n 1* 1 OIL NO 3 /\n", "(- 1 0 0 3)", "no-default:3:2"},
        Reading{"WrongTypes", "RECORD\n P1 x OIL 7 1.0 /\n", "('P1' - 0 - -)",
            "wrong-type:3:5 wrong-type:3:11 wrong-type:3:13"},
        Reading{"Limits", "RECORD\n P1 -1 OIL NO 10 /\n", "('P1' -1 0 0 10)",
            "out-of-range:3:5 out-of-range:3:15"},
        Reading{"LongText", "RECORD\n PROD1 1 OIL NO 1 /\n", nullptr, "long-text:3:2"},
        Reading{"Abbreviation", "RECORD\n P 1 wat NO 1 /\n", "('P' 1 1 0 1)", "abbreviated-word:3:6"},
        Reading{"Deprecated", "RECORD\n P 1 AQUA NO 1 /\n", "('P' 1 1 0 1)", "deprecated-word:3:6"},
        Reading{"NoChoice", "RECORD\n P 1 OLI NO 1 /\n", "('P' 1 - 0 1)", "not-a-choice:3:6"},
        Reading{"ChoiceOfAnother", "RECORD\n P 1 GAS NO 1 /\n", nullptr, "choice-not-valid:3:6",
            SimulatorType::Carrow},
        Reading{"ListOfThem", "ROWS\n 1 2 /\n 3 /\n 2*4 /\n/\n", "[(1 2) (3 -) (4 4)]"},
        Reading{"RecordWithoutASlash", "ROWS\n 1 2\n 3 4 /\n/\n", "[(1 2) (3 4)]", "unclosed-data:3:5"},
        Reading{"LastRecordWithoutASlash", "ROWS\n 1 2 /\n 3 4\n/\nFLAG\n", nullptr, "unclosed-data:4:5"},
        Reading{"RecordOnTwoLines", "ROWS\n 1\n 2 /\n 3\n 4 5 /\n/\n", "[(1 2) (3 -) (4 5)]",
            "unclosed-data:5:3"},
        Reading{"Backslash", "ROWS\n 1 2 \\\n 3 4 /\n/\n", "[(1 2) (3 4)]", "stray-text:3:6"},
        Reading{"RepeatedWrongWord", "ROWS\n 2*x /\n/\n", "[(- -)]", "wrong-type:3:2"},
        Reading{"MissingValue", "RECORD\n P1 OIL YES 3 /\n", "('P1' - - - -)", "wrong-type:3:5"},
        Reading{"ValueTooMany", "RECORD\n P1 1 1 OIL YES 3 /\n", "('P1' 1 - - -)", "not-a-choice:3:7"},
        Reading{"OpenQuoteInARecord", "RECORD\n 'P1 1 OIL NO 3 /\n", "('P1' 1 0 0 3)", "unclosed-quote:3:2"},
        Reading{
            "QuoteThatWasNotOpened", "RECORD\n P*' 1 OIL NO 3 /\n", "('P*' 1 0 0 3)", "unclosed-quote:3:2"},
        Reading{"OpenQuoteOfSeveralWords", "RECORD\n 'P of Q 1 OIL NO 3 /\nFLAG\n", nullptr,
            "unclosed-quote:3:2"},
        Reading{"EmptyList", "ROWS\n/\n", "[]"},
        Reading{
            "ElementsOfNoSize", "SIZED\n 0 1 2 /\nFLAG\n", nullptr, "too-many-values:3:4 unclosed-data:3:9"},
        Reading{"TextsHaveNoOrder", "ORDERED\n B /\n A /\n/\n", "[('B') ('A')]"},
        Reading{"DatesOfAnotherForm", "DATES\n 1 /\n/\n", "[(1)]"},
        Reading{"CountedByAnItem", "COUNTED\n 2 5 6 /\n", "(2 [5 6])"}),
    CaseName<Reading>);

INSTANTIATE_TEST_SUITE_P(Tables, Readings,
    testing::Values(
        Reading{"Two", "TABLES\n 1 4\n 2 3 /\n 1 9 2 8 3 7 /\n", "[[(1 4) (2 3)] [(1 9) (2 8) (3 7)]]"},
        Reading{"CutRow", "TABLES\n 1 4 2 / 1 4 2 4 /\n", nullptr, "wrong-size:3:9"},
        Reading{"EmptyStandsForTheOneBefore", "TABLES\n 1 4 2 3 /\n /\n", "[[(1 4) (2 3)] []]"},
        Reading{"OneIsMissing", "TABLES\n 1 4 2 3 /\nFLAG\n", nullptr, "wrong-size:3:11"},
        Reading{"TooFewRows", "TABLES\n 1 4 /\n 1 4 2 3 /\n", nullptr, "wrong-size:3:6"},
        Reading{"ColumnsToldOnce", "TABLES\n 1 4\n 2 5\n 3 6\n 0 7 /\n 1 4 2 3 /\n", nullptr,
            "column-order:4:4 column-order:6:2"},
        Reading{"RowCutShort", "TABLES\n 1 9\n 2\n 3 7\n 4 6 /\n 1 4 2 3 /\n", nullptr, "column-order:6:2"},
        Reading{"NoSlashBetween", "TABLES\n 1 4\n 2 3\n 1 9\n 2 8 /\n", nullptr, "column-order:5:2"},
        Reading{"Nested", "NESTED\n 1 2 3 /\n 4 5 /\n/\n", "[(1 [(2) (3)]) (4 [(5)])]"}),
    CaseName<Reading>);

INSTANTIATE_TEST_SUITE_P(Texts, Readings,
    testing::Values(Reading{"Map", "MAP\n A=3 B = 2 /\n", "{A=3 B=2}"},
        Reading{"NameAlone", "MAP\n b A= 4/\n", "{A=4 B=1}"},
        Reading{"UnknownName", "MAP\n A C=1 /\n", "{A=1 B=-}", "unknown-name:3:4"},
        Reading{"NoNumber", "MAP\n A=x B /\n", "{A=- B=1}", "wrong-type:3:2"},
        Reading{"MapLimits", "MAP\n A=6 /\n", nullptr, "out-of-range:3:2"},
        Reading{"NameOfAnother", "MAP\n B /\n", nullptr, "item-not-valid:3:2", SimulatorType::Carrow},
        Reading{"Title", "TITLE\n  A title / of it -- all  \nFLAG\nTITLE\nFLAG\n", "('FLAG')"},
        Reading{"Lines", "LINES\nDEFINE A 1/2 /\n-- c\n\n B\n/\n", "['DEFINE A 1/2 /' 'B']"},
        Reading{"Raw", "RAW\n a / 'b\nFLAG\nendraw\n", "\" a / 'b\nFLAG\n\""},
        Reading{"RawWithoutEnd", "RAW\n a\n", nullptr, "unclosed-text:2:1"}),
    CaseName<Reading>);

INSTANTIATE_TEST_SUITE_P(Order, Readings,
    testing::Values(Reading{"Precedent", "NEEDS\nFLAG\nNEEDS\n", nullptr, "missing-precedent:2:1"},
        Reading{"PrecedentIsToldOnce", "NEEDS\nNEEDS\n", nullptr, "missing-precedent:2:1"},
        Reading{"IndentedKeywordIsRead", "  DIMENS\n 2 1 /\nARRAY\n 1 2 /\n", "[1 2]", "stray-text:2:3"},
        Reading{"MisspeltKeywordIsRead", "DIMNES\n 2 x /\nARRAY\n 1 2 /\n", "[1 2]", "unknown-keyword:2:1"},
        Reading{
            "SizesWithAnErrorAreNotKnown", "DIMENS\n x 2 /\nARRAY\n 1 2 3 /\n", "[1 2 3]", "wrong-type:3:2"},
        Reading{"Scope", "OPEN\nSHUT\nSHUT\nOPEN\nGRID\nOPEN\n", nullptr,
            "stray-end:4:1 unclosed-scope:5:1 unclosed-scope:7:1"},
        Reading{"DataBehindAFlag", "FLAG 1\n 2\nFLAG /\nFLAG\n/\n", nullptr, "stray-text:2:6"},
        Reading{"StrayBehindData", "WHOLE\n 1 /\n 2 /\n 3 /\nFLAG\n", nullptr, "stray-text:4:2"}),
    CaseName<Reading>);

TEST_F(Readings, KeepWhereThingsStand)
{
    const auto deck = Read("FLAG\n-- wells\nROWS  -- two\n 1 /\n  2 / last\n/ end\n", SimulatorType::Any);
    const Decks::DeckKeyword& rows = deck->keywords.back();
    EXPECT_EQ(deck->files.GetText(rows.name), "ROWS");
    EXPECT_EQ(deck->files.GetText(rows.whole), "ROWS  -- two\n 1 /\n  2 / last\n/");
    ASSERT_EQ(rows.records.size(), 2U);
    EXPECT_EQ(deck->files.LocationOf({0, rows.records[1].offset, 0}).line, 6U);
    EXPECT_EQ(deck->files.LocationOf({0, rows.records[1].offset, 0}).column, 3U);
}

struct EditRow {
    const char* name;
    const char* keyword; ///< with its data
    std::size_t slot;
    const char* word;
    const char* changed; ///< empty: it can't be done
};

class Edits : public Language, public testing::WithParamInterface<EditRow> { };

TEST_P(Edits, TouchNothingElse)
{
    const EditRow& row = GetParam();
    const auto read = [](const std::string& text) {
        const TemporaryDirectory folder;
        Decks::ReadOptions options;
        options.keepsValueRanges = true;
        return Decks::ReadDeck(folder.Write("d.data", text), options, *vocabulary_);
    };
    const std::string before = "RUNSPEC\n";
    const auto deck = read(before + row.keyword);
    const auto edit = Decks::EditValue(deck->keywords.back(), deck->files, row.slot, row.word);
    EXPECT_EQ(edit ? Decks::Apply(*edit, deck->files) : "", *row.changed ? before + row.changed : "");
    if (!edit)
        return;
    const auto again = read(Decks::Apply(*edit, deck->files));
    EXPECT_EQ(Dump(again->findings), Dump(deck->findings));
    const Decks::TextRange& range = again->keywords.back().notes->values[row.slot];
    EXPECT_EQ(again->files.GetText(range), row.word);
}

INSTANTIATE_TEST_SUITE_P(Values, Edits,
    testing::Values(
        EditRow{"Plain", "ROWS\n 1 2 / -- c\n 3  4 /\n/\n", 2, "7", "ROWS\n 1 2 / -- c\n 7  4 /\n/\n"},
        EditRow{"FirstOfARepeat", "WHOLE\n 1 4*2 3 /\n", 1, "9", "WHOLE\n 1 9 3*2 3 /\n"},
        EditRow{"WithinARepeat", "WHOLE\n 1 4*2 3 /\n", 2, "9", "WHOLE\n 1 2 9 2*2 3 /\n"},
        EditRow{"RepeatedText", "NAMES\n 3*'A B' /\n", 2, "C", "NAMES\n 2*'A B' C /\n"},
        EditRow{"Defaults", "RECORD\n P1 3* 3 /\n", 2, "OIL", "RECORD\n P1 1* OIL 1* 3 /\n"},
        EditRow{"OneDefault", "PREVIOUS\n 1 * 3 /\n", 1, "2", "PREVIOUS\n 1 2 3 /\n"},
        EditRow{"NotGiven", "ROWS\n 1 /\n/\n", 1, "2", "ROWS\n 1 2 /\n/\n"},
        EditRow{"BehindOthersNotGiven", "BOX\n 1 2 /\n", 4, "3", "BOX\n 1 2 2* 3 /\n"},
        EditRow{"BehindAnEmptyList", "NESTED\n 1 /\n/\n", 0, "2", "NESTED\n 2 /\n/\n"},
        EditRow{"OfATable", "TABLES\n 1 2\n 3 4 /\n 5 6\n 7 8 /\n", 7, "9",
            "TABLES\n 1 2\n 3 4 /\n 5 6\n 7 9 /\n"},
        EditRow{"NoSuchSlot", "ROWS\n 1 2 /\n/\n", 2, "7", ""},
        EditRow{"OfAMap", "MAP\n A=2 /\n", 0, "7", ""}),
    CaseName<EditRow>);

} // namespace

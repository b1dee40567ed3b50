#include "quor/deck/Deck.h"

#include "tests/data/DataText.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
namespace Decks = Veld::Quor::Core::Decks;

namespace {

// Every kind of data that a deck's text can hold.
const std::string dataLanguage = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='SCHEDULE'/> <keyword name='FLAG'/> <keyword name='FIELD'/>
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
<keyword name='FEW'><data><list minSize='2' maxSize='3'><integer/></list></data></keyword>
<keyword name='BYREGION'><data><list size='2' termination='SLASH'><record termination='SLASH'><item name='A'><integer/></item></record></list></data></keyword>
<keyword name='SOME'><data><list minSize='2' maxSize='3'><record termination='SLASH'><item name='A'><integer/></item></record></list></data></keyword>
<keyword name='CURVE'><data><list size='2' termination='SLASH'><record termination='NONE'><item name='A'><integer/></item></record></list></data></keyword>
<keyword name='CURVES'><data><list minSize='2' maxSize='3'><list><real/></list></list></data></keyword>
<keyword name='UNTIL'><data><list><string/><customReadTermination><stringTermination>STOP</stringTermination>
  </customReadTermination></list></data></keyword>
<keyword name='NAMES'><data><list><string/></list></data></keyword>
<keyword name='RECORD'><data><record termination='SLASH'>
  <item name='NAME'><string><lengthLimit>4</lengthLimit></string></item>
  <item name='RATE' optional='true'><real><min val='0'/><default type='specified' val='2.5'/><quantity name='pressure'/></real><unsupportedBy>
    <simulator name='Carrow'/>
  </unsupportedBy></item>
  <item name='KIND' optional='true'><choice><values><value string='OIL'/><value string='WATER'>
    <aliases>
      <alias name='AQUA'>
        <isHiddenAlias/>
      </alias>
    </aliases>
    <unsupportedBy>
      <simulator name='Carrow'/>
    </unsupportedBy></value><value string='GAS'>
    <validity>
      <simulator name='Dunmere'/>
    </validity></value></values><default type='no default'/></choice></item>
  <item name='ON' optional='true'><boolean/><validity>
    <simulator name='Dunmere'/>
  </validity></item>
  <item name='COUNT'><integer><max val='9'/></integer></item>
</record></data></keyword>
<keyword name='ROWS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='A'><integer/></item> <item name='B' optional='true'><integer/></item>
</record></list></data></keyword>
<keyword name='TABLES'><data><list size='2' termination='NONE'><list minSize='2' maxSize='4' termination='SLASH'>
  <record termination='NONE'>
    <item name='X' columnConstraint='strictly_increasing'><real/></item>
    <item name='Y' columnConstraint='decreasing'><real><default type='calculated'/></real></item>
  </record></list></list></data></keyword>
<keyword name='NESTED'><data><list termination='SLASH'><record termination='NONE'>
  <item name='HEAD'><real/></item>
  <item name='ROWS'><list termination='SLASH'><record termination='NONE'><item name='V'><real/></item></record></list></item>
</record></list></data></keyword>
<keyword name='COUNTED'><data><record termination='SLASH'>
  <item name='N'><integer/></item> <item name='VALUES'><list size='4/N' termination='NONE'><integer/></list></item>
</record></data></keyword>
<keyword name='SIZED'><data><record termination='SLASH'>
  <item name='N'><integer/></item> <item name='VALUES'><list termination='SLASH'>
    <list size='N' termination='NONE'><integer/></list></list></item>
</record></data></keyword>
<keyword name='ORDERED'><data><list><record termination='SLASH'>
  <item name='S' columnConstraint='increasing'><string/></item>
  <item name='UP' columnConstraint='increasing' optional='true'><integer/></item>
  <item name='DOWN' columnConstraint='strictly_decreasing' optional='true'><integer/></item>
</record></list></data></keyword>
<keyword name='PAIR'><data><record termination='NONE'>
  <item name='A'><integer/></item> <item name='B'><integer/></item></record></data></keyword>
<keyword name='TSTEP'><data><list><record termination='SLASH'>
  <item name='D'><integer/></item></record></list></data></keyword>
<keyword name='DATES'><data><list><record termination='SLASH'>
  <item name='D'><integer/></item> <item name='M'><string/></item> <item name='Y'><integer/></item>
  <item name='T' optional='true'><string/></item></record></list></data></keyword>
<keyword name='START'><data><record termination='SLASH'>
  <item name='D' optional='true'><integer><default type='specified' val='1'/></integer></item>
  <item name='M' optional='true'><string><default type='specified' val='JAN'/></string></item>
  <item name='Y' optional='true'><integer><default type='specified' val='1983'/></integer></item>
  <item name='T' optional='true'><string/></item></record></data></keyword>
<keyword name='TIME'><data><list><real/></list></data></keyword>
<keyword name='MAP'><data><map>
  <assignment name='A'><integer><min val='1'/><max val='5'/></integer><validity>
    <simulator name='Carrow'/>
  </validity></assignment>
  <assignment name='BETA'><integer/><validity>
    <simulator name='Dunmere'/>
  </validity></assignment></map></data></keyword>
<keyword name='TITLE'><data><record termination='EOL'><item name='T'><line/></item></record></data></keyword>
<keyword name='NOTED'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='T'><line/></item> <item name='A'><integer/></item> <item name='U'><line/></item>
  <item name='B'><integer/></item></record></list></data></keyword>
<keyword name='CARFIN'><scope><endKeyword name='CARFIN'/></scope><data><record termination='SLASH'>
  <item name='NUMBER'><integer/></item> <item name='NAME'><string/></item>
  <item name='NX' optional='true'><integer/></item> <item name='NY' optional='true'><integer/></item>
</record></data></keyword>
<keyword name='LINES'><data><list><line/><customReadTermination><stringTermination>/</stringTermination>
  </customReadTermination></list></data></keyword>
<keyword name='RAW'><data><raw stringTermination='ENDRAW'/></data></keyword>
<keyword name='NEEDS'><precedents><precedent name='FLAG'/></precedents></keyword>
<keyword name='SOLUTION'/> <keyword name='RESTART'/>
<keyword name='REGION'><scope><endKeyword name='ENDREG' explicit='true'/><endKeyword name='REGION'/></scope></keyword>
<keyword name='ENDREG'/>
<keyword name='CELLS'><data><list size='NX*NY' termination='SLASH'><integer><min val='1'/></integer></list></data>
  <cell/></keyword>
<keyword name='LAYERS'><data><list size='NX * NY*3' termination='SLASH'><real/></list></data>
  <cell copyLayerAboveByDefault='true'/></keyword>
<keyword name='PAIRS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='A'><string/></item><item name='B'><string/></item></record></list></data></keyword>
<keyword name='MANY'><data><list size='NSOME' termination='NONE'><record termination='SLASH'>
  <item name='A'><integer/></item></record></list></data></keyword>
<keyword name='OPEN'><scope><endKeyword name='SHUT' explicit='true'/></scope></keyword> <keyword name='SHUT'/>
)";

/// Has the language for the tests of one suite.
class Language : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        table_ = std::make_unique<LoadedTable>(dataLanguage);
        language_ = std::make_unique<Decks::DeckLanguage>(*table_->operator->());
    }
    static void TearDownTestSuite()
    {
        language_.reset();
        table_.reset();
    }

    Decks::Deck Read(const std::string& text, SimulatorType::Enum simulator, bool isEditable = false) const
    {
        return Decks::Deck::Read(folder_.Write("d.data", "RUNSPEC\n" + text), *language_,
            Decks::ReadOptions().SetSimulator(simulator).SetEditable(isEditable));
    }

    static inline std::unique_ptr<LoadedTable> table_;
    static inline std::unique_ptr<Decks::DeckLanguage> language_;
    TemporaryDirectory folder_;
};

/// A deck behind RUNSPEC, the last keyword's data ("?": don't look) and the findings, as a user sees them;
/// the option is a simulator.
class Readings : public Language, public testing::WithParamInterface<Row> { };

TEST_P(Readings, GiveDataAndFindings)
{
    const auto& [name, text, data, findings, simulator] = GetParam();
    for (const bool isEditable : {false, true}) { // which has no short ways of reading
        const auto deck = Read(
            text, simulator.empty() ? SimulatorType::Any : SimulatorType::FromString(simulator), isEditable);
        EXPECT_EQ(Dump(deck.GetFindings(), folder_.Path()), findings);
        if (data != "?") {
            EXPECT_EQ(Veld::Quor::Tests::Dump(deck[deck.GetSize() - 1].GetData()), data);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Arrays, Readings, testing::ValuesIn(Rows(R"(
Plain: DIMENS\n 2 2 /\nARRAY\n 1 +2.5, 3D1 4e-1/\n => [1 2.5 30 0.4] =>
Repeats: DIMENS\n 2 3 /\nARRAY\n 2*1 3*\n  2*\n/\n => [1 1 0~ 0~ 0~ 0~] => d.data:6:3: error: ARRAY: too many values (expected 6, found 7) [wrong-size] | the size is NX*NY
LoneAsterisk: DIMENS\n 2 1 /\nARRAY\n * 1 /\n => [0~ 1] =>
Surplus: DIMENS\n 1 2 /\nARRAY\n 1 2\n 3 4*5 /\n => [1 2] => d.data:6:2: error: ARRAY: too many values (expected 2, found 7) [wrong-size] | the size is NX*NY
SuppressedErrorLeavesTheSizes: DIMENS\n 3 1 /\nDIMENS -- quor: off repeated-keyword\n 2 x / -- quor: off\nARRAY\n 1 2 3 /\n => ? =>
Short: DIMENS\n 1 2 /\nARRAY\n 1 /\n => [1] => d.data:5:4: error: ARRAY: too few values (expected 2, found 1) [wrong-size] | the size is NX*NY
DefaultDimensions: ARRAY\n 1 /\n => [1] =>
InABox: DIMENS\n 4 4 /\nBOX\n 2 3 2* 1 1 /\nARRAY\n 8*1 /\nENDBOX\nARRAY\n 16*1 /\nGRID\nFLAG\n => ? =>
InALocalGrid: CARFIN\n 1 A 2 1 /\nARRAY\n 1 2 /\nCARFIN\n 1 B 3 1 /\nCARFIN\n 1 A /\nARRAY\n 1 2 /\n => [1 2] =>
MisspeltEndOfABox: DIMENS\n 4 4 /\nBOX\n 2 3 2* 1 1 /\nARRAY\n 8*1 /\nENDBXO\nARRAY\n 16*1 /\n => ? => d.data:8:1: error: unknown keyword 'ENDBXO' [unknown-keyword] | did you mean ENDBOX?
RepeatWithALetter: DIMENS\n 3 1 /\nARRAY\n 1 2O*5 /\n => [1] => d.data:5:4: error: ARRAY: invalid value '2O*5'; expected a number [wrong-type]
OneMessageForManyBeyond: DIMENS\n 5 1 /\nARRAY\n 1 101 3 -1 2*200 /\n => ? => d.data:5:4: error: ARRAY: value 101 is too large (expected at most 100); other values out of range: 3 [out-of-range]
    d.data:5:13: error: ARRAY: too many values (expected 5, found 6) [wrong-size] | the size is NX*NY
WrongWord: DIMENS\n 2 1 /\nARRAY\n 1 x 2 /\n => [1 2] => d.data:5:4: error: ARRAY: invalid value 'x'; expected a number [wrong-type]
NumberWithATail: DIMENS\n 2 1 /\nARRAY\n 1.0.0 2 3 /\n => [2 3] => d.data:5:2: error: ARRAY: invalid value '1.0.0'; expected a number [wrong-type]
InfinityIsNoNumber: DIMENS\n 1 1 /\nARRAY\n inf 1e999 nan 7 /\n => [7] => d.data:5:2: error: ARRAY: invalid value 'inf'; expected a number [wrong-type]
    d.data:5:6: error: ARRAY: invalid value '1e999'; expected a number [wrong-type]
    d.data:5:12: error: ARRAY: invalid value 'nan'; expected a number [wrong-type]
Comments: DIMENS\n 2 1 /\nARRAY -- c\n-- FLAG\n 1--c\n 2 / text\n => [1 2] =>
OnTheLineOfItsKeyword: DIMENS 2 1 /\nARRAY 1 2 /\n => [1 2] =>
WholeNumbers: WHOLE\n 1 2*3 -.5 -1 99999999999 -99999999999 /\n => [1 3 3 -1] => d.data:3:8: error: WHOLE: invalid value '-.5'; expected a whole number [wrong-type]
    d.data:3:15: error: WHOLE: whole number '99999999999' is out of range (expected -2147483648 to 2147483647) [wrong-type]
    d.data:3:27: error: WHOLE: whole number '-99999999999' is out of range (expected -2147483648 to 2147483647) [wrong-type]
    d.data:3:12: error: WHOLE: value -1 is too small (expected at least 0) [out-of-range]
CommaInAnArray: DIMENS\n 2 1 /\nARRAY\n 1, 2,3 /\n => [1] => d.data:5:5: error: unexpected comma in the number '2,3' [comma-in-number] | write a decimal point, or a blank between two values
CommasBetweenAllValues: DIMENS\n 3 1 /\nARRAY\n 1,2,3 /\n => [] => d.data:5:2: error: unexpected comma in the number '1,2,3' [comma-in-number] | write a decimal point, or a blank between two values
ZeroInInactiveCells: DIMENS\n 4 1 /\nCELLS\n 0 2*1 -1 /\n => [0 1 1 -1] => d.data:5:8: error: CELLS: value -1 is too small (expected at least 0) [out-of-range]
SameWrongSizeIsToldOnce: DIMENS\n 4 1 /\nARRAY\n 3*1 /\nARRAY\n 3*2 /\nARRAY\n 2*3 /\n => ? => d.data:5:6: error: ARRAY: too few values (expected 4, found 3) [wrong-size] | the size is NX*NY
    d.data:9:6: error: ARRAY: too few values (expected 4, found 2) [wrong-size] | the size is NX*NY
UnknownSizeEndsBeforeAnUnknownKeyword: MANY\n 1 /\n 2 /\nQXZQXZ\n 3 /\nFLAG\n => ? => d.data:5:1: error: unknown keyword 'QXZQXZ' [unknown-keyword]
WholeLayers: DIMENS\n 2 2 /\nLAYERS\n 8*1 /\nLAYERS\n 4*1 /\n => [1 1 1 1] =>
LayerCutShort: DIMENS\n 2 2 /\nLAYERS\n 7*1 /\n => ? => d.data:5:6: error: LAYERS: too few values (expected 12, found 7) [wrong-size] | the size is NX * NY*3
WrongNumberOfTheDeckIsToldOnce: DIMENS\n 4 2 /\nARRAY\n 6*1 /\nLAYERS\n 18*1 /\nLAYERS\n 23*1 /\n => ? => d.data:5:6: error: ARRAY: too few values (expected 8, found 6) [wrong-size] | the size is NX*NY
    d.data:9:7: error: LAYERS: too few values (expected 24, found 23) [wrong-size] | the size is NX * NY*3
WrongWordInALayer: DIMENS\n 2 2 /\nLAYERS\n 3*1 x /\n => ? => d.data:5:6: error: LAYERS: invalid value 'x'; expected a number [wrong-type]
SlashWithin: DIMENS\n 4 1 /\nARRAY\n 1 2 /\n 3 4 /\nFLAG\n => ? => d.data:5:6: error: ARRAY: too few values (expected 4, found 2) [wrong-size] | the size is NX*NY
BlankAfterTheCountOfARepeat: DIMENS\n 3 1 /\nCELLS\n 1 2* 7 /\n => ? => d.data:5:4: error: CELLS: the values have no default [no-default] | write each value
CommentWithOneHyphen: DIMENS\n 2 1 /\nARRAY\n- south to north\n 1 2 /\n => [1 2] => d.data:5:1: error: unexpected hyphen; a comment starts with '--' [stray-text] | write '--'
CommentWithOneHyphenBeforeAKeyword: FLAG\n- dimensions\nDIMENS\n 2 1 /\n => ? => d.data:3:1: error: unexpected hyphen; a comment starts with '--' [stray-text] | write '--'
BoxWithAnError: DIMENS\n 4 4 /\nBOX\n x 2 2* 1 1 /\nARRAY\n 8*1 /\n => ? => d.data:5:2: error: BOX, I1: invalid value 'x'; expected a whole number [wrong-type]
BoxInsideOut: DIMENS\n 4 4 /\nBOX\n 3 2 2* 1 1 /\nARRAY\n 8*1 /\n => ? => d.data:5:2: error: BOX: I1 is 3, but I2 is 2 [index-order] | write the lower number first
PreviousValueFills: PREVIOUS\n 4 2* 7 1* /\n => [4 4~ 4~ 7 7~] =>
EndsByItself: FIXED\n 1 2 3\nFLAG\n => ? =>
SlashDoesNoHarm: FIXED\n 3*1 /\n => [1 1 1] =>
BelowLeastSize: FEW\n 1 /\n => [1] => d.data:3:4: error: FEW: too few values (expected at least 2, found 1) [wrong-size]
AboveGreatestSize: FEW\n 1 2 3 4 /\n => [1 2 3 4] => d.data:3:10: error: FEW: too many values (expected at most 3, found 4) [wrong-size]
OneMessageForManyBelow: WHOLE\n -1 2*-2 /\n => ? => d.data:3:2: error: WHOLE: value -1 is too small (expected at least 0); other values out of range: 2 [out-of-range]
BadRepeat: WHOLE\n 0*1 2 99999999999*3 /\n => [1 2 3] => d.data:3:2: error: WHOLE: invalid repeat count in '0*1' (expected 1 to 1000000) [bad-repeat]
    d.data:3:8: error: WHOLE: invalid repeat count in '99999999999*3' (expected 1 to 1000000) [bad-repeat]
RepeatsBeyondAllSense: NAMES\n 1000001*A B /\n => ['A' 'B'] => d.data:3:2: error: NAMES: invalid repeat count in '1000001*A' (expected 1 to 1000000) [bad-repeat]
RepeatedNamesOfAMap: MAP\n 3*A /\n => {A=1 BETA=-} => d.data:3:2: error: MAP: a name can't have a repeat count [bad-repeat]
NoDefaults: NAMES\n A 2* B /\nWHOLE\n 1 2* /\n => ? => d.data:3:4: error: NAMES: the values have no default [no-default] | write each value
    d.data:5:4: error: WHOLE: the values have no default [no-default] | write each value
Names: NAMES\n A 'B C' 2*D "E/" 2*'F G' O'K /\n => ['A' 'B C' 'D' 'D' 'E/' 'F G' 'F G' 'O'K'] =>
OpenQuote: NAMES\n 'A\n B /\n => ['A' 'B'] => d.data:3:2: error: unclosed quote before 'A' [unclosed-quote] | add a closing ' on the same line
KeywordWithASlashIsAName: NAMES\nFLAG /\n => ['FLAG'] =>
KeywordEndsOpenData: NAMES\n A\nFLAG\n => ? => d.data:3:3: error: NAMES: missing slash at the end of the list [unclosed-data] | add a slash after the last value
EndOfFileEndsOpenData: ROWS\n 1 2 /\n 3\t => ? => d.data:4:3: error: ROWS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
EndOfFileAfterALine: NOTED\n line => [('line' - - -)] => d.data:3:6: error: NOTED: missing slash at the end of the record [unclosed-data] | add a slash after the last value
EndOfDeckEndsOpenData: ROWS\n 1 2\n => ? => d.data:3:5: error: ROWS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Records, Readings, testing::ValuesIn(Rows(R"(
All: RECORD\n P1 7.5 GAS YES 3 /\n => ('P1' 7.5 2 1 3) =>
Defaults: RECORD\n P1 3* 3 /\n => ('P1' - - - 3) =>
TooFew: RECORD\n P1 2 /\n => ('P1' 2 - - -) => d.data:3:7: error: RECORD: too few values (missing: COUNT) [too-few-values] | only items with a default can be omitted
TooMany: RECORD\n P1 1 OIL NO 3 4 5 /\nFLAG\n => ? => d.data:3:16: error: RECORD: too many values (expected at most 5) [too-many-values] | end the record with a slash before this value
WrongTypes: RECORD\n P1 'x' OIL 7 1.0 /\n => ('P1' - 0 - -) => d.data:3:5: error: RECORD, RATE: invalid text 'x' in quotes; expected a number [wrong-type]
    d.data:3:13: error: RECORD, ON: invalid value '7'; expected YES or NO [wrong-type]
    d.data:3:15: error: RECORD, COUNT: invalid value '1.0'; expected a whole number [wrong-type]
NumbersInQuotes: RECORD\n P1 '2' OIL NO '3' /\n => ? => d.data:3:5: error: RECORD, RATE: invalid text '2' in quotes; expected a number [wrong-type] | remove the quotes
    d.data:3:16: error: RECORD, COUNT: invalid text '3' in quotes; expected a whole number [wrong-type] | remove the quotes
BlankTextsAreDefaults: RECORD\n P1 '' '  ' 1*" " 3 /\n => ('P1' - - - 3) =>
BlankNameIsAText: RECORD\n '' 4* /\n => ('' - - - -) => d.data:3:5: error: RECORD, COUNT: the item has no default [no-default] | write a value
BlankNumber: RECORD\n P1 3* ' ' /\n => ('P1' - - - -) => d.data:3:8: error: RECORD, COUNT: the item has no default [no-default] | write a value
PaddedTexts: RECORD\n 'P1  ' 1 '\tOIL ' NO 3 /\nNAMES\n 2*' A B ' /\n => ['A B' 'A B'] =>
AsteriskOfAllNames: RECORD\n * 1 OIL * 3 /\nNAMES\n A * /\n => ['A' '*'] =>
CountedAsteriskIsADefault: RECORD\n 1* 1 OIL NO 3 /\n => (- 1 0 0 3) => d.data:3:2: error: RECORD, NAME: the item has no default [no-default] | write a value
DefaultsTooMany: RECORD\n P1 1 OIL NO 3 5* ' ' * /\nROWS\n 1 7* /\n 2 3 1*\n/\n/\n => [(1 -) (2 3)] =>
ValueAfterDefaultsTooMany: ROWS\n 1 2 3* 4 /\n/\n => [(1 2)] => d.data:3:9: error: ROWS: too many values (expected at most 2) [too-many-values] | end the record with a slash before this value
Limits: RECORD\n P1 -1 OIL NO 10 /\n => ('P1' -1 0 0 10) => d.data:3:5: error: RECORD, RATE: value -1 bar is too small (expected at least 0) [out-of-range]
    d.data:3:15: error: RECORD, COUNT: value 10 is too large (expected at most 9) [out-of-range]
LimitsInOtherUnits: FIELD\nRECORD\n P1 -12 OIL NO 1 /\n => ? => d.data:4:5: error: RECORD, RATE: value -12 psi is too small (expected at least 0) [out-of-range]
LongText: RECORD\n PROD1 1 OIL NO 1 /\n => ? => d.data:3:2: warning: RECORD, NAME: 'PROD1' is longer than 4 characters; the rest is ignored [long-text] | shorten the text
Abbreviation: RECORD\n P 1 wat NO 1 /\n => ('P' 1 1 0 1) => d.data:3:6: warning: RECORD, KIND: 'wat' is an abbreviation of WATER [abbreviated-word] | write WATER
Deprecated: RECORD\n P 1 AQUA NO 1 /\n => ('P' 1 1 0 1) => d.data:3:6: warning: RECORD, KIND: 'AQUA' is a deprecated name of WATER [deprecated-word] | write WATER
NoChoice: RECORD\n P 1 COAL NO 1 /\nRECORD\n P 1 OLI NO 1 /\n => ('P' 1 - 0 1) => d.data:3:6: error: RECORD, KIND: unknown value 'COAL' [not-a-choice] | expected one of: OIL, WATER, GAS
    d.data:5:6: error: RECORD, KIND: unknown value 'OLI' [not-a-choice] | did you mean OIL?
OfAnotherSimulator (Carrow): RECORD\n P 1 GAS NO 1 /\nRECORD\n P 1* WATER 1* 1 /\n => ? => d.data:3:4: warning: RECORD, RATE: the item has no effect for Carrow [item-unsupported]
    d.data:3:6: error: RECORD, KIND: value GAS is not valid for Carrow [choice-not-valid] | choose another value
    d.data:3:10: error: RECORD, ON: the item is not valid for Carrow [item-not-valid] | write '1*' instead of the value
    d.data:5:7: warning: RECORD, KIND: value WATER has no effect for Carrow [choice-unsupported]
ListOfThem: ROWS\n 1 2 /\n 3 /\n 2*4 /\n/\n => [(1 2) (3 -) (4 4)] =>
RecordWithoutASlash: ROWS\n 1 2\n 3 4 /\n/\n => [(1 2) (3 4)] => d.data:3:5: error: ROWS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
LastRecordWithoutASlash: ROWS\n 1 2 /\n 3 4\n/\nFLAG\n => ? => d.data:4:5: error: ROWS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
RecordOnTwoLines: ROWS\n 1\n 2 /\n 3\n 4 5 /\n/\n => [(1 2) (3 -) (4 5)] => d.data:5:3: error: ROWS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
Backslash: ROWS\n 1 2 \\\n 3 4 /\n/\n => [(1 2) (3 4)] => d.data:3:6: error: unexpected backslash; expected a slash [stray-text] | write '/'
RepeatedWrongWord: ROWS\n 2*x /\n/\n => [(- -)] => d.data:3:2: error: ROWS, A: invalid value 'x'; expected a whole number [wrong-type]
MissingValue: RECORD\n P1 OIL YES 3 /\n => ('P1' - - - -) => d.data:3:5: error: RECORD, RATE: invalid value 'OIL'; expected a number [wrong-type] | a value seems to be missing before this one
MissingValues: RECORD\n P1 YES 3 /\n => ('P1' - - - -) => d.data:3:5: error: RECORD, RATE: invalid value 'YES'; expected a number [wrong-type] | 2 values seem to be missing before this one
ValueTooMany: RECORD\n P1 1 1 OIL YES 3 /\n => ('P1' 1 - - -) => d.data:3:7: error: RECORD, KIND: unknown value '1' [not-a-choice] | this value seems to be extra
OpenQuoteInARecord: RECORD\n 'P1 1 OIL NO 3 /\n => ('P1' 1 0 0 3) => d.data:3:2: error: unclosed quote before 'P1' [unclosed-quote] | add a closing ' on the same line
QuoteThatWasNotOpened: RECORD\n P*' 1 OIL NO 3 /\n => ('P*' 1 0 0 3) => d.data:3:2: error: unopened quote after 'P*' [unclosed-quote] | add an opening ' before the text
OpenQuoteOfSeveralWords: RECORD\n 'P of Q 1 OIL NO 3 /\nFLAG\n => ? => d.data:3:2: error: unclosed quote before 'P' [unclosed-quote] | add a closing ' on the same line
OpenQuoteBeforeABlank: RECORD\n ' P1 1 OIL NO 3 /\n => ? => d.data:3:2: error: unclosed quote [unclosed-quote] | add a closing ' on the same line
ListOfRecordsWithoutASlash: ROWS\n 1 2 /\nFLAG\n => ? => d.data:3:7: warning: ROWS: missing slash after the last record [unclosed-list] | add a line with a slash after the last record
ListWithoutItsEndWord: UNTIL\n A\nFLAG\n => ? => d.data:3:3: error: UNTIL: missing end word of the list [unclosed-data] | add the word that ends the list of this keyword
TooFewRecords: BYREGION\n 1 /\n/\n => [(1)] => d.data:4:1: error: BYREGION: too few records (expected 2, found 1) [wrong-size] | the size is 2
RecordsBelowLeast: SOME\n 1 /\n/\n => [(1)] => d.data:4:1: error: SOME: too few records (expected at least 2, found 1) [wrong-size]
RecordsAboveGreatest: SOME\n 1 /\n 2 /\n 3 /\n 4 /\n/\n => ? => d.data:7:1: error: SOME: too many records (expected at most 3, found 4) [wrong-size]
EmptyList: ROWS\n/\n => [] =>
ElementsOfNoSize: SIZED\n 0 1 2 /\nFLAG\n => ? => d.data:3:4: error: SIZED: too many values (expected none) [too-many-values] | the size of the list is 0
    d.data:3:9: error: SIZED: missing slash at the end of the record [unclosed-data] | add a slash after the last value
TextsHaveNoOrder: ORDERED\n B /\n A /\n/\n => [('B' - -) ('A' - -)] =>
Orders: ORDERED\n A 1 9 /\n B 1 9 /\n C 0 8 /\n/\n => ? => d.data:4:6: error: ORDERED, DOWN: value 9 must be less than the previous value 9 [column-order]
    d.data:5:4: error: ORDERED, UP: value 0 must not be less than the previous value 1 [column-order]
RepeatBeyondTheEnd: PAIR\n 1 4*2\n => (1 2) => d.data:3:4: error: PAIR: too many values (the repeat count is too large by 3) [too-many-values]
RepeatAroundALine: NOTED a line\n 2*5\n 9\n /\n/\n => [('a line' 5 '9' 5)] =>
SurplusOfOneItem: TSTEP\n 1 2 /\n/\n => [(1)] => d.data:3:4: error: TSTEP: too many values (expected at most 1) [too-many-values] | end the record with a slash before this value
Variables: RECORD\n P1 $RATE OIL NO 3 /\nRECORD\n P1 $RATE OIL NO 3 /\n => ? => d.data:3:5: error: variable '$RATE' has no value [unknown-variable] | set the variable $RATE
QuantityOfTheUser: SCHEDULE\nRECORD\n P1 WUOPRATE OIL NO 3 /\n => ('P1' - 0 0 3) =>
QuantityOutsideTheSchedule: RECORD\n P1 WUOPR OIL NO 3 /\n => ('P1' - 0 0 3) => d.data:3:5: error: RECORD, RATE: invalid value 'WUOPR'; expected a number [wrong-type]
RemarkOnTheKeywordsLine: RECORD name rate, see p. 3/4\n P1 1 OIL NO 3 /\n => ('P1' 1 0 0 3) => d.data:2:8: warning: RECORD: the text 'name rate, see p. 3/4' is read as a remark [text-after-keyword] | write '--' before a remark, and data on the next line
RemarkThatLooksLikeAName: NAMES in the field\n A B /\n => ['A' 'B'] => d.data:2:7: warning: NAMES: the text 'in the field' is read as a remark [text-after-keyword] | write '--' before a remark, and data on the next line
WrongDataOnTheKeywordsLine: ROWS 1 x /\n/\n => ? => d.data:2:8: error: ROWS, B: invalid value 'x'; expected a whole number [wrong-type]
NameAboveARecord: RECORD Pressure\n P1 1 OIL NO 3 /\nRECORD P1\n 1 OIL NO 3 /\n => ('P1' 1 0 0 3) => d.data:2:8: warning: RECORD: the text 'Pressure' is read as a remark [text-after-keyword] | write '--' before a remark, and data on the next line
RecordOnTheKeywordsLineAndBelow: PAIRS A\n B /\n/\n => [('A' 'B')] =>
DataOnTheKeywordsLine: ROWS 1 2 / c\n 3 /\n/\nNAMES A\n B /\n => ['A' 'B'] =>
DecimalComma: RECORD\n P1 1,5 OIL NO 3 /\nRECORD\n P1, 1 ,OIL NO 1,000,000 /\n => ('P1' 1 0 0 -) => d.data:3:5: error: unexpected comma in the number '1,5' [comma-in-number] | write a decimal point, or a blank between two values
    d.data:5:16: error: unexpected comma in the number '1,000,000' [comma-in-number] | write a decimal point, or a blank between two values
SeveralNumbersInOneWord: ROWS\n 1,2 /\n 1x2 /\n 1\xE2\x80\x932 /\n 1 '2 /\n/\n => ? => d.data:3:2: error: unexpected comma in the number '1,2' [comma-in-number] | write a decimal point, or a blank between two values
    d.data:4:2: error: ROWS, A: invalid value '1x2'; expected a whole number [wrong-type]
    d.data:5:2: error: unexpected long dash in '1\xE2\x80\x932' [odd-character] | write a hyphen
    d.data:6:4: error: unclosed quote before '2' [unclosed-quote] | add a closing ' on the same line
CurlyQuotes: NAMES\n \xE2\x80\x98P\xE2\x80\x99 'a\xE2\x80\x93' /\n => ? => d.data:3:2: error: unexpected curly quote in '\xE2\x80\x98P\xE2\x80\x99' [odd-character] | write a straight quote
CurlyQuotesAreNotTooLong: RECORD\n \xE2\x80\x98PPPP\xE2\x80\x99 1 OIL NO 3 /\n => ? => d.data:3:2: error: unexpected curly quote in '\xE2\x80\x98PPPP\xE2\x80\x99' [odd-character] | write a straight quote
LongDash: WHOLE\n 1 \xE2\x80\x932 /\n => [1] => d.data:3:4: error: unexpected long dash in '\xE2\x80\x932' [odd-character] | write a hyphen
MinusSign: WHOLE\n 1 \xE2\x88\x922 /\n => [1] => d.data:3:4: error: unexpected minus sign in '\xE2\x88\x922' [odd-character] | write a hyphen
HardSpace: WHOLE\n 1 2\xC2\xA03 /\n => [1] => d.data:3:4: error: unexpected hard space in '2\xC2\xA03' [odd-character] | write a blank
StepsOfAnotherForm: TSTEP\n 1 /\n/\n => [(1)] =>
CountedByAnItem: COUNTED\n 2 5 6 /\n => (2 [5 6]) =>
CountOverNothing: COUNTED\n 0 5 /\n => (0 [5]) =>
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Tables, Readings, testing::ValuesIn(Rows(R"(
Two: TABLES\n 1 4\n 2 3 /\n 1 9 2 8 3 7 /\n => [[(1 4) (2 3)] [(1 9) (2 8) (3 7)]] =>
CutRow: TABLES\n 1 4 2 / 1 4 2 4 /\n => ? => d.data:3:9: error: TABLES: too few tables (expected 2, found 1) [wrong-size] | the size is 2
OneTooMany: TABLES\n 1 4 2 3 /\n 1 4 2 3 /\n 1 4 2 3 /\nTABLES\n 1 4 2 3 /\n 1 4 2 3 /\n 1 4 2 3 /\nFLAG\n => ? => d.data:5:2: error: TABLES: too many tables (expected 2) [wrong-size] | the size is 2
EmptyStandsForTheOneBefore: TABLES\n 1 4 2 3 /\n /\n => [[(1 4) (2 3)] []] =>
RowsOfASize: CURVE\n 1 /\n => ? => d.data:3:4: error: CURVE: too few rows (expected 2, found 1) [wrong-size] | the size is 2
BelowLeast: CURVES\n 1 2 /\n/\n => ? => d.data:4:1: error: CURVES: too few tables (expected at least 2, found 1) [wrong-size]
AboveGreatest: CURVES\n 1 /\n 2 /\n 3 /\n 4 /\n/\n => ? => d.data:7:1: error: CURVES: too many tables (expected at most 3, found 4) [wrong-size]
OneIsMissing: TABLES\n 1 4 2 3 /\nFLAG\n => ? => d.data:3:11: error: TABLES: too few tables (expected 2, found 1) [wrong-size] | the size is 2
TooFewRows: TABLES\n 1 4 /\n 1 4 2 3 /\n => ? => d.data:3:6: error: TABLES: too few rows (expected at least 2, found 1) [wrong-size]
TooManyRows: TABLES\n 1 4 2 4 3 4 4 4 5 4 /\n 1 4 2 3 /\n => ? => d.data:3:22: error: TABLES: too many rows (expected at most 4, found 5) [wrong-size]
ColumnsToldOnce: TABLES\n 1 4\n 2 5\n 3 6\n 0 7 /\n 1 4 2 3 /\n => ? => d.data:4:4: error: TABLES, Y: value 5 must not be greater than the previous value 4 [column-order]
    d.data:6:2: error: TABLES, X: value 0 must be greater than the previous value 3 [column-order] | if a new table starts here, add a slash before it
RowCutShort: TABLES\n 1 9\n 2\n 3 7\n 4 6 /\n 1 4 2 3 /\n => ? => d.data:6:2: error: TABLES, Y: value 4 must not be greater than the previous value 3 [column-order] | a row on this line or before it has too few or too many values
NoSlashBetween: TABLES\n 1 4\n 2 3\n 1 9\n 2 8 /\n => ? => d.data:5:2: error: TABLES, X: value 1 must be greater than the previous value 2 [column-order] | if a new table starts here, add a slash before it
Nested: NESTED\n 1 2 3 /\n 4 5 /\n/\n => [(1 [(2) (3)]) (4 [(5)])] =>
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Texts, Readings, testing::ValuesIn(Rows(R"(
Map: MAP\n A=3 BETA = 2 /\n => {A=3 BETA=2} =>
NameAndValueInQuotes: MAP\n 'A = 3' ' BETA=2 ' /\n => {A=3 BETA=2} =>
NumbersOfTheOlderForm: MAP\n 1 3*0\n 2* 7 /\nMAP\n 2*1 A=2 /\n => {A=2 BETA=-} =>
NumberAfterAName: MAP\n A 2 /\n => {A=1 BETA=-} => d.data:3:4: error: MAP: unknown name '2' [unknown-name]
NameAlone: MAP\n beta A= 4/\n => {A=4 BETA=1} =>
UnknownName: MAP\n A C=1 BETTA /\n => {A=1 BETA=-} => d.data:3:4: error: MAP: unknown name 'C' [unknown-name]
    d.data:3:8: error: MAP: unknown name 'BETTA' [unknown-name] | did you mean BETA?
NoName: MAP\n =3 A /\n => {A=1 BETA=-} => d.data:3:2: error: MAP: missing name before '=' [unknown-name]
NoValue: MAP\n A= /\n => {A=- BETA=-} => d.data:3:2: error: MAP, A: missing value after '='; expected a whole number [wrong-type]
NoNumber: MAP\n A=x BETA /\n => {A=- BETA=1} => d.data:3:2: error: MAP, A: invalid value 'x'; expected a whole number [wrong-type]
MapLimits: MAP\n A=6 A=0 /\n => ? => d.data:3:2: error: MAP, A: value 6 is too large (expected at most 5) [out-of-range]
    d.data:3:6: error: MAP, A: value 0 is too small (expected at least 1) [out-of-range]
NameOfAnother (Carrow): MAP\n BETA /\n => ? => d.data:3:2: error: MAP: name BETA is not valid for Carrow [item-not-valid] | remove the name
MapWithoutASlash: MAP\n A\nFLAG\n => ? => d.data:3:3: error: MAP: missing slash at the end of the list of names [unclosed-data] | add a slash after the last name
Title: TITLE\n  A title / of it -- all  \nFLAG\nTITLE\nFLAG\n => ('FLAG') =>
Lines: LINES\nDEFINE A 1/2 /\n-- c\n\n B\n/\n => ['DEFINE A 1/2 /' 'B'] =>
LinesWithoutEnd: LINES\nA\n => ['A'] => d.data:3:2: error: LINES: missing slash at the end of the list [unclosed-data] | add a slash after the last value
Raw: RAW\n a / 'b\nFLAG\nendraw\n => " a / 'b\nFLAG\n" =>
RawWithoutEnd: RAW\n a\n => ? => d.data:2:1: error: RAW: missing ENDRAW at the end of the text [unclosed-text] | add ENDRAW at the start of a line
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Order, Readings, testing::ValuesIn(Rows(R"(
Precedent: GRID\nNEEDS\nFLAG\nNEEDS\n => ? => d.data:3:1: error: NEEDS requires FLAG before it [missing-precedent]
PrecedentIsToldOnce: GRID\nNEEDS\nNEEDS\n => ? => d.data:3:1: error: NEEDS requires FLAG before it [missing-precedent]
PrecedentsOfRunspecInAnyOrder: NEEDS\nFLAG\nGRID\n => ? =>
PrecedentMissingInRunspec: NEEDS\nNEEDS\nGRID\nFLAG\n => ? => d.data:2:1: error: NEEDS requires FLAG in section RUNSPEC [missing-precedent]
PrecedentsOfAnotherRun: SOLUTION\nRESTART\nSCHEDULE\nNEEDS\n => ? =>
ScopeThatIsReplaced: GRID\nREGION\nREGION\nENDREG\nENDREG\nREGION\nSCHEDULE\n => ? =>
IndentedKeywordIsRead:   DIMENS\n 2 1 /\nARRAY\n 1 2 /\n => [1 2] =>
IndentedKeywordEndsAnArray: DIMENS\n 2 1 /\nARRAY\n 1 2\n  FLAG\n => ? => d.data:5:5: error: ARRAY: missing slash at the end of the list [unclosed-data] | add a slash after the last value
IndentedKeywordEndsARecord: DIMENS\n 2\n  TIME\n 1 /\n => ? => d.data:3:3: error: DIMENS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
IndentedKeywordEndsAWholeRecord: DIMENS\n 2 1\n  TIME\n 1 /\n => ? => d.data:3:5: error: DIMENS: missing slash at the end of the record [unclosed-data] | add a slash after the last value
IndentedKeywordEndsRecords: PAIRS\n A B /\n  TIME\n 1 /\n => ? => d.data:3:7: warning: PAIRS: missing slash after the last record [unclosed-list] | add a line with a slash after the last record
IndentedKeywordEndsAListOfNoSize: MANY\n 1 /\n  TIME\n 1 /\n => ? =>
IndentedFlagMayBeAName: PAIRS\n A B /\n  FLAG\n C /\n/\n => [('A' 'B') ('FLAG' 'C')] =>
MisspeltKeywordIsRead: DIMNES\n 2 x /\nARRAY\n 1 2 /\n => [1 2] => d.data:2:1: error: unknown keyword 'DIMNES' [unknown-keyword] | did you mean DIMENS, LINES?
SizesWithAnErrorAreNotKnown: DIMENS\n x 2 /\nARRAY\n 1 2 3 /\n => [1 2 3] => d.data:3:2: error: DIMENS, NX: invalid value 'x'; expected a whole number [wrong-type]
MonthsInAnyCase: START\n 1 jan 2020 /\nSCHEDULE\nDATES\n 5 Mar 2020 /\n 4 MAR 2020 /\n/\n => [(5 'MAR' 2020 -) (4 'MAR' 2020 -)] => d.data:7:2: error: DATES: 2020-03-04 is not after 2020-03-05, which the schedule has already reached [date-order]
NoSuchDates: START\n 31 JUN 2020 /\nSCHEDULE\nDATES\n 30 JUX 2020 /\n 1 JUL 2020 /\n/\n => ? => d.data:3:2: error: START: invalid date '31 JUN 2020' [bad-date] | expected a date such as 1 JAN 2020
    d.data:6:2: error: DATES: invalid date '30 JUX 2020' [bad-date] | expected a date such as 1 JAN 2020
StartByDefault: START\n/\nSCHEDULE\nDATES\n 31 DEC 1982 /\n/\n => ? => d.data:6:2: error: DATES: 1982-12-31 is not after 1983-01-01, which the schedule has already reached [date-order]
StartWithoutDay: START\n 1* FEB 1983 /\nSCHEDULE\nDATES\n 31 JAN 1983 /\n/\n => ? => d.data:6:2: error: DATES: 1983-01-31 is not after 1983-02-01, which the schedule has already reached [date-order]
RepeatedDateIsPassed: START\n 1 JUL 2020 /\nSCHEDULE\nDATES\n 1 JUL 2020 /\n 2 JUL 2020 /\n 2 JUL 2020 /\n/\n => ? =>
TimeOutsideAllDates: START\n 1 JAN 2020 /\nSCHEDULE\nTIME\n 2e7 /\nDATES\n 1 MAR 2020 /\n/\nTIME\n -1e9 /\n => ? => d.data:8:2: error: DATES: 2020-03-01 is not after the year 32767, which the schedule has already reached [date-order]
    d.data:10:1: error: TIME: the year 0 is before 2020-03-01, which the schedule has already reached [date-order]
TimeGoesForward: START\n 1 JUL 2020 /\nSCHEDULE\nDATES\n 30 JUN 2020 /\n 2 JUL 2020 /\n/\nTIME\n 0.5 /\n => ? => d.data:6:2: error: DATES: 2020-06-30 is not after 2020-07-01, which the schedule has already reached [date-order]
    d.data:9:1: error: TIME: 2020-07-01 12:00:00 is before 2020-07-02, which the schedule has already reached [date-order]
OneDateOutOfOrder: START\n 1 JUL 2020 /\nSCHEDULE\nDATES\n 2 JUL 2120 /\n 3 JUL 2020 /\n 4 JUL 2020 /\n/\n => ? => d.data:7:2: error: DATES: 2020-07-03 is not after 2120-07-02, which the schedule has already reached [date-order]
Scope: OPEN\nSHUT\nSHUT\nOPEN\nGRID\nOPEN\n => ? => d.data:4:1: error: SHUT has no matching opening keyword [stray-end]
    d.data:5:1: error: unclosed OPEN; expected SHUT [unclosed-scope] | add SHUT before the end of the section
    d.data:7:1: error: unclosed OPEN; expected SHUT [unclosed-scope] | add SHUT before the end of the section
DataBehindAFlag: FLAG 1\n 2\nFLAG /\nFLAG\n/\n => ? => d.data:3:2: error: unexpected '2' after FLAG; expected a keyword [stray-text]
StrayBehindData: WHOLE\n 1 /\n 2 /\n 3 /\nFLAG\n => ? => d.data:4:2: error: unexpected '2' after the data of WHOLE; expected a keyword [stray-text]
)")),
    CaseName<Row>);

TEST_F(Readings, KeepWhereThingsStand)
{
    const auto deck = Read("FLAG\n-- wells\nROWS  -- two\n 1 /\n  2 / last\n/ end\n", SimulatorType::Any);
    const Decks::DeckKeyword rows = deck.Get("ROWS");
    EXPECT_EQ(deck.GetFiles().GetText(rows.GetNameRange()), "ROWS");
    EXPECT_EQ(rows.GetText(), "ROWS  -- two\n 1 /\n  2 / last\n/");
    EXPECT_EQ(rows.GetLocation(1).line, 6U);
    EXPECT_EQ(rows.GetLocation(1).column, 3U);
    EXPECT_EQ(rows.GetLocation(2).line, 4U);
}

} // namespace

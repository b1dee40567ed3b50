#include "quor/deck/DeckFormatter.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

const std::string writerLanguage = R"(
<keyword name='RUNSPEC'/> <keyword name='INCLUDE'/> <keyword name='ENDINC'/> <keyword name='FLAG'/>
<keyword name='SKIP'/> <keyword name='ENDSKIP'/>
<keyword name='VALUES'><data><list itemsDefaultable='true'><real/></list></data></keyword>
<keyword name='FORMAT'><data><list><real><format>%.2f</format></real></list></data></keyword>
<keyword name='RECORD'><data><record termination='SLASH'>
  <item name='NAME'><string/></item>
  <item name='KIND' optional='true'><choice><values><value string='OIL'/><value string='WATER'>
    <aliases>
      <alias name='AQUA'>
        <isHiddenAlias/>
      </alias>
    </aliases></value></values></choice></item>
  <item name='A' optional='true'><integer/></item> <item name='B' optional='true'><real/></item>
  <item name='ON' optional='true'><boolean/></item>
</record></data></keyword>
<keyword name='ROWS'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='NAME'><string/></item> <item name='A' optional='true'><integer/></item>
  <item name='B' optional='true'><real/></item> <item name='C' optional='true'><integer/></item>
</record></list></data></keyword>
<keyword name='TABLE'><data><list termination='SLASH'><record termination='NONE'>
  <item name='X'><real/></item> <item name='Y'><real><default type='calculated'/></real></item>
</record></list></data></keyword>
<keyword name='LEADS'><data><list termination='SLASH'><record termination='NONE'>
  <item name='HEAD'><real/></item>
  <item name='ROWS'><list termination='SLASH'><record termination='NONE'>
    <item name='X'><real/></item> <item name='Y'><real/></item></record></list></item>
</record></list></data></keyword>
<keyword name='CLOSED'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='HEAD'><real/></item>
  <item name='ROWS'><list termination='SLASH'><record termination='NONE'>
    <item name='X'><real/></item> <item name='Y'><real/></item></record></list></item>
</record></list></data></keyword>
<keyword name='HEADED'><data><record termination='NONE'>
  <item name='HEAD'><record termination='SLASH'><item name='A'><string/></item> <item name='B' optional='true'><integer/></item></record></item>
  <item name='ROWS'><list termination='SLASH'><record termination='SLASH'>
    <item name='X'><string/></item> <item name='Y'><real/></item></record></list></item>
</record></data></keyword>
<keyword name='BESIDE'><data><list writeStartingOnNewLine='false' writeTerminationOnNewLine='true'><integer/></list></data></keyword>
<keyword name='OPEN'><data><list termination='NONE'><integer/></list></data></keyword>
<keyword name='MAP'><data><map><assignment name='A'><integer/></assignment><assignment name='B'><integer/></assignment>
  <assignment name='W*' wildcard='true'><integer/></assignment></map></data></keyword>
<keyword name='TITLE'><data><record termination='EOL'><item name='T'><line/></item></record></data></keyword>
<keyword name='EMPTY'><data><list termination='SLASH'><record termination='NONE'/></list></data></keyword>
<keyword name='RAW'><data><raw stringTermination='ENDRAW'/></data></keyword>
)";

class DeckWriting : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        table_ = std::make_unique<LoadedTable>(writerLanguage);
        language_ = std::make_unique<DeckLanguage>(*table_->operator->());
    }
    static void TearDownTestSuite()
    {
        language_.reset();
        table_.reset();
    }

    Deck Read(const std::string& text) const { return Deck::Read(folder_.Write("d.data", text), *language_); }

    static inline std::unique_ptr<LoadedTable> table_;
    static inline std::unique_ptr<DeckLanguage> language_;
    TemporaryDirectory folder_;
};

/// What is written of a deck, normalized unless the options of the row say otherwise; empty: as it was.
class Writings : public DeckWriting, public testing::WithParamInterface<Row> { };

TEST_P(Writings, AreAsExpectedAndStable)
{
    const std::string& expected = GetParam().expected.empty() ? GetParam().text : GetParam().expected;
    const FormatOptions options = FormatOptions().SetNormalized(GetParam().options != "kept");
    const auto deck = Read(GetParam().text);
    const std::string written = DeckFormatter(deck, options).FormatFile(0);
    EXPECT_EQ(written, expected);
    const auto again = Read(written);
    EXPECT_EQ(DeckFormatter(again, options).FormatFile(0), written);
}

INSTANTIATE_TEST_SUITE_P(Values, Writings, testing::ValuesIn(Rows(R"(
Repeats: VALUES\n 1 1.0 1E0 2 2 3* 4 5*6 /\n => VALUES\n  3*1   2   2  3*   4 5*6 /\n
ShortestNumbers: VALUES\n 0.10 1D-5 +3. 1e+22 123456789 -0.5E01 /\n => VALUES\n        0.1      1E-5         3      1E22 123456789        -5 /\n
AnItemsFormat: FORMAT\n 1 2.5 0.125 /\n => FORMAT\n   1.00  2.50 0.125 /\n
Words: RECORD\n "P 1" WAT 3 2.50 T /\n => RECORD\n  'P 1' WATER 3 2.5 YES /\n
NotGiven: RECORD\n 'P1' * 1* 2.5 1* /\n => RECORD\n  P1 2* 2.5 /\n
Quotes: RECORD\n "it's" /\nRECORD\n '1P' /\nRECORD\n '' /\n => RECORD\n  "it's" /\nRECORD\n  '1P' /\nRECORD\n  '' /\n
Map: MAP\n B = 2\n W1 A=1 /\n => MAP\n  A B=2 W1 /\n
Padding: RECORD\n ' P1 ' 'WAT  ' ' ' 2.5 3* /\n/\n => RECORD\n  P1 WATER 1* 2.5 /\n/\n
Remark: VALUES of it\n 1 /\n => VALUES -- of it\n  1 /\n
Variables: VALUES\n 3*$X 2 /\nRECORD\n '$NAME' * $A+1 /\nMAP\n B=$X /\n => VALUES\n  3*$X    2 /\nRECORD\n  '$NAME' 1* $A+1 /\nMAP\n  B=$X /\n
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Layout, Writings, testing::ValuesIn(Rows(R"(
Rows: ROWS\n 'P1' 1 2.25 3 /\n LONGER 100 /\n P3 1* 12.5 /\n/\n => ROWS\n  P1       1  2.25 3 /\n  LONGER 100 /\n  P3      1* 12.5  /\n/\n
ColumnsWithoutValues: ROWS\n P1 2* 3 /\n P2 * * 44 /\n/\n => ROWS\n  P1 2*  3 /\n  P2 2* 44 /\n/\n
Table: TABLE\n 1 10.5 2 9 3 *\n /\n => TABLE\n  1 10.5\n  2  9\n  3 1*   /\n
LeadingValues: LEADS\n 0.5 1 2 /\n 10 3 4\n 5 6.5 /\n/\n => LEADS\n   0.5 1 2   /\n  10   3 4\n       5 6.5 /\n/\n
RowsWithinARecord: CLOSED\n 0.5 1 2 /\n /\n 10 3 4 /\n /\n/\n => CLOSED\n  0.5\n    1 2 /\n  /\n  10\n    3 4 /\n  /\n/\n
Flags: BESIDE\n 1 2 /\n => BESIDE 1 2\n/\n
NotBesideBehindOpenData: OPEN\n 1\nBESIDE\n 1 2 /\n => OPEN\n  1\nBESIDE\n  1 2\n/\n
WindowsLineEnds: ROWS\r\n P1\r\n 1 /\r\n/\r\nFLAG\r\n => ROWS\r\n  P1 1 /\r\n/\r\nFLAG\r\n
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Comments, Writings, testing::ValuesIn(Rows(R"(
AroundRows: ROWS -- all\n-- first\n P1 1 / one\n\n  -- second\n P20 2 / -- two\n/ end\n-- next\nFLAG\n => ROWS -- all\n-- first\n  P1  1 / one\n  -- second\n  P20 2 / -- two\n/ end\n-- next\nFLAG\n
WithinARow: ROWS\n P1 -- name\n 1 -- A\n 2.50 / done\n/\n => ROWS\n  P1 -- name\n  1 -- A\n  2.5 / done\n/\n
BetweenValues: VALUES\n 3*1.0 -- layer 1\n 3*1 -- layer 2\n-- and 3\n 2 / 4\n => VALUES\n  3*1 -- layer 1\n  3*1 -- layer 2\n-- and 3\n  2 / 4\n
OfATable: TABLE\n-- x y\n 1 2 -- low\n 3 4 -- high\n/\n => TABLE\n-- x y\n  1 2 -- low\n  3 4 -- high\n/\n
BehindASlashThatIsGone: MAP\n A -- first\n B / last\n => MAP -- first\n  A B / last\n
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Kept, Writings, testing::ValuesIn(Rows(R"(
Errors: RECORD\n  P1   OLI   1 /\nVALUES\n  1   x /\nUNKNOWN\n  1   2 /\n =>
NumbersOfAMap: MAP\n  1   2*0 3 /\n =>
RawText: RAW\n  a   b -- c\nENDRAW\n =>
SkippedBlocks: VALUES\n  1   2\nSKIP\n  3   4\nENDSKIP\n  5   6 /\n =>
BlankLines: \n\n\n  -- c\n\nFLAG\n\n\n =>
NoLastLineEnd: FLAG =>
Nothing:  =>
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(LaidOut, Writings, testing::ValuesIn(Rows(R"(
Numbers (kept): VALUES\n 0.30 1.0E5\t+3. 1 1 1 1\n\n   2*0.10 0.100 -- mid\n 1D-5, 3* 7/ end\n =>
Words (kept): RECORD\n   'P1'   'oil' 03\n   2.50   T /\nBESIDE 1   2\n/\n =>
Map (kept): MAP\n B = 2\n 'W1'  A=1 -- two\n /\n =>
NoItems (kept): EMPTY\n /\n =>
Lines (kept): TITLE\n ' a '   2* / b\n =>
Variables (kept): VALUES\n 3*$X 2.0 /\nRECORD\n '$NAME' *  $A+1 /\n =>
Columns (kept): ROWS\n-- name   A\n   P1     1  2.25 3 / one\n   'P20'  *    1  3 / two\n\n   P3   10*2        / three\n/\n =>
Tables (kept): LEADS\n 0.50 1   2.0\n      10  -3    / up\n 10   100  4\n      5    6.5  /\n/\n =>
SeveralOnALine (kept): TABLE\n 1 10.5 2 9\n 3 *\n /\n =>
OverSeveralLines (kept): ROWS\n P1 -- name\n 1 -- A\n 2.50 / done\n LONGER\n 1 /\n/\n =>
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(OutOfLine, Writings, testing::ValuesIn(Rows(R"(
Rows (kept): ROWS\n P1 1 2.25 3 / one\n LONGER 100 12.5 / two\n P3 1* 7 /\n/\n => ROWS\n P1       1  2.25 3 / one\n LONGER 100 12.5 / two\n P3      1*  7 /\n/\n
BelowAHeader (kept): ROWS\n-- name   A    B\n P1       1    2.5 /\n P2 100 1 /\n/\n => ROWS\n-- name   A    B\n P1       1    2.5 /\n P2     100    1 /\n/\n
PushedApart (kept): ROWS\n--n A  B\n  P 1  2 /\n  LONGER 1 2 /\n/\n => ROWS\n--n A  B\n  P      1 2 /\n  LONGER 1 2 /\n/\n
OneOfMany (kept): ROWS\n P1   1 1.5\t/\n P2   1 2.5\t/\n P20 10 1.5\t/\n P3 1 3.5\t/\n/\n => ROWS\n P1   1 1.5\t/\n P2   1 2.5\t/\n P20 10 1.5\t/\n P3   1 3.5     /\n/\n
Repeats (kept): ROWS\n 'P1' 1* 2.250 3 -- one\n /\n P2 2*7 -- two\n /\n P3 10 2.5 3 /\n P10 2* 5 /\n/\n => ROWS\n 'P1' 1* 2.250 3 -- one\n /\n P2 2*7 -- two\n /\n P3  10 2.5 3 /\n P10 2*     5 /\n/\n
Comments (kept): ROWS\n P1 1      /   -- one\n P20 2     /   -- two\n P3 30 1.5 /   -- three\n/\n => ROWS\n P1   1     /  -- one\n P20  2     /  -- two\n P3  30 1.5 /  -- three\n/\n
Table (kept): TABLE\n-- x      y\n   1     10.5\n  2 9\n/\n => TABLE\n-- x      y\n   1     10.5\n   2      9\n/\n
LeadingValues (kept): LEADS\n 0.50 1 2.0 /\n 10 3 4\n 5 6.5 /\n/\n => LEADS\n 0.50 1 2.0 /\n 10   3 4\n      5 6.5 /\n/\n
BelowAnotherRecord (kept): HEADED\n A-LONG-NAME 1 /\n P1 2 /\n P20 10.5 /\n/\n => HEADED\n A-LONG-NAME 1 /\n P1   2 /\n P20 10.5 /\n/\n
DefaultsAndTabs (kept): ROWS\n\tP1\t10\t1.25 /\n\tP2\t1*\t2.50 /\n\tP3  3* /\n\tP4 1 3.75 /\n/\n => ROWS\n\tP1\t10\t1.25 /\n\tP2\t1*\t2.50 /\n        P3      3* /\n        P4       1      3.75 /\n/\n
FromTheFirstColumn (kept): ROWS\nP1 1 /\n P20 2 /\n/\n => ROWS\n P1  1 /\n P20 2 /\n/\n
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Untidy, Writings, testing::ValuesIn(Rows(R"(
BlanksInQuotes (kept): RECORD\n ' P1 ' AQUA 3 /\nROWS\n ' P1'   1 /\n "P20"   2 /\n/\n => RECORD\n 'P1'   AQUA 3 /\nROWS\n 'P1'    1 /\n "P20"   2 /\n/\n
BlankText (kept): RECORD\n '' ' ' 1 /\n => RECORD\n '' 1*  1 /\n
DefaultsBeyondTheEnd (kept): ROWS\n P1 2* 5 4* / two\n P2 1 2.5 2* /\n/\n => ROWS\n P1 2*    5 / two\n P2 1 2.5 1* /\n/\n
QuotedAssignment (kept): MAP\n B = 2 'A = 3' / all\n => MAP\n B = 2 A=3 / all\n
Remark (kept): VALUES of it\n 1 /\nROWS too\n P1 /\n/\n => VALUES -- of it\n 1 /\nROWS -- too\n P1 /\n/\n
WindowsLineEnds (kept): RECORD\r\n 'P1 ' OIL\r\n /\r\n => RECORD\r\n 'P1'  OIL\r\n /\r\n
)")),
    CaseName<Row>);

TEST_F(DeckWriting, BreaksALongListIntoLines)
{
    std::string text = "VALUES\n";
    for (int i = 0; i < 30; ++i)
        text += " 1000" + std::to_string(i + 100);
    const auto deck = Read(text + " /\n");
    EXPECT_EQ(DeckFormatter(deck, FormatOptions().SetNormalized(true)).FormatFile(0), R"(VALUES
  1000100 1000101 1000102 1000103 1000104 1000105 1000106 1000107 1000108 1000109 1000110 1000111
  1000112 1000113 1000114 1000115 1000116 1000117 1000118 1000119 1000120 1000121 1000122 1000123
  1000124 1000125 1000126 1000127 1000128 1000129 /
)");
}

TEST_F(DeckWriting, AlignsFiveHundredRowsWithOneAnother)
{
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "  P 1 /\n";
    const auto deck = Read("ROWS\n" + text + "LONGER 1 /\n/\n");
    EXPECT_EQ(DeckFormatter(deck, FormatOptions().SetNormalized(true)).FormatFile(0),
        "ROWS\n" + text + "  LONGER 1 /\n/\n");
}

TEST_F(DeckWriting, PutsIncludedFilesInTheirPlaces)
{
    folder_.Write("a.inc", "VALUES\n 1 1 1 /\nINCLUDE\n 'b.inc' /\nENDINC\nleft out\n");
    folder_.Write("b.inc", "ROWS\n P1 1");
    const auto deck = Read("FLAG\nINCLUDE -- values\n 'a.inc' / and rows\n 2 /\n/\nFLAG\n");
    DeckFormatter formatter(deck, FormatOptions().SetNormalized(true));
    EXPECT_EQ(
        formatter.FormatAll(), "FLAG\n-- values\n-- and rows\nVALUES\n  3*1 /\nROWS\n P1 1\n 2 /\n/\nFLAG\n");
    EXPECT_EQ(formatter.FormatFile(0), "FLAG\nINCLUDE -- values\n 'a.inc' / and rows\n 2 /\n/\nFLAG\n");
    EXPECT_EQ(formatter.FormatFile(1), "VALUES\n  3*1 /\nINCLUDE\n 'b.inc' /\nENDINC\nleft out\n");
}

} // namespace

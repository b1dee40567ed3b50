#include "quor/deck/Finding.h"

#include "quor/deck/Deck.h"
#include "quor/deck/DeckSource.h"
#include "tests/deck/EditorLanguage.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

struct FixRow {
    const char* name;
    const char* code;
    const char* deck; ///< after its first line
    const char* fixed; ///< empty: the fix isn't certain
};

class Fixes : public testing::TestWithParam<FixRow> { };

/// The text after a first line with RUNSPEC.
Deck ReadStrict(const std::string& text)
{
    return Deck::ReadText("RUNSPEC\n" + text, GetEditorLanguage(), ReadOptions().SetStrict(true));
}

/// The deck with the fixes of all its findings.
std::string Fixed(const Deck& deck)
{
    std::vector<TextEdit> edits;
    for (const Finding& finding : deck.GetFindings())
        edits.insert(edits.end(), finding.fix.begin(), finding.fix.end());
    return edits.empty() ? std::string() : ApplyEdits(deck.GetFiles().GetText(0), edits).substr(8);
}

TEST_P(Fixes, LeaveNoFinding)
{
    const Deck deck = ReadStrict(GetParam().deck);
    for (const Finding& finding : deck.GetFindings())
        EXPECT_EQ(finding.code, GetParam().code) << finding.message;
    EXPECT_FALSE(deck.IsClean());
    const std::string fixed = Fixed(deck);
    EXPECT_EQ(fixed, GetParam().fixed);
    EXPECT_EQ(Dump(ReadStrict(fixed).GetFindings(), {}), "");
}

const FixRow keywordRows[] = {
    {"LowerCase", "lower-case", "Flag\nfixed\n 1 /\n 2 /\n", "FLAG\nFIXED\n 1 /\n 2 /\n"},
    {"SwappedLetters", "unknown-keyword", "RWOS\n 1 /\n/\n", "ROWS\n 1 /\n/\n"},
    {"MissingLetter", "unknown-keyword", "-- c\nFLG -- c\n", "-- c\nFLAG -- c\n"},
    {"UnlikeAny", "unknown-keyword", "SOMETHIN\n 1 /\n", ""}, {"TooFar", "unknown-keyword", "FLXX\n", ""},
    {"NearToEnd", "unknown-keyword", "FLAG\nENX\n", ""},
    {"Indented", "indented-keyword", "FLAG\n  ROWS\n 1 /\n/\n", "FLAG\nROWS\n 1 /\n/\n"},
    {"TextAfterAKeyword", "remark-text", "FLAG it's 1 / -- c\n-- d\n\nFLAG\n",
        "FLAG -- it's 1 / -- c\n-- d\n\nFLAG\n"},
    {"TextAfterTheLast", "remark-text", "FLAG 1", "FLAG -- 1"},
    {"ExtraSlash", "extra-slash", "WHOLE\n 1 /\n / -- c\nFLAG\n", "WHOLE\n 1 /\nFLAG\n"},
    {"TextAfterData", "stray-text", "WHOLE\n 1 /\n 2 /\n", ""},
    {"Backslash", "stray-text", "WHOLE\n 1 \\\nFLAG\n", "WHOLE\n 1 /\nFLAG\n"},
    {"Endskip", "stray-endskip", "FLAG\nENDSKIP -- c\nFLAG\n", "FLAG\nFLAG\n"},
    {"EndskipInData", "stray-endskip", "WHOLE\n 1\nENDSKIP\n 2 /\n", "WHOLE\n 1\n 2 /\n"}};

INSTANTIATE_TEST_SUITE_P(Keywords, Fixes, testing::ValuesIn(keywordRows), CaseName<FixRow>);

const FixRow valueFixes[] = {{"Abbreviation", "abbreviated-word", "WELLS\n P1 WAT /\n 'P2' 'wa' / c\n/\n",
                                 "WELLS\n P1 WATER /\n 'P2' 'WATER' / c\n/\n"},
    {"Deprecated", "deprecated-word", "WELLS\n P1 1*AQUA /\n/\n", "WELLS\n P1 1*WATER /\n/\n"},
    {"Padding", "padded-text", "NAMES\n 2*' A ' /\n", "NAMES\n 2*'A' /\n"},
    {"PaddedText", "padded-text", "WELLS\n ' P1 ' \"OIL  \" /\n/\n", "WELLS\n 'P1' \"OIL\" /\n/\n"},
    {"BlankText", "blank-text", "WELLS\n P1 OIL ' ' /\n/\n", "WELLS\n P1 OIL 1* /\n/\n"},
    {"NameAndValue", "quoted-assignment", "MAP\n 'A = 2' /\n", "MAP\n A=2 /\n"},
    {"CurlyQuote", "odd-character", "NAMES\n A \xE2\x80\x98P' /\n", "NAMES\n A 'P' /\n"},
    {"Remark", "text-after-keyword", "WHOLE of it\n 1 /\n", "WHOLE -- of it\n 1 /\n"},
    {"QuoteBeforeASlash", "unclosed-quote", "WELLS\n 'P1 /\n/\n", "WELLS\n 'P1' /\n/\n"},
    {"QuoteAtTheEndOfALine", "unclosed-quote", "NAMES\n 2*\"A -- c\n B /\n", "NAMES\n 2*\"A\" -- c\n B /\n"},
    {"QuoteBeforeOthers", "unclosed-quote", "WELLS\n 'P1 OIL /\n/\n", ""},
    {"Unopened", "unclosed-quote", "NAMES\n A'\n 2*B' /\n", "NAMES\n 'A'\n 2*'B' /\n"},
    {"UnopenedAfterOthers", "unclosed-quote", "NAMES\n A B' /\n", ""}};

INSTANTIATE_TEST_SUITE_P(Values, Fixes, testing::ValuesIn(valueFixes), CaseName<FixRow>);

const FixRow endRows[] = {{"Record", "unclosed-data", "BOX\n 1 2 -- c\nFLAG\n", "BOX\n 1 2 / -- c\nFLAG\n"},
    {"Values", "unclosed-data", "WHOLE\n 1 2", "WHOLE\n 1 2 /"},
    {"ListOfRecords", "unclosed-list", "ROWS\n 1 /\n 2 / c\n-- d\nFLAG\n",
        "ROWS\n 1 /\n 2 / c\n/\n-- d\nFLAG\n"},
    {"LastRecordAndList", "unclosed-data", "ROWS\n 1 /\n 2 -- c\nFLAG\n", "ROWS\n 1 /\n 2 / -- c\n/\nFLAG\n"},
    {"LastRecordAndListAtTheEnd", "unclosed-data", "ROWS\n 2 3\nFLAG\n", "ROWS\n 2 3 /\n/\nFLAG\n"},
    {"SlashOfTheList", "unclosed-data", "ROWS\n 1 /\n 2\n/\nFLAG\n", "ROWS\n 1 /\n 2 /\n/\nFLAG\n"},
    {"RecordBeforeAnother", "unclosed-data", "WELLS\n P1 OIL\n P2 OIL 2 /\n/\n",
        "WELLS\n P1 OIL /\n P2 OIL 2 /\n/\n"},
    {"LastOfAFixedNumber", "unclosed-data", "FIXED\n 1 /\n 2\nFLAG\n", "FIXED\n 1 /\n 2 /\nFLAG\n"},
    {"WindowsLines", "unclosed-list", "ROWS\r\n 1 /\r\nFLAG\r\n", "ROWS\r\n 1 /\r\n/\r\nFLAG\r\n"},
    {"NothingThere", "unclosed-data", "WHOLE\nFLAG\n", ""},
    {"NamesOfAMap", "unclosed-data", "MAP\n A\nFLAG\n", ""},
    {"ValueIsMissingToo", "unclosed-data", "START\n 1 JAN\nFLAG\n", ""},
    {"TableInAList", "unclosed-data", "TABLES\n 1 2 /\n 3 4\nFLAG\n", ""}};

INSTANTIATE_TEST_SUITE_P(Ends, Fixes, testing::ValuesIn(endRows), CaseName<FixRow>);

TEST(FixesOfFiles, AreGivenOnceForAFileThatIsIncludedTwice)
{
    const auto source = std::make_shared<MemorySource>();
    source->Set("a.inc", "Flag\n");
    source->Set("d.data", "RUNSPEC\nINCLUDE\n 'a.inc' /\nINCLUDE\n 'a.inc' /\n");
    const Deck deck = Deck::Read("d.data", GetEditorLanguage(), ReadOptions().SetSource(source));
    const auto& findings = deck.GetFindings().GetKept();
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[0].fix.size(), 1U);
    EXPECT_EQ(findings[1].fix.size(), 0U);
}

} // namespace

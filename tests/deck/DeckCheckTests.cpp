#include "quor/deck/Deck.h"

#include "quor/deck/DeckSource.h"
#include "quor/deck/internal/check/FindingCollector.h"
#include "tests/deck/FindingText.h"
#include "tests/deck/Language.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

using Files = std::vector<std::pair<std::string, std::string>>; // name, text

const DeckLanguage& SmallLanguage()
{
    static const DeckLanguage language(SmallTable());
    return language;
}

/// A deck in a folder of its own.
class DeckOnDisk {
public:
    explicit DeckOnDisk(const std::string& text, const Files& files = {})
        : path_(folder_.Write("d.data", text))
    {
        for (const auto& [name, content] : files)
            folder_.Write(name, content);
    }

    Deck Read(const ReadOptions& options = {}) const { return Deck::Read(path_, SmallLanguage(), options); }
    /// The same also where the ranges of values are kept, so that no word is read in a short way.
    std::string FindingsOf(const ReadOptions& options = {}) const
    {
        std::string findings = Dump(Read(options).GetFindings(), folder_.Path());
        const Deck editable = Read(ReadOptions(options).SetEditable(true));
        EXPECT_EQ(Dump(editable.GetFindings(), folder_.Path()), findings);
        return findings;
    }
    const std::filesystem::path& Folder() const { return folder_.Path(); }

private:
    TemporaryDirectory folder_;
    std::string path_;
};

std::string Repeat(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// From "Carrow", "Dunmere BlackOil" or "Any Thermal"; empty and "Strict": any.
Target TargetOf(const std::string& text)
{
    const auto words = Split(text, " ");
    Target target;
    if (!words[0].empty() && words[0] != "Any" && words[0] != "Strict")
        target.simulator = SimulatorType::FromString(words[0]);
    if (words.size() > 1)
        target.mode = SimulatorModeType::FromString(words[1]);
    return target;
}

/// A deck and the files that it includes, `deck & file=text & ...`, and the findings, as a user sees them;
/// the option is a target, or "Strict".
class Decks : public testing::TestWithParam<Row> { };

TEST_P(Decks, HaveTheseFindingsAndNoOthers)
{
    const auto texts = Split(GetParam().text, " & ");
    Files files;
    for (auto file = texts.begin() + 1; file != texts.end(); ++file)
        files.emplace_back(file->substr(0, file->find('=')), file->substr(file->find('=') + 1));
    const auto options =
        ReadOptions().SetTarget(TargetOf(GetParam().options)).SetStrict(GetParam().options == "Strict");
    EXPECT_EQ(DeckOnDisk(texts[0], files).FindingsOf(options), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Bytes, Decks, testing::ValuesIn(Rows(R"(
Empty: -- nothing\n => d.data:1:1: error: the deck has no keywords [no-section] | start the deck with section RUNSPEC
NoLastLineEnd: RUNSPEC\nWATR => d.data:2:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
WindowsLineEnds: RUNSPEC\r\nOIL\r\nWATR\r\n => d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
ByteOrderMark: \xEF\xBB\xBFRUNSPEC\nOIL\n =>
WideCharacters: \xFF\xFER\0U\0 => d.data:1:1: error: unsupported file encoding UTF-16 [encoding] | save the file as plain text or UTF-8
TabsAndComments: RUNSPEC\t-- first\nOIL--last\nWATR \t /\t-- x\nWATR\t\n => d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
    d.data:4:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
ZeroBytes: RUNSPEC\n 1 \0 /\nOIL\0\nWATER\n => d.data:2:2: error: unexpected '1' after RUNSPEC; expected a keyword [stray-text]
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Recognition, Decks, testing::ValuesIn(Rows(R"(
NumberBeforeTheFirstKeyword:  1 2\nRUNSPEC\n => d.data:1:2: error: unexpected '1' before the first keyword; expected a keyword [stray-text]
IndentedKeywords:  RUNSPEC\n  OIL\n\tGRID ---\n PORO 1 /\n INCLUDE 'a.inc' /\n & a.inc= PORO\n 1 /\n =>
IndentedWordOfAnotherSection: RUNSPEC\n PORO 1 2 /\n => d.data:2:2: error: unexpected 'PORO' after RUNSPEC; expected a keyword [stray-text] | write the keyword on its own line
IndentedWordBeforeASlash: SUMMARY\nWBHP\n A /\n TIME /\n => d.data:4:2: error: unexpected 'TIME' after the data of WBHP; expected a keyword [stray-text] | write the keyword on its own line
RemarksAfterKeywords: RUNSPEC ===\nOIL it's 1 / -- c\nWATER\tphase\n/\nGRID    'x\nPORO\n 1 /\nSCHEDULE 2 * 3\n =>
KeywordsOnOneLine: RUNSPEC\nOIL WATER -- both\n => d.data:2:5: error: unexpected 'WATER -- both' after OIL; expected the end of the line [stray-text] | write each keyword on its own line
SectionEndsOpenData: RUNSPEC\nGRID\nPORO\n 1 2\nSCHEDULE ====\nDATES\n A /\n => d.data:4:5: error: PORO: missing slash at the end of the list [unclosed-data] | add a slash after the last value
NameThatBeginsAsASection: SCHEDULE\nDATES\nGRID=2\nGRID'S /\n =>
SectionEndsDataOfAnUnknownKeyword: RUNSPEC\nQXZQXZ\n 1 2\nGRID ====\nPORO\n 1 /\n => d.data:2:1: error: unknown keyword 'QXZQXZ' [unknown-keyword]
NamesOfKeywordsInDataOfAnUnknownKeyword: RUNSPEC\nQXZQXZ\nPORO 2 /\nPERMX /\nPORO /\n/\nOIL\n => d.data:2:1: error: unknown keyword 'QXZQXZ' [unknown-keyword]
SlashesTooMany: RUNSPEC\nDIMENS\n 1 /\n/\n / c\nOIL\n/\n =>
CharactersOfNames: RUNSPEC\nQX+#&_-9\n => d.data:2:1: error: unknown keyword 'QX+#&_-9' [unknown-keyword]
UnknownWithDataBehind: RUNSPEC\nWATR 1 /\n 2 /\n => d.data:2:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
UnknownBehindKeywordWithoutData: RUNSPEC\nOIL\nWATR\n => d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
UnknownBehindClosedData: RUNSPEC\nDIMENS\n 1 1\n 1 / cells\n\n-- c\nWATR\n => d.data:7:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
UnknownInOpenDataIsData: SCHEDULE\nDATES\n 1 JAN\nXYZ\n 1999 /\n =>
SlashInQuotesDoesNotClose: SCHEDULE\nDATES\n 'a/b'\nXYZ\n => d.data:4:4: error: DATES: missing slash at the end of the list [unclosed-data] | add a slash after the last value
SlashInCommentDoesNotClose: SCHEDULE\nDATES\n 1 -- a/b\nXYZ\n => d.data:4:4: error: DATES: missing slash at the end of the list [unclosed-data] | add a slash after the last value
NameBeforeSlashIsData: SUMMARY\nWBHP\nPROD /\n/\n =>
KnownInOpenDataIsKeyword: SCHEDULE\nDATES\n 1 JAN\nPORO\n 1 /\n => d.data:3:7: error: DATES: missing slash at the end of the list [unclosed-data] | add a slash after the last value
    d.data:4:1: error: PORO is not valid in section SCHEDULE (valid in GRID) [wrong-section]
LongAliasOfAKeyword: RUNSPEC\nGRID\nPERMEABILITY\nPERMEABILITYX\n => d.data:4:1: error: unknown keyword 'PERMEABILITYX' [unknown-keyword] | did you mean PERMEABILITY?
LongNameOfAKeyword: RUNSPEC\nGRID\nSCHEDULE\nWCONHISTS\nWELSPECSX /\nINCLUDED\n => d.data:4:1: warning: keyword 'WCONHISTS' has more than 8 characters and is read as WCONHIST [long-keyword] | write WCONHIST
    d.data:5:1: warning: keyword 'WELSPECSX' has more than 8 characters and is read as WELSPECS [long-keyword] | write WELSPECS
    d.data:6:1: error: unknown keyword 'INCLUDED' [unknown-keyword] | did you mean INCLUDE?
WordThatBeginsAsAKeyword: RUNSPEC\nschedule.inc\nOIL\n => d.data:2:1: error: unexpected 'schedule' after RUNSPEC; expected a keyword [stray-text]
LongNameDoesNotMatchWildcard: SUMMARY\nFUWELL\nFUNNYNAME\n => d.data:3:1: error: unknown keyword 'FUNNYNAME' [unknown-keyword] | keyword names have at most 8 characters
LowerCaseIsToldOnce: RUNSPEC\nOIL\nGrid\nPORO\n 1 /\nporo\n 1 /\n => d.data:3:1: error: keyword 'Grid' is not in upper case [lower-case] | write GRID
    d.data:6:1: error: keyword 'poro' is not in upper case [lower-case] | write PORO
LowerCaseInOpenDataIsData: SCHEDULE\nDATES\n 1 JAN\noil\n 1999 /\n =>
LowerCaseInclusionIsRead: RUNSPEC\ninclude 'a.inc' /\n & a.inc=OLI\n => d.data:2:1: error: keyword 'include' is not in upper case [lower-case] | write INCLUDE
    a.inc:1:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL? <- d.data:2:1
MisspeltInclusionIsRead: RUNSPEC\nINCLDUE\n 'a.inc' /\n & a.inc=OLI\n => d.data:2:1: error: unknown keyword 'INCLDUE' [unknown-keyword] | did you mean INCLUDE?
    a.inc:1:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL? <- d.data:2:1
OrdinaryTextIsData: RUNSPEC\nTITLE\nx\nsome\nOIL\n => d.data:4:1: error: unexpected 'some' after the data of TITLE; expected a keyword [stray-text]
TitleMayBeAKeyword: RUNSPEC\nTITLE\nGRID\nOIL\n =>
TitleMayFollowBlankLines: RUNSPEC\nTITLE\n\n \nSTUDY\nWATR\n => d.data:6:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
KeywordAfterABlankLineIsNoTitle: RUNSPEC\nTITLE\n\nOIL\nWATR\n => d.data:5:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
KeywordOfNumbersIsNoTitle: RUNSPEC\nTITLE\nDIMENS\n-- c\n 1 2 /\nWATR\n => d.data:3:1: error: missing text before keyword DIMENS [too-few-values] | write the text on the line before the keyword
    d.data:6:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
TitleMayFollowAComment: RUNSPEC\nTITLE\n-- c\nSTUDY\nWATR\n => d.data:5:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
KeywordBehindCommentIsNoTitle: RUNSPEC\nTITLE\n-- c\nOIL\nWATR\n => d.data:5:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
RawTextIsPassedOver: RUNSPEC\nHOSTDATA\nWATR\nGRID\nEND\nendhost of it\nOIL\nWATR\n => d.data:8:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
RawTextEndsWithAWholeWord: RUNSPEC\nHOSTDATA\nENDHOST1\nWATR\nENDHOST\nOIL\n =>
RawTextMustEnd: RUNSPEC\nHOSTDATA\nOIL\n => d.data:2:1: error: HOSTDATA: missing EndHost at the end of the text [unclosed-text] | add EndHost at the start of a line
ListEndsWithItsWord: SCHEDULE\nUNTIL\n a b\nSTOP\nWATR\n => d.data:5:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
BareNamesInAListAreData: SUMMARY\nWBHP\nP1\nP2\n/\nWATR\n => d.data:6:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Strict, Decks, testing::ValuesIn(Rows(R"(
Remark (Strict): RUNSPEC\nOIL  is a phase -- c\n => d.data:2:6: warning: the text after OIL is a remark without '--' [remark-text] | write '--' before the text
Slash (Strict): RUNSPEC\nDIMENS\n 1 /\n/\nOIL\n/\n => d.data:4:1: warning: unexpected '/' after the data of DIMENS; expected a keyword [extra-slash] | remove the slash
PaddedText (Strict): SCHEDULE\nDATES\n 2*'A ' "B" /\n => d.data:3:2: warning: blanks around the text 'A' [padded-text] | remove the blanks
Indented (Strict): RUNSPEC\n  OIL\n => d.data:2:3: warning: keyword OIL is indented [indented-keyword] | start the keyword in the first column
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Sections, Decks, testing::ValuesIn(Rows(R"(
NoneIsToldOnce: OIL\nWATER\nGRID\nPORO\n 1 /\n => d.data:1:1: error: OIL is before the first section [no-section] | start the deck with section RUNSPEC
ValidEverywhereNeedsNone: ECHO\nSKIP\nENDSKIP\nRUNSPEC\n =>
OutOfOrder: RUNSPEC\nPROPS\nGRID\nPORO\n 1 /\nREGIONS\n => d.data:3:1: error: section GRID must come before section PROPS [section-order] | move section GRID before section PROPS
Repeated: RUNSPEC\nGRID\nGRID\nPORO\n 1 /\n => d.data:3:1: error: section GRID is repeated [section-order] | section GRID starts at d.data:2
WrongSection: RUNSPEC\nGRID\nDATES\n 1 JAN 1999 /\n => d.data:3:1: error: DATES is not valid in section GRID (valid in SCHEDULE) [wrong-section] | move DATES to section SCHEDULE, or add the missing keyword SCHEDULE before it
MisspeltLine: RUNSPEC\nGIRD\nPORO\n 1 /\n => d.data:2:1: error: unknown keyword 'GIRD' [unknown-keyword] | did you mean GRID?
MissingLineIsToldOnce: RUNSPEC\nPORO\n 1 /\nPORO\n 1 /\nWELSPECS\nPROPS\nPORO\n 1 /\n => d.data:2:1: error: PORO is not valid in section RUNSPEC (valid in GRID) [wrong-section] | move PORO to section GRID, or add the missing keyword GRID before it
    d.data:6:1: error: WELSPECS is not valid in section GRID (valid in SCHEDULE) [wrong-section] | move WELSPECS to section SCHEDULE, or add the missing keyword SCHEDULE before it
    d.data:8:1: error: PORO is not valid in section PROPS (valid in GRID) [wrong-section]
BackFromAMissingLine: RUNSPEC\nPORO\n 1 /\nPORO\n 1 /\nOIL\nPORO\n 1 /\n => d.data:2:1: error: PORO is not valid in section RUNSPEC (valid in GRID) [wrong-section] | move PORO to section GRID, or add the missing keyword GRID before it
    d.data:7:1: error: PORO is not valid in section RUNSPEC (valid in GRID) [wrong-section] | move PORO to section GRID, or add the missing keyword GRID before it
AliasInItsSection: GRID\nPERMR\nKX\n =>
SeveralDefinitions: GRID\nTIME\nSUMMARY\nTIME\nSCHEDULE\nTIME\n => d.data:2:1: error: TIME is not valid in section GRID (valid in SUMMARY, SCHEDULE) [wrong-section]
WildcardInItsSection: GRID\nFUXX\nSUMMARY\nFUXX\n => d.data:2:1: error: FUXX is not valid in section GRID (valid in SUMMARY) [wrong-section] | move FUXX to section SUMMARY, or add the missing keyword SUMMARY before it
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Targets, Decks, testing::ValuesIn(Rows(R"(
None: RUNSPEC\nPARALLEL\n /\nCOMPS\n /\nGRID\nSPLIT\n /\nPROPS\nSPLIT\n /\n =>
Carrow (Carrow): RUNSPEC\nPARALLEL\n /\nCOMPS\n /\nGRID\nSPLIT\n /\nPROPS\nSPLIT\n /\n => d.data:2:1: error: PARALLEL is not valid for Carrow [wrong-simulator] | valid simulators: Dunmere
    d.data:10:1: error: SPLIT is not valid in section PROPS (valid in GRID) [wrong-section]
Dunmere (Dunmere): RUNSPEC\nPARALLEL\n /\nCOMPS\n /\nGRID\nSPLIT\n /\nPROPS\nSPLIT\n /\n => d.data:7:1: error: SPLIT is not valid in section GRID (valid in PROPS) [wrong-section] | move SPLIT to section PROPS, or add the missing keyword PROPS before it
DunmereBlackOil (Dunmere BlackOil): RUNSPEC\nPARALLEL\n /\nCOMPS\n /\nGRID\nSPLIT\n /\nPROPS\nSPLIT\n /\n => d.data:4:1: error: COMPS is not valid for Dunmere in mode BlackOil [wrong-mode] | valid modes: Compositional
    d.data:7:1: error: SPLIT is not valid in section GRID (valid in PROPS) [wrong-section] | move SPLIT to section PROPS, or add the missing keyword PROPS before it
ModeAlone (Any Thermal): RUNSPEC\nPARALLEL\n /\nCOMPS\n /\nGRID\nSPLIT\n /\nPROPS\nSPLIT\n /\n => d.data:4:1: error: COMPS is not valid for mode Thermal [wrong-mode] | valid modes: BlackOil, Compositional
    d.data:7:1: error: SPLIT is not valid for mode Thermal [wrong-mode] | valid modes: BlackOil
WrongSectionHidesWrongSimulator (Carrow): GRID\nPARALLEL\n /\n => d.data:2:1: error: PARALLEL is not valid in section GRID (valid in RUNSPEC) [wrong-section]
SectionForTheSimulator (Carrow): PROPS\nSPLIT\n /\n => d.data:2:1: error: SPLIT is not valid in section PROPS (valid in GRID) [wrong-section]
ValidNowhere: GRID\nNOWHERE\n => d.data:2:1: error: NOWHERE is not valid in any section [wrong-section]
SectionOfOtherSimulator (Carrow): RUNSPEC\nOPTIMIZE\n => d.data:2:1: error: OPTIMIZE is not valid for Carrow [wrong-simulator] | valid simulators: Dunmere
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Inclusions, Decks, testing::ValuesIn(Rows(R"(
NameOnTheNextLine: RUNSPEC\nINCLUDE\n-- c\n\n 'a.inc' /\nWATR\n & a.inc=OLI\n => a.inc:1:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL? <- d.data:2:1
    d.data:6:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
NameOnTheSameLine: RUNSPEC\nINCLUDE "a b.inc" /\n & a b.inc=OLI => a b.inc:1:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL? <- d.data:2:1
BareName: RUNSPEC\nINCLUDE\nsub/a.inc/\n & sub/a.inc=OLI\n => sub/a.inc:1:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL? <- d.data:2:1
BareNameInAList: SCHEDULE\nDATES\n A\nINCLUDE\na.inc/\n/\nWELSPECS\n & a.inc= B\n =>
SlashBelowTheName (Strict): RUNSPEC\nINCLUDE\n'a.inc'\n\n-- c\n / end\nWATER\n/\nINCLUDE 'a.inc'\n/\n & a.inc=DIMENS\n 1 /\n =>
SlashBelowTheNameInAList (Strict): SCHEDULE\nDATES\n A\nINCLUDE\n'a.inc'\n/\n C /\n & a.inc= B\n =>
FromTheFolderOfTheDeck: RUNSPEC\nINCLUDE\n'sub/a.inc' /\n & sub/a.inc=INCLUDE\n'sub/b.inc' /\n & sub/b.inc=OLI\n => sub/b.inc:1:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL? <- sub/a.inc:1:1 <- d.data:2:1
SectionsGoOnBehind: RUNSPEC\nINCLUDE\n'a.inc' /\nPORO\n 1 /\nOIL\n & a.inc=GRID\n => d.data:6:1: error: OIL is not valid in section GRID (valid in RUNSPEC) [wrong-section]
OpenDataGoOnInside: GRID\nPORO\n 1 2\nINCLUDE\n'a.inc' /\n 5 /\nXX\n & a.inc=XX\n 3 4\n => a.inc:1:1: error: PORO: invalid value 'XX'; expected a whole number [wrong-type] <- d.data:4:1
    d.data:7:1: error: unknown keyword 'XX' [unknown-keyword]
EndOfTheFile: RUNSPEC\nINCLUDE\n'a.inc' /\nWATR\n & a.inc=OIL\nENDINC\nOLI\n => d.data:4:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
EndInside: RUNSPEC\nINCLUDE\n'a.inc' /\nWATR\n & a.inc=OIL\nEND\nOLI\n =>
EndIsTheEnd: RUNSPEC\nOIL\nEND\nWATR\nSKIP\n =>
EndOfTheFileInTheDeck: RUNSPEC\nENDINC\nWATR\n => d.data:2:1: warning: ENDINC has no effect outside an included file [stray-endinc] | use END to end the deck
    d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
Missing: RUNSPEC\nINCLUDE\n  'none.inc' /\n => d.data:3:3: error: can't read 'none.inc': No such file or directory [include-missing] | a relative name starts from the folder of the deck
InAnotherSpelling: RUNSPEC\nINCLUDE 'SUB/a.INC' /\n & sub/a.inc=OIL\n => d.data:2:9: error: can't read 'SUB/a.INC': No such file or directory [include-missing] | did you mean 'sub/a.inc'?
Folder: RUNSPEC\nINCLUDE '/'\n => d.data:2:9: error: can't read '/': it is a folder, not a file [include-missing]
EndlessDevice: RUNSPEC\nINCLUDE '/dev/zero' /\n => d.data:2:9: error: can't read '/dev/zero': it is not a regular file [include-missing]
ZeroByteInName: RUNSPEC\nINCLUDE 'a\0b' /\n => d.data:2:9: error: can't read 'a?b': the name contains a zero byte [include-missing] | a relative name starts from the folder of the deck
MissingMayHaveHeldSections: RUNSPEC\nINCLUDE 'x' /\nPORO\n 1 /\nPROPS\nPORO\n => d.data:2:9: error: can't read 'x': No such file or directory [include-missing] | a relative name starts from the folder of the deck
    d.data:6:1: error: PORO is not valid in section PROPS (valid in GRID) [wrong-section]
AliasIsToldOnce: RUNSPEC\nINCLUDE '$DIR/x.inc' /\nINCLUDE '$DIR/y.inc' /\n => d.data:2:9: error: unknown path alias '$DIR' in '$DIR/x.inc' [unknown-alias] | define the alias with PATHS
NoName: RUNSPEC\nINCLUDE\nOIL\nINCLUDE /\nINCLUDE\n => d.data:2:1: error: missing name of the included file [include-name] | write the name in quotes, followed by a slash
    d.data:4:1: error: missing name of the included file [include-name] | write the name in quotes, followed by a slash
    d.data:5:1: error: missing name of the included file [include-name] | write the name in quotes, followed by a slash
OpenQuote: RUNSPEC\nINCLUDE 'a.inc /\n => d.data:2:9: error: unclosed quote in the name of the included file [include-name] | add a closing quote on the same line
Loop: RUNSPEC\nINCLUDE 'a.inc' /\nWATR\n & a.inc=INCLUDE './sub/../d.data'\n & sub/x= => a.inc:1:9: error: file './sub/../d.data' includes itself [include-loop] <- d.data:2:1
    d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
TwiceIsNoLoop: RUNSPEC\nINCLUDE 'a.inc' /\nINCLUDE 'a.inc' /\n & a.inc=OIL\n =>
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(SkippedBlocks, Decks, testing::ValuesIn(Rows(R"(
PassedOver: RUNSPEC\nSKIP\nWATR\nGRID\nINCLUDE\n'x'\nEND\nENDSKIP\nOLI\n => d.data:9:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
Counted: RUNSPEC\nSKIP\nSKIPDUN\nENDSKIP\nWATR\nENDSKIP\nOLI\n => d.data:7:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
OfNoSimulatorAskedFor: RUNSPEC\nSKIPCAR\nWATR\nENDSKIP\n => d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
OfTheSimulator (Carrow): RUNSPEC\nSKIPCAR\nWATR\nENDSKIP\nOLI\n => d.data:5:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
OfAnotherSimulator (Dunmere): RUNSPEC\nSKIPCAR\nWATR\nENDSKIP\nSKIPDUN\nWATR\nENDSKIP\n => d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
InsideABlockThatIsRead (Dunmere): RUNSPEC\nSKIPCAR\nSKIP\nWATR\nENDSKIP\nOLI\nENDSKIP\n => d.data:6:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
Unclosed: RUNSPEC\nSKIP\nSKIP\nENDSKIP\nWATR\n => d.data:2:1: error: unclosed SKIP; expected ENDSKIP in the same file [unclosed-skip] | add ENDSKIP after the block
UnclosedAtTheEnd: RUNSPEC\nSKIPCAR\nEND\n => d.data:2:1: error: unclosed SKIPCAR; expected ENDSKIP in the same file [unclosed-skip] | add ENDSKIP after the block
Stray: RUNSPEC\nENDSKIP\nOIL\n => d.data:2:1: error: ENDSKIP has no matching opening keyword in this file [stray-endskip]
EndsInItsFile: RUNSPEC\nINCLUDE 'a.inc' /\nENDSKIP\n & a.inc=SKIP\n => a.inc:1:1: error: unclosed SKIP; expected ENDSKIP in the same file [unclosed-skip] | add ENDSKIP after the block <- d.data:2:1
    d.data:3:1: error: ENDSKIP has no matching opening keyword in this file [stray-endskip]
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Suppressions, Decks, testing::ValuesIn(Rows(R"(
OnItsLine: RUNSPEC\nWATR -- quor: off unknown-keyword\nOLI\n => d.data:3:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
OnTheNextLine: RUNSPEC\n  --quor: off\n\n-- c\nWATR\nOLI\n => d.data:6:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
SeveralForOneLine: RUNSPEC\n-- quor: off unknown-keyword\n-- quor: off stray-text\nWATR\n =>
OtherCodeIsReported: RUNSPEC\nWATR -- quor: off wrong-section, stray-text\n => d.data:2:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
ARegion: RUNSPEC\n-- quor: begin-off wrong-section,unknown-keyword -- later\nWATR\nPORO\n 1 /\noil\n-- quor: end-off wrong-section\nWATR\nPORO\n 1 /\n-- quor: end-off\nWATR\n => d.data:6:1: error: keyword 'oil' is not in upper case [lower-case] | write OIL
    d.data:9:1: error: PORO is not valid in section RUNSPEC (valid in GRID) [wrong-section] | move PORO to section GRID, or add the missing keyword GRID before it
    d.data:12:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
OfOneFile: RUNSPEC\nINCLUDE 'a.inc' /\nWATR\n & a.inc=-- quor: begin-off\nWATR\n-- quor: end-off\n => d.data:3:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
WindowsLineEnds: RUNSPEC\r\nWATR -- quor: off unknown-keyword\r\n =>
WordsOfOtherComments: RUNSPEC\nWATR -- see quor: off\n -- quor off\n => d.data:2:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
UnknownCode: RUNSPEC\nWATR -- quor: off unknwon-keyword\nINCLUDE 'a.inc' /\nOLI\n-- quor: off all\n & a.inc=WATR\n-- quor: of\n => d.data:2:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?
    d.data:2:19: warning: unknown finding code 'unknwon-keyword' [bad-suppression] | did you mean unknown-keyword?
    a.inc:1:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER? <- d.data:3:1
    a.inc:2:10: warning: unexpected 'of' after 'quor:'; expected off, begin-off or end-off [bad-suppression] | for example '-- quor: off wrong-section' <- d.data:3:1
    d.data:4:1: error: unknown keyword 'OLI' [unknown-keyword] | did you mean OIL?
    d.data:5:14: warning: unknown finding code 'all' [bad-suppression] | write the code of a finding, for example wrong-section
UnknownCodeLikeNone: RUNSPEC\n-- quor: off everything\n => d.data:2:14: warning: unknown finding code 'everything' [bad-suppression] | write the code of a finding, for example wrong-section
UnknownVerb: RUNSPEC\n-- quor: of\n => d.data:2:10: warning: unexpected 'of' after 'quor:'; expected off, begin-off or end-off [bad-suppression] | for example '-- quor: off wrong-section'
Unclosed: RUNSPEC\n-- quor: begin-off\nWATR\n => d.data:2:1: warning: begin-off without end-off; the findings are hidden up to the end of the file [bad-suppression] | add '-- quor: end-off' with the same codes after it
ClosesNothing: RUNSPEC\n-- quor: end-off\n => d.data:2:1: warning: end-off without begin-off [bad-suppression] | add '-- quor: begin-off' with the same codes before it
ItsMistakesAreReportedOfATextOnce: RUNSPEC\nINCLUDE 'a.inc' /\nINCLUDE 'a.inc' /\n & a.inc=-- quor:\n => a.inc:1:1: warning: nothing after 'quor:'; expected off, begin-off or end-off [bad-suppression] | for example '-- quor: off wrong-section' <- d.data:2:1
)")),
    CaseName<Row>);

TEST(DeckFindings, ShowTheStartOfALongWord)
{
    const std::string digits(3'000'000, '7');
    EXPECT_EQ(DeckOnDisk("RUNSPEC\nDIMENS\n" + digits + " /\nWATR\n").FindingsOf(),
        "d.data:3:1: error: DIMENS: whole number '" + digits.substr(0, 40)
            + "...' is out of range (expected -2147483648 to 2147483647) [wrong-type]\n"
              "d.data:4:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean WATER?");
    const std::string letters(3'000'000, 'A');
    EXPECT_EQ(DeckOnDisk("RUNSPEC\n" + letters + "\n").FindingsOf(),
        "d.data:2:1: error: unknown keyword '" + letters.substr(0, 40)
            + "...' [unknown-keyword] | keyword names have at most 8 characters");
}

TEST(DeckReports, CountSuppressedFindingsForThemselves)
{
    const Deck deck = DeckOnDisk("RUNSPEC\nWATR -- quor: off\nOLI\n").Read();
    EXPECT_EQ(deck.GetFindings().GetHiddenCount(Hiding::Suppressed), 1U);
    EXPECT_EQ(deck.GetFindings().GetCount(Severity::Error), 1U);
}

TEST(DeckSuppressions, MayBeOnEachOfManyLines) // each with each, it would take hours
{
    const std::string comments = Repeat("-- quor: off stray-text\n", 300'000);
    const std::string one = Repeat(" -- quor: off", 300'000);
    EXPECT_EQ(DeckOnDisk("RUNSPEC\n" + comments + "WATR" + one + "\n").FindingsOf(), "");
}

TEST(DeckFinding, SaysWhatWhereAndWhatToDo)
{
    const Deck deck =
        DeckOnDisk("RUNSPEC\nINCLUDE\n 'a.inc' /\n", {{"a.inc", "-- c\nSCHEDULE\nWELSPEXX  -- wells\n"}})
            .Read();
    ASSERT_EQ(deck.GetFindings().GetKept().size(), 1U);
    const Finding& finding = deck.GetFindings().GetKept().front();
    EXPECT_EQ(finding.severity, Severity::Error);
    EXPECT_EQ(finding.message, "unknown keyword 'WELSPEXX'");
    EXPECT_EQ(finding.hint, "did you mean WELSPECL, WELSPECS?");
    EXPECT_EQ(finding.excerpt, "WELSPEXX  -- wells");
    EXPECT_EQ(finding.length, 8U);
    ASSERT_EQ(finding.includedFrom.size(), 1U);
    EXPECT_EQ(finding.includedFrom[0].line, 2U);
    EXPECT_TRUE(finding.includedFrom[0].file.ends_with("d.data"));
}

TEST(DeckFinding, ShowsThePartOfALongLineAroundThePlace)
{
    const Deck deck = DeckOnDisk("RUNSPEC\nINCLUDE" + std::string(1000, ' ') + "'x.inc' /\n").Read();
    ASSERT_EQ(deck.GetFindings().GetKept().size(), 1U);
    const Finding& finding = deck.GetFindings().GetKept().front();
    EXPECT_EQ(finding.location.column, 1008U);
    EXPECT_EQ(finding.excerptColumn, 1008U);
    EXPECT_EQ(finding.excerpt, "'x.inc' /");
}

TEST(DeckReports, CountWhatIsNotPassedOver)
{
    const Deck deck = DeckOnDisk(
        "RUNSPEC\nOIL\nSKIP\nWATER\nENDSKIP\nGRID\nINCLUDE 'a.inc' /\nINCLUDE 'a.inc' /\nEND\nOIL\n",
        {{"a.inc", "PORO\n 1 /\n"}})
                          .Read();
    EXPECT_EQ(deck.GetSize(), 5U); // what belongs to the text is not among them
    EXPECT_EQ(deck.GetSectionCount(), 2U);
    EXPECT_EQ(deck.GetFileCount(), 2U);
}

TEST(DeckReports, KeepFindingsUpToTheLimitAndCountAll)
{
    const Deck deck = DeckOnDisk("RUNSPEC\n" + Repeat("WATR\n", 5) + "INCLUDE '$X'\n")
                          .Read(ReadOptions().SetMaxFindings(2));
    EXPECT_EQ(deck.GetFindings().GetKept().size(), 2U);
    EXPECT_EQ(deck.GetFindings().GetOmittedCount(), 4U);
    EXPECT_EQ(deck.GetFindings().GetCount(Severity::Error), 6U);
}

TEST(DeckReports, FoldThoseThatWereNotKept)
{
    const Deck deck = DeckOnDisk("RUNSPEC\n" + Repeat("WATR\n", 5000) + Repeat("OLI\n", 7)).Read();
    const Findings folded = deck.GetFindings().Fold(200);
    ASSERT_EQ(folded.GetKept().size(), 1U);
    EXPECT_EQ(MoreText(folded.GetKept().front()), "and 4,999 more like it");
    EXPECT_EQ(folded.GetOmittedCount(), 7U);
    EXPECT_EQ(deck.GetFindings().GetOmittedCount(), 4807U);
}

TEST(DeckReports, NotesLeaveADeckClean)
{
    Findings findings = FindingCollector::Make(1);
    FindingCollector(findings).Admit(Severity::Note, {}, {}, {});
    EXPECT_TRUE(findings.IsClean());
    FindingCollector(findings).Admit(Severity::Warning, {}, {}, {});
    EXPECT_FALSE(findings.IsClean());
}

/// Files that each include the next.
Files Chain(int length, int times)
{
    Files files;
    for (int i = 0; i < length; ++i)
        files.emplace_back(std::to_string(i), Repeat("INCLUDE '" + std::to_string(i + 1) + "'\n", times));
    files.emplace_back(std::to_string(length), "OIL\n");
    return files;
}

TEST(DeckInclusions, GoAHundredDeep)
{
    EXPECT_EQ(DeckOnDisk("RUNSPEC\nINCLUDE '0'\n", Chain(99, 1)).FindingsOf(), "");
    const Deck deck = DeckOnDisk("RUNSPEC\nINCLUDE '0'\n", Chain(100, 1)).Read();
    ASSERT_EQ(deck.GetFindings().GetKept().size(), 1U);
    const Finding& finding = deck.GetFindings().GetKept().front();
    EXPECT_TRUE(finding.location.file.ends_with("/99")) << finding.location.file;
    EXPECT_EQ(finding.message, "too many nested included files (expected at most 100)");
}

TEST(DeckInclusions, ThatGrowWithoutBoundsAreStopped)
{
    const Deck deck = DeckOnDisk("RUNSPEC\nINCLUDE '0'\n", Chain(50, 2)).Read();
    ASSERT_EQ(deck.GetFindings().GetKept().size(), 1U);
    EXPECT_EQ(deck.GetFindings().GetKept()[0].message,
        "too many included files (expected at most 100000); the rest of the deck is not read");
}

TEST(DeckInclusions, LoopThroughALinkToo)
{
    const DeckOnDisk deck("RUNSPEC\nINCLUDE 'link.inc' /\n");
    std::filesystem::create_symlink("d.data", deck.Folder() / "link.inc");
    EXPECT_EQ(deck.FindingsOf(), "d.data:2:9: error: file 'link.inc' includes itself [include-loop]");
}

class CountingSource : public FileSource {
public:
    std::shared_ptr<const SourceText> Open(const std::string& path) const override
    {
        ++opened;
        return FileSource::Open(path);
    }
    mutable int opened = 0;
};

TEST(DeckInclusions, OfALargeFileInItselfDontReadItAgain)
{
    const auto source = std::make_shared<CountingSource>();
    const Deck deck = DeckOnDisk("RUNSPEC\n" + Repeat("INCLUDE 'd.data' /\n", 300'000))
                          .Read(ReadOptions().SetSource(source));
    EXPECT_EQ(deck.GetFindings().GetCount(Severity::Error), 300'000U);
    EXPECT_EQ(source->opened, 1);
}

TEST(DeckBlocks, MayBeNestedAsDeepAsTheyAreMany) // each with each, it would take hours
{
    constexpr int many = 300'000;
    const DeckOnDisk deck(
        "RUNSPEC\n" + Repeat("SKIPCAR\n", many) + Repeat("OIL\n", many) + Repeat("ENDSKIP\n", many));
    EXPECT_EQ(deck.FindingsOf(), "");
}

TEST(DeckThatCannotBeRead, Throws)
{
    const TemporaryDirectory folder;
    EXPECT_THROW(Deck::Read((folder.Path() / "none").string(), SmallLanguage()), SourceError);
    EXPECT_THROW(Deck::Read(folder.Path().string(), SmallLanguage()), SourceError);
}

TEST(Findings, ThatAreAlikeAreFolded)
{
    Findings findings = FindingCollector::Make(10);
    const auto add = [&](const char* file, const char* code, const char* message) {
        Finding finding;
        finding.location.file = file;
        finding.code = code;
        finding.message = message;
        if (FindingCollector(findings).Admit(Severity::Error, file, code, message))
            FindingCollector(findings).Keep(finding, "");
    };
    add("a", "out-of-range", "ROWS2: value 5 is too large (expected at most -3.5)");
    add("a", "out-of-range", "ROWS2: value -17.25 is too large (expected at most 3)");
    add("a", "out-of-range", "ROWS3: value 5 is too large (expected at most 3)");
    add("b", "out-of-range", "ROWS2: value 5 is too large (expected at most 3)");
    add("a", "unknown-keyword", "unknown keyword '1'");
    add("a", "unknown-keyword", "unknown keyword '2'");
    add("a", "out-of-range", "ROWS2: value 6 is too large (expected at most 3)");
    std::string text;
    const Findings folded = findings.Fold(4);
    for (const Finding& finding : folded)
        text += finding.location.file + " " + finding.message + " " + MoreText(finding) + "\n";
    EXPECT_EQ(text,
        "a ROWS2: value 5 is too large (expected at most -3.5) and 2 more like it\n"
        "a ROWS3: value 5 is too large (expected at most 3) \n"
        "b ROWS2: value 5 is too large (expected at most 3) \n"
        "a unknown keyword '1' \n");
    EXPECT_EQ(folded.GetCount(Severity::Error), 7U);
    EXPECT_EQ(folded.GetOmittedCount(), 1U);
    EXPECT_EQ(folded.Fold(4).GetOmittedCount(), 1U);
    Finding many;
    many.more = 1234567;
    EXPECT_EQ(MoreText(many), "and 1,234,567 more like it");
}

} // namespace

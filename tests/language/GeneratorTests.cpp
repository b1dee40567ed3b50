#include "tests/language/PackLanguage.h"
#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using namespace Veld::Quor::Tests;

namespace {

class VectorTable : public testing::TestWithParam<Row> { };
class ArrayTable : public testing::TestWithParam<Row> { };
class UnitTables : public testing::TestWithParam<Row> { };

/// A document and the group of arrays that it has.
std::string PackArrays(const std::string& table)
{
    return Pack({"<use piece='g'/>", "<piece name='cold'><isHidden/></piece>", {}, table});
}

} // namespace

TEST_P(VectorTable, IsRefused)
{
    EXPECT_EQ(Pack({{}, {}, GetParam().text, {}}), "error: vectors.txt:" + GetParam().expected + "\n");
}

INSTANTIATE_TEST_SUITE_P(Mistakes, VectorTable, testing::ValuesIn(Rows(R"(
UnknownPhase: OPR Oli - - - - F Rate of {}. => 1:5: unknown phase 'Oli'; known are - Oil Water Gas Liquid Volume
UnknownFlow: OPR Oil In - - - F Rate of {}. => 1:9: unknown flow 'In'; known are - Production Injection
UnknownFunction: ~OPR Oil - rate - - F Rate of {}. => 2:11: unknown function 'rate'; known are - Rate Total Historical
UnknownOption: OPR Oil - Rate Aquifer - F Rate of {}. => 1:16: unknown option 'Aquifer'; known are - API Aqui Flow
UnknownMode: # a~ ~  OPR Oil - Rate - cold F Rate of {}. => 3:20: unknown piece 'cold'; define it in language/pieces
UnknownEntity: OPR Oil - Rate - - F,X Rate of {}. => 1:22: unknown entity 'X'; known are General F G W C S B R R_ RF RF_ A LW LC LB
NoEntityBehindAComma: OPR Oil - Rate - - F, Rate of {}. => 1:22: unknown entity ''; known are General F G W C S B R R_ RF RF_ A LW LC LB
ShortLine: OPR Oil - Rate - - F  => 1:21: the line ends where its words should stand; it must have: stem phase flow function option mode entities words
LowerCaseStem: oPR Oil - Rate - - F Rate of {}. => 1:1: a stem has capitals, digits, +, - and _; it can end with <component>, <tracer> or <quantity>
UnknownEnding: OPR<well> Oil - Rate - - F Rate of {}. => 1:1: a stem has capitals, digits, +, - and _; it can end with <component>, <tracer> or <quantity>
EndingAlone: <tracer> Oil - Rate - - F Rate of {}. => 1:1: a stem has capitals, digits, +, - and _; it can end with <component>, <tracer> or <quantity>
LongName: OPRATES Oil - Rate - - F,LW Rate of {}. => 1:1: the name LWOPRATES has 9 characters; shorten the stem, since a name has at most 8
LongWildcard: OPRATES<tracer> Oil - Rate - - F Rate of {}. => 1:1: the name FOPRATES* has 9 characters; shorten the stem, since a name has at most 8
NoRoomForFamilies: OPRHL Oil - Rate - - R,R_ Rate of {}. => 1:24: ROPRHL leaves no room for a family; R_ needs a stem that is no wildcard and has at most 4 characters
WildcardOfFamilies: OP<tracer> Oil - Rate - - R_ Rate of {}. => 1:27: ROP leaves no room for a family; R_ needs a stem that is no wildcard and has at most 4 characters
MadeTwice: OPR Oil - Rate - - F,G Rate of {}.~OPR Oil - - - - W,G Flow of {}. => 2:19: GOPR is made twice, first at vectors.txt:1:22; remove one
WordsNoSentence: OPR Oil - Rate - - F Rate of {} => 1:22: the words must be a sentence, from a capital to a full stop
WordsWithoutEntity: OPR Oil - Rate - - F,G Rate. => 1:24: the words must have {} where the entity stands, since the line has several
NoEntityForWords: OPR Oil - Rate - - F,General Rate of {}. => 1:22: nothing of entity General can stand for the {} of the words
)")),
    CaseName<Row>);

TEST(VectorTables, GiveKeywords)
{
    EXPECT_EQ(Pack({{}, "<piece name='cold'><validOptions/></piece>",
                  "QR - - Rate Aqui cold A Rate\tat <1 & {}.\r~", {}}),
        R"(<keyword name="AQR"><description>Rate	at &lt;1 &amp; each aquifer.</description>)"
        R"(<summaryMnemonic><category name="entity" val="Aquifer"/><category name="function" val="Rate"/>)"
        R"(<category name="option" val="Aqui"/></summaryMnemonic><validOptions/>)"
        R"(<validSections><section name="SUMMARY"/></validSections><data><list termination="SLASH">)"
        R"(<description>The aquifers; all when the list is empty.</description><integer>)"
        R"(<description>Number of an aquifer.</description><min val="1"/></integer></list></data></keyword>)");
}

TEST_P(ArrayTable, IsRefused)
{
    EXPECT_EQ(PackArrays(GetParam().text), "error: arrays.txt:" + GetParam().expected + "\n");
}

INSTANTIATE_TEST_SUITE_P(Mistakes, ArrayTable, testing::ValuesIn(Rows(R"(
NoGroup: PORO GRID real 0..1 - - - - - Porosity. | One. => 1:1: the array belongs to no group; put it below a line such as [name of a group]
OpenHeading: # a~[g => 2:1: expected a line such as [name of a group]
EmptyHeading: [] => 1:1: expected a line such as [name of a group]
ShortLine: [g]~PORO GRID real 0..1 => 2:20: the line ends where its quantity should stand; it must have: name sections type range quantity default mode needs cells words | value
LowerCaseAlias: [g]~PERMX,permr GRID real 0.. - - - - - P. | P. => 2:7: expected the name of a keyword, or names with commas between them
UnknownSection: [g]~PORO GRID,ROCK real 0..1 - - - - - P. | P. => 2:11: unknown section 'ROCK'; known are GRID EDIT PROPS REGIONS SOLUTION SCHEDULE
UnknownType: [g]~PORO GRID double 0..1 - - - - - P. | P. => 2:11: unknown type 'double'; known are real integer
NoRange: [g]~PORO GRID real 0 - - - - - P. | P. => 2:16: expected a range such as 0..1 or 0.., or -
DotsAlone: [g]~PORO GRID real .. - - - - - P. | P. => 2:16: expected a range such as 0..1 or 0.., or -
UnknownMode: [g]~PORO GRID real 0..1 - - col - - P. | P. => 2:25: unknown piece 'col'; did you mean 'cold'?
UnknownCells: [g]~PORO GRID real 0..1 - - cold - fracture P. | P. => 2:32: unknown kind of cells 'fracture'; known are - matrix layers components
OneSentence: [g]~PORO GRID real 0..1 - - cold - - Porosity. => 2:34: expected a sentence on the array and one on a value, with ' | ' between them
UnusedGroup: [g]~PORO GRID real 0..1 - - cold - - P. | P.~[h] => 3:1: piece 'h' is never used; remove it, or write <use piece="h"/> where it belongs
)")),
    CaseName<Row>);

TEST(ArrayTables, GiveKeywords)
{
    EXPECT_EQ(
        PackArrays(
            "# Rock~[g]~PERMX,PERMR GRID,EDIT real 0..1 permeability 2 cold OIL,GAS matrix Flow. | One.~"
            "MF* PROPS integer -  - - - - components F. | N.~"),
        R"(<keyword name="PERMX"><description>Flow.</description><aliases><alias name="PERMR"/></aliases><isHidden/>)"
        R"(<validSections><section name="GRID"/><section name="EDIT"/></validSections>)"
        R"(<precedents><precedent name="OIL"/><precedent name="GAS"/></precedents><cell dualPorosityMatrixOnly="true"/>)"
        R"(<data><list size="NX*NY*NZ" termination="SLASH" itemsDefaultable="true">)"
        R"(<description>One value for each cell, in the order of the grid.</description><real><description>One.</description>)"
        R"(<min val="0"/><max val="1"/><default type="specified" val="2"/><quantity name="permeability"/></real></list></data>)"
        R"(</keyword><keyword name="MF*"><description>F.</description><validSections><section name="PROPS"/></validSections>)"
        R"(<cell components="true"/><data><list size="NX*NY*NZ*NCOMPS" termination="SLASH" itemsDefaultable="true">)"
        R"(<description>One value for each cell, in the order of the grid.</description>)"
        R"(<integer><description>N.</description></integer></list></data></keyword>)");
}

TEST_P(UnitTables, AreRefused)
{
    const std::string known = "m 1 - m Metre.~s 1 - s Second.~cm 0.01 - m A hundredth.~degX 1 9 s X.~";
    const std::string document = "<keyword name='K'><data><real quantity='depth'/></data></keyword>";
    EXPECT_EQ(Pack({document, {}, {}, {}, known + GetParam().text, GetParam().expected}),
        "error: " + GetParam().more + "\n");
}

INSTANTIATE_TEST_SUITE_P(Mistakes, UnitTables, testing::ValuesIn(Rows(R"(
QuantityWithoutUnit:  => speed m/s m/s cm/s m/s S. => document.xml:3:25: the quantity 'depth' has no unit; add it to language/units/measurements.txt
MisspeltQuantity:  => depht m m cm m D. => document.xml:3:25: the quantity 'depth' has no unit; did you mean 'depht'?
UnknownUnit:  => depth m fathom cm m D. => measurements.txt:1:9: unknown unit 'fathom'; define it in language/units/units.txt
MisspeltUnit: yard 0.9144 - m Y. => depth m yrad cm m D. => measurements.txt:1:9: unknown unit 'yrad'; did you mean 'yard'?
OtherDimension:  => speed m/s m.s cm/s m/s S. => measurements.txt:1:11: 'm.s' doesn't measure what the unit before it measures
OtherAlternative:  => depth m|s m cm|s m|s D. => measurements.txt:1:11: 'm' doesn't measure what the unit before it measures
OffsetInProduct:  => rise degX/m degX/m degX/m degX/m R. => measurements.txt:1:6: 'degX' has an offset, so it must stand alone; use the unit of a difference
OpenBracket:  => speed m/(s m/s m/s m/s S. => measurements.txt:1:7: 'm/(s' is no product of units such as cP.rm3/day/bar or psi/(rft3/day)2
ClosedBracket:  => speed m)/s m/s m/s m/s S. => measurements.txt:1:7: 'm)/s' is no product of units such as cP.rm3/day/bar or psi/(rft3/day)2
NoOperator:  => speed m(s) m/s m/s m/s S. => measurements.txt:1:7: 'm(s)' is no product of units such as cP.rm3/day/bar or psi/(rft3/day)2
NoUnitAtTheEnd:  => speed m/ m/s m/s m/s S. => measurements.txt:1:7: 'm/' is no product of units such as cP.rm3/day/bar or psi/(rft3/day)2
UnitMissing:  => depth m m - m D. => measurements.txt:1:1: a measurement has a unit in all systems, or in none
MeasurementTwice:  => depth m m cm m D.~depth - - - - D. => measurements.txt:2:1: the measurement 'depth' is defined twice; remove one
ShortLine:  => depth m m cm m => measurements.txt:1:15: the line ends where its words should stand; it must have: name METRIC FIELD LAB PVT-M words
UnitTwice: cm 0.01 - m C. => # => units.txt:5:1: the unit 'cm' is defined twice; remove one
NoNumber: ft 0,3 - m F. => # => units.txt:5:4: '0,3' is no number above 0
NoFactor: ft 0 - m F. => # => units.txt:5:4: '0' is no number above 0
UnknownBase: lb 0.45 - kg P. => # => units.txt:5:11: unknown unit 'kg'; define it in language/units/units.txt
)")),
    CaseName<Row>);

TEST(Packing, NeedsItsFiles)
{
    const auto says = [](const std::string& arguments, const std::string& text) {
        const std::string command =
            "'" QUOR_PACK_LANGUAGE "' " + arguments + " 2>&1 | grep -qx \"" + text + "\"";
        return std::system(command.c_str()) == 0;
    };
    EXPECT_TRUE(says("/none/out.cpp", "usage: pack OUTPUT.cpp OUTPUT.xml VARIABLE FILE.xml... .*"));
    EXPECT_TRUE(says("out.cpp out.xml x /none.xml", "error: /none.xml: can't be read"));
    EXPECT_TRUE(says("out.cpp out.xml x --arrays /none.txt", "error: /none.txt: can't be read"));
    EXPECT_TRUE(says("out.cpp out.xml x --units /none.txt", "error: /none.txt: can't be read"));
    EXPECT_TRUE(says("out.cpp /none/out.xml x --arrays /dev/null", "error: /none/out.xml: can't be written"));
}

#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

using namespace Veld::Quor::Tests;

namespace {

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What the program prints, without the name of its folder, and whether it succeeds; `~` ends a line of the
/// table.
std::string MakeVectors(const std::string& table, const TemporaryDirectory& directory)
{
    directory.Write("rates.txt", std::regex_replace(table, std::regex("~"), "\n"));
    const std::string command =
        "cd '" + directory.Path().string() + "' && '" QUOR_MAKE_VECTORS "' out.xml rates.txt 2>errors";
    const std::string status = std::system(command.c_str()) == 0 ? "made" : "refused";
    return status + " " + ReadFile(directory.Path() / "errors");
}

class VectorTable : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(VectorTable, IsRefused)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(
        MakeVectors(GetParam().xml, directory), "refused error: rates.txt:" + GetParam().expected + "\n");
    EXPECT_FALSE(exists(directory.Path() / "out.xml"));
}

INSTANTIATE_TEST_SUITE_P(Mistakes, VectorTable, testing::ValuesIn(Rows(R"(
UnknownPhase: OPR Oli - - - - F Rate of {}. => 1:5: unknown phase 'Oli'; known are - Oil Water Gas Liquid Volume
UnknownFlow: OPR Oil In - - - F Rate of {}. => 1:9: unknown flow 'In'; known are - Production Injection
UnknownFunction: ~OPR Oil - rate - - F Rate of {}. => 2:11: unknown function 'rate'; known are - Rate Total Historical
UnknownOption: OPR Oil - Rate Aquifer - F Rate of {}. => 1:16: unknown option 'Aquifer'; known are - API Aqui Flow
UnknownMode: # a~ ~  OPR Oil - Rate - cold F Rate of {}. => 3:20: unknown mode 'cold'; known are - blackoil compositional thermal
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
MadeTwice: OPR Oil - Rate - - F,G Rate of {}.~OPR Oil - - - - W,G Flow of {}. => 2:19: GOPR is made twice, first at rates.txt:1:22; remove one
WordsNoSentence: OPR Oil - Rate - - F Rate of {} => 1:22: the words must be a sentence, from a capital to a full stop
WordsWithoutEntity: OPR Oil - Rate - - F,G Rate. => 1:24: the words must have {} where the entity stands, since the line has several
NoEntityForWords: OPR Oil - Rate - - F,General Rate of {}. => 1:22: nothing of entity General can stand for the {} of the words
)")),
    CaseName<Row>);

TEST(VectorTables, GiveOneElementALine)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(MakeVectors("QR - - Rate Aqui compositional A Rate\tat <1 & {}.\r~", directory), "made ");
    EXPECT_EQ(ReadFile(directory.Path() / "out.xml"), R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The output vectors of the SUMMARY section. Made from the tables of language/summary. -->
<keywords>
  <keyword name="AQR">
    <description>Rate	at &lt;1 &amp; each aquifer.</description>
    <summaryMnemonic>
      <category name="entity" val="Aquifer"/>
      <category name="function" val="Rate"/>
      <category name="option" val="Aqui"/>
    </summaryMnemonic>
    <validSimulators>
      <simulator name="Dunmere"/>
      <simulator name="Sedge"/>
      <simulator name="Hallow"/>
      <simulator name="Marlpit"/>
      <simulator name="Ostrey"/>
      <simulator name="Wend"/>
      <simulator name="Tolmen"/>
    </validSimulators>
    <validOptions>
      <option value="Compositional"/>
      <option value="Thermal"/>
    </validOptions>
    <validSections>
      <section name="SUMMARY"/>
    </validSections>
    <data>
      <list termination="SLASH">
        <description>The aquifers; all when the list is empty.</description>
        <integer>
          <description>Number of an aquifer.</description>
          <min val="1"/>
        </integer>
      </list>
    </data>
  </keyword>
</keywords>
)");
}

TEST(VectorTables, MustBeThere)
{
    EXPECT_EQ(std::system("'" QUOR_MAKE_VECTORS
                          "' /none/out.xml 2>&1 | grep -qx 'usage: vectors OUTPUT.xml TABLE.txt...'"),
        0);
    EXPECT_EQ(std::system("'" QUOR_MAKE_VECTORS
                          "' out.xml /none.txt 2>&1 | grep -qx \"error: /none.txt: can't be read\""),
        0);
    EXPECT_EQ(
        std::system("'" QUOR_MAKE_VECTORS
                    "' /none/out.xml /dev/null 2>&1 | grep -qx \"error: /none/out.xml: can't be written\""),
        0);
}

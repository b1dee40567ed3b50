#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;
using nlohmann::json;

namespace {

const std::string lossLanguage = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='SKIPCAR'/> <keyword name='ENDSKIP'/>
<keyword name='ONLY'><validSections><section name='GRID'/></validSections>
  <validSimulators><simulator name='Dunmere'/></validSimulators></keyword>
<keyword name='REC'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='N' optional='true'><integer><default type='specified' val='1'>
    <override name='Carrow' type='specified' val='2'/>
    <override name='Wend' type='no default'/>
    <override name='Sedge' type='calculated'/>
  </default></integer></item>
  <item name='NEW' optional='true'><integer/><validity>
    <simulator name='Dunmere'/>
  </validity></item>
  <item name='IDLE' optional='true'><integer/><unsupportedBy>
    <simulator name='Carrow'/>
  </unsupportedBy></item>
  <item name='WORD' optional='true'><choice><values><value string='A'/><value string='B'><validity>
    <simulator name='Dunmere'/>
  </validity></value><value string='C'><unsupportedBy>
    <simulator name='Carrow'/>
  </unsupportedBy></value></values><default type='no default'/></choice></item>
</record></list></data></keyword>
<keyword name='ARRAY'><data><list termination='SLASH' itemsDefaultable='true'><integer>
  <default type='specified' val='1'>
    <override name='Carrow' type='specified' val='2'/>
  </default></integer></list></data></keyword>
<keyword name='MAP'><data><map><assignment name='KEY'><integer/><validity>
    <simulator name='Dunmere'/>
  </validity></assignment></map></data></keyword>
)";

/// A deck; kind, keyword, item, detail and count of each loss, and the line of the first; what isn't checked.
class Losses : public testing::TestWithParam<Row> { };

std::string LossesOf(const json& answer)
{
    std::string text;
    for (const json& loss : answer.at("losses")) {
        text += text.empty() ? "" : "; ";
        for (const char* const member : {"kind", "keyword", "item", "detail"})
            text += loss.at(member).is_null() ? "" : loss.at(member).get<std::string>() + ' ';
        text +=
            std::to_string(loss.at("count").get<int>()) + " from line " + loss.at("first").at("line").dump();
    }
    return text;
}

TEST_P(Losses, AreListedWithTheirPlaces)
{
    const TemporaryDirectory folder;
    const std::string document = folder.Write("main.xml", Document(lossLanguage));
    folder.Write("trusted/none.xml", Document(""));
    const Outcome outcome =
        Analyse("port a.data --format json " + GetParam().options, "RUNSPEC\nGRID\n" + GetParam().text, {},
            std::string(mainVariable) + "=" + Quote(document) + " " + trustedVariable + "="
                + Quote((folder.Path() / "trusted").string()));
    EXPECT_EQ(outcome.status, GetParam().expected.empty() ? 0 : 1);
    const json answer = json::parse(outcome.out);
    EXPECT_EQ(LossesOf(answer), GetParam().expected);
    std::string unchecked;
    for (const json& row : answer.at("unchecked"))
        unchecked += row.at("kind").get<std::string>() + " " + row.at("text").get<std::string>() + " "
            + row.at("count").dump() + " from line " + row.at("first").at("line").dump() + "; ";
    EXPECT_EQ(unchecked, GetParam().more);
}

INSTANTIATE_TEST_SUITE_P(Decks, Losses, testing::ValuesIn(Rows(R"(
Keyword (--to Carrow): ONLY\nONLY\n => keyword-not-valid ONLY 2 from line 3
Items (--to Carrow): REC\n 1 /\n 1 4 5 /\n 1 6 7 A /\n/\n => item-not-valid REC NEW 2 from line 5; item-unsupported REC IDLE 2 from line 5
Words (--to Carrow): REC\n 1 2* A /\n 1 2* B /\n 1 2* C /\n/\n => choice-not-valid REC WORD B 1 from line 5; choice-unsupported REC WORD C 1 from line 6
OtherDefault (--to Carrow): REC\n 1 /\n 1* /\n 2* /\n/\n => other-default REC N 1 -> 2 2 from line 5
CalculatedDefault (--from Carrow --to Sedge): REC\n 1* /\n/\n => other-default REC N 2 -> calculated 1 from line 4
NoDefault (--to Wend): REC\n 1* /\n/\n => no-default REC N 1 -> none 1 from line 4
SameDefault (--from Hallow --to Ostrey): REC\n 1* /\n/\n =>
DefaultedElements (--to Carrow): ARRAY\n 1 3* 4 /\n => other-default ARRAY 1 -> 2 3 from line 3
Map (--to Carrow): MAP\n KEY=1 /\n => item-not-valid MAP KEY 1 from line 3
WhatWasntThere (--from Wend_GE --to Marlpit): ONLY\nMAP\n KEY=1 /\nREC\n 1 4 /\n 1 2* B /\n/\n =>
BehindASkip (--to Carrow): SKIPCAR\nONLY\nENDSKIP\n =>
Unchecked (--to Carrow): ARRAY\n 1 x $A 4 /\nNONE\n 1 /\nNONE\n =>  => unknown-keyword NONE 2 from line 5; variable variable '$A' has no value 1 from line 4; error ARRAY: invalid value 'x'; expected a whole number 1 from line 4; 
)")),
    CaseName<Row>);

TEST(Loss, OfEachPlaceIsListedIfAskedFor)
{
    const std::string deck = "SCHEDULE\nTIME\n 1 /\nTIME\n 2 /\n";
    const Outcome outcome = Analyse("port a.data --to Carrow --all", deck);
    EXPECT_TRUE(
        Holds(outcome.out, "  TIME in SCHEDULE  2      a.data:2\n                           a.data:4\n"))
        << outcome.out;
    EXPECT_TRUE(Holds(outcome.out, "lost for Carrow: 1 feature in 2 locations\n")) << outcome.out;
}

TEST(Loss, OfUnknownKeywordsIsSaidToBeUnknown)
{
    const Outcome outcome = Analyse("port a.data --to Carrow", "{runspec}NOSUCH\nNOSUCH\n");
    EXPECT_EQ(outcome.out,
        "what could not be checked\n"
        "                          times  first at\n"
        "  unknown keyword NOSUCH  2      a.data:7\n\n"
        "nothing is lost for Carrow, as far as the deck could be checked\n");
}

} // namespace

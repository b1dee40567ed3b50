#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;

namespace {

const std::string valueDeck = "{runspec}GRID\nINCLUDE\n b.data /\nPERMX\n 4*50 /\nPERMX\n 1* 3*60 /\n"
                              "ACTNUM\n 1 2* 0 /\n{schedule}WCONPROD\n"
                              "P1 OPEN ORAT  $RATE 3* 2.5D2 /  -- of the test\nP2 'SHUT' ORAT 10 /\n/\n"
                              "DATES\n 1 APR 2020 /\n/\nWCONPROD\n P1 OPEN ORAT 7 /\n/\n";

/// What a command prints on a.data, which includes b.data, and what stands on standard error behind it.
class Values : public testing::TestWithParam<Row> { };

TEST_P(Values, ArePrintedAndSet)
{
    const Outcome outcome = Analyse(GetParam().text, valueDeck, "PORO\n 0.25 3*0.2 /\n");
    std::string expected = GetParam().expected;
    if (!expected.empty())
        expected += '\n';
    EXPECT_EQ(outcome.out + outcome.err, expected);
}

INSTANTIATE_TEST_SUITE_P(Printed, Values, testing::ValuesIn(Rows(R"(
OverTime: get a.data 'WCONPROD[P1].ORAT' 'WCONPROD[P1].BHP' --set RATE=5 =>
    WCONPROD[P1].ORAT@2020-01-01  5   sm3/day
    WCONPROD[P1].ORAT@2020-04-01  7   sm3/day
    WCONPROD[P1].BHP@2020-01-01   1*  bar
    WCONPROD[P1].BHP@2020-04-01   1*  bar
AllRows: --version >v; printf 'PROPS\\nSWOF\\n 0 0 1 0\\n 1 0.6 0 0 /\\n' | $QUOR get - 'SWOF[1].KRW' 2>e =>
    SWOF[1].1.KRW  0
    SWOF[1].2.KRW  0.6
Bare: get a.data 'WCONPROD[P2]' --bare --set RATE=5 | head -n 4 => P2\nSHUT\nORAT\n10
Csv: get a.data 'PORO[1]' 'WCONPROD[P1].LRAT@2020-01-01' --format csv --set RATE=5 =>
    address,keyword,date,value,unit,file,line
    PORO[1],PORO,,0.25,,b.data,2
    WCONPROD[P1].LRAT@2020-01-01,WCONPROD,2020-01-01,,sm3/day,a.data,22
Json: get a.data 'DIMENS.NX' --format json --set RATE=5 =>
    {
      "schema_version": 1,
      "values": [
        {
          "address": "DIMENS.NX",
          "keyword": "DIMENS",
          "date": null,
          "value": 2,
          "unit": null,
          "file": "a.data",
          "line": 3
        }
      ]
    }
Dump: dump a.data --set RATE=5 >1; $QUOR dump --load 1 >c; $QUOR dump c | tail -n +2 >2; tail -n +2 1 | cmp - 2; grep -e ACTNUM -e WCONPROD 1; grep -A1 -e PORO -e ACTNUM c =>
    {"name":"ACTNUM","section":"GRID","data":[1,null,null,0]},
    {"name":"WCONPROD","section":"SCHEDULE","data":[{"WELL":"P1","STATUS":"OPEN","CONTROL":"ORAT","ORAT":5,"RESV":250},
    {"name":"WCONPROD","section":"SCHEDULE","data":[{"WELL":"P1","STATUS":"OPEN","CONTROL":"ORAT","ORAT":7}]}
    PORO
       0.25 3*0.2 /
    --
    ACTNUM
       1 2*  0 /
DumpOfBytes: --version >v; printf 'RUNSPEC\nNOTES\n a\xFC\nENDNOTES\n' >c; $QUOR dump c >1; $QUOR dump --load 1 | cmp - c; sed -n 3p 1 => {"name":"NOTES","section":"RUNSPEC","data":{"latin1":" aü\\n"}}
LoadOfNoDump: --version >v; for t in [] '{"schema_version":2}' '[{"name":"PORU"}]' '[{"data":[]}]' '[{"name":3}]' '[{"name":"PORO","section":"GRIDD"}]' '[{"name":"OIL","data":3}]' '[{"name":"PORO","data":{}}]' '[{"name":"PORO","data":["x"]}]' '[{"name":"EQUIL","data":[{"OCW":1}]}]' '[{"name":"NOTES","data":"a\\nENDNOTES\\n"}]' '[{"name":"NOTES","data":{"latin":""}}]' '[{"name":"OIL"},1' '{"keywords":3}' '{"keywords":{}}' '[{"nme":1}]' '[{"name":"PORO","data":3}]' '[{"name":"DIMENS","data":{"NX":1.5}}]' '[{"name":"EQUIL","data":[1]}]' '[{"name":"WCONPROD","data":[{"WELL":1}]}]' '[{"name":"WCONPROD","data":[{"STATUS":1}]}]' '[{"name":"NOTES","data":{"latin1":3}}]' '[{"name":"NOTES","data":{"latin1":"€"}}]' '[{"name":"PORO","data":[[1]]}]' x; do case $t in '[]'|x|'{'*) ;; *) t='{"keywords":'$t'}';; esac; printf %s "$t" >1; $QUOR dump --load 1 2>&1 | cut -c 40-; done =>
    expected an object with 'keywords'
    expected 'schema_version' 1
    keyword 1 (PORU): unknown keyword
    keyword 1: expected 'name' before 'data'
    keyword 1: expected a text as 'name'
    keyword 1 (PORO): expected the name of a section as 'section'
    keyword 1 (OIL): expected no 'data': the keyword has none
    keyword 1 (PORO): expected an array
    keyword 1 (PORO): expected a number
    keyword 1 (EQUIL): no item 'OCW'; did you mean 'OWC'?
    keyword 1 (NOTES): a line of the text is 'ENDNOTES', which ends it
    keyword 1 (NOTES): expected a text, or an object with 'latin1'
    expected an object for each keyword
    expected an array of keywords
    expected 'keywords' as an array
    keyword 1: expected 'name', 'section' or 'data'
    keyword 1 (PORO): expected an array or an object as 'data'
    keyword 1 (DIMENS): expected a whole number
    keyword 1 (EQUIL): expected an array or an object for each element
    keyword 1 (WCONPROD): expected a text
    keyword 1 (WCONPROD): expected the word of a choice
    keyword 1 (NOTES): expected a text in 'latin1'
    keyword 1 (NOTES): expected characters up to U+00FF in 'latin1'
    keyword 1 (PORO): expected a value
    invalid JSON at line 1, column 1: syntax error while parsing value - invalid literal; last read: 'x'
LoadOfNoFile: --version >v; mkfifo p; : >e; for f in . none p e; do $QUOR dump --load $f 2>&1; done =>
    quor: error: can't read '.': it is a folder, not a file
    quor: error: can't read 'none': No such file or directory
    quor: error: can't read 'p': it is not a regular file
    quor: error: can't read 'e': the file is empty
UserQuantities: --version >v; printf 'SCHEDULE\nWCONPROD\n P1 OPEN ORAT WUOPR 2* 2*"WULIM" $X /\n/\n' >c; $QUOR get c 'WCONPROD[P1]' --bare 2>e | sed -n 4,9p; $QUOR get c 'WCONPROD[P1]' --format csv 2>e | cut -d, -f4 | sed -n 5,10p | paste -sd,; $QUOR get c 'WCONPROD[P1].LRAT' --format json 2>e | grep '"value"'; $QUOR set c 'WCONPROD[P1].ORAT' 5 2>&1 | head -n 1 =>
    WUOPR
    1*
    1*
    WULIM
    WULIM
    $X
    WUOPR,,,WULIM,WULIM,
          "value": "WULIM",
    quor: error: WCONPROD[P1].ORAT is given by a quantity of the user: WUOPR
Invalid: --version >v; printf 'SCHEDULE\nWCONPROD\n P1 OPPEN ORAT 1x /\n/\n' >c; for f in text csv; do $QUOR get c WCONPROD.STATUS WCONPROD.CONTROL WCONPROD.ORAT --format $f 2>e; echo $?; tail -n 2 e; done =>
    WCONPROD[P1].STATUS   OPPEN
    WCONPROD[P1].CONTROL  ORAT
    WCONPROD[P1].ORAT     1x     sm3/day
    2
    quor: error: c:3: WCONPROD, STATUS: unknown value 'OPPEN'
    quor: error: c:3: WCONPROD, ORAT: invalid value '1x'; expected a number
    address,keyword,date,value,unit,file,line
    WCONPROD[P1].STATUS,WCONPROD,,,,c,3
    WCONPROD[P1].CONTROL,WCONPROD,,ORAT,,c,3
    WCONPROD[P1].ORAT,WCONPROD,,,sm3/day,c,3
    2
    quor: error: c:3: WCONPROD, STATUS: unknown value 'OPPEN'
    quor: error: c:3: WCONPROD, ORAT: invalid value '1x'; expected a number
BeyondManyErrors: --version >v; { echo SCHEDULE; echo WCONPROD; for i in $(seq 250); do echo " P$i OPPEN ORAT 5 /"; done; echo /; } >c; $QUOR get c 'WCONPROD[P250].STATUS' --format json 2>e | grep '"value"'; cat e =>
          "value": null,
    quor: c has 250 errors; run 'quor check c' to list them; the result may be incomplete
    quor: error: c:252: WCONPROD, STATUS: unknown value 'OPPEN'
Input: get - 'PORO[2]' --set RATE=5 <a.data => PORO[2]  0.2
NamedInput: check - --stdin-filename x/y.data --set RATE=5 <a.data 2>e =>
    x/y.data:9:2: error: can't read 'x/b.data': No such file or directory [include-missing]
         b.data /
         ^~~~~~
      hint: a relative name starts from the folder of the deck
    y.data: 13 keywords in 3 sections, 1 file: 1 error
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Set, Values, testing::ValuesIn(Rows(R"(
Several: set a.data 'PORO[1]' 0.3 'WCONPROD[P2].ORAT' 12 --set RATE=5; sed -n 23p a.data; cat b.data =>
    b.data:2: PORO[1]: 0.25 -> 0.3
    a.data:23: WCONPROD[P2].ORAT@2020-01-01: 10 -> 12
    P2 'SHUT' ORAT 12 /
    PORO
     0.3 3*0.2 /
Default: set a.data 'WCONPROD[P2].ORAT' '1*' --set RATE=5; sed -n 23p a.data =>
    a.data:23: WCONPROD[P2].ORAT@2020-01-01: 10 -> 1*
    P2 'SHUT' ORAT 1* /
Diff: set a.data 'ACTNUM[4]' 1 'PORO[3]' 0.1 'DIMENS.NX' 2 --diff --set RATE=5; cat b.data =>
    --- a.data
    +++ a.data
    @@ -12,7 +12,7 @@
     PERMX
      1* 3*60 /
     ACTNUM
    - 1 2* 0 /
    + 1 2* 1 /
     SCHEDULE
     WELSPECS
      P1 G1 1 1 1* OIL /
    --- b.data
    +++ b.data
    @@ -1,2 +1,2 @@
     PORO
    - 0.25 3*0.2 /
    + 0.25 0.2 0.1 0.2 /
    PORO
     0.25 3*0.2 /
Patch: set a.data 'PORO[3]' 0.1 --diff --set RATE=5 >p; patch -s -p0 <p; cat b.data => PORO\n 0.25 0.2 0.1 0.2 /
Input: set - 'ACTNUM[4]' 1 --set RATE=5 <a.data | diff - a.data => 15c15\n<  1 2* 1 /\n---\n>  1 2* 0 /
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Refused, Values, testing::ValuesIn(Rows(R"(
SetTwice: set a.data 'PORO[1]' 0.1 'PORO[01]' 0.2 --set RATE=5 => quor: error: PORO[1] is set twice
NoSuchItem: get a.data 'WCONPROD[P1].ORATE' --set RATE=5 => quor: error: WCONPROD has no item 'ORATE'; did you mean ORAT?
NoNumber: set a.data 'PORO[1]' wet --set RATE=5 => quor: error: PORO[1]: invalid value 'wet'; expected a number
NoInteger: set a.data 'ACTNUM[1]' 0.5 --set RATE=5 => quor: error: ACTNUM[1]: invalid value '0.5'; expected an integer
NoValue: set a.data 'PORO[1]' => quor: error: 'PORO[1]' has no value; expected an address and a value by turns
NewError: set a.data 'PORO[1]' 0.1 'WCONPROD[P2].WELL' P3 --set RATE=5; cat b.data =>
    PORO
     0.25 3*0.2 /
    a.data:23:1: error: WCONPROD: undefined well 'P3' [undefined-name]
        P3 'SHUT' ORAT 10 /
        ^~
      hint: did you mean P1, P2?
    quor: error: the changed deck has new errors; nothing was written; --force writes it nevertheless
OtherFile: set - 'PORO[1]' 0.1 --set RATE=5 <a.data => quor: error: the change is in 'b.data', which is not on standard input; nothing was written
InPlace: format - --in-place <a.data => quor: error: the deck from standard input can only be printed; leave out --in-place and --output
SeveralArrays: get a.data PERMX --format npy --set RATE=5 | cat => quor: error: the deck has 2 keywords PERMX; choose one, 'PERMX#1' to 'PERMX#2'
DefaultedIntegers: get a.data ACTNUM --format npy --set RATE=5 | cat => quor: error: ACTNUM: value 2 is left to its default, which an array of integers can't hold
NoArray: get a.data DIMENS --format npy --set RATE=5 | cat => quor: error: DIMENS: its data are no list of numbers, but Record
PartOfAnArray: get a.data 'PORO[1]' --format npy --set RATE=5 | cat => quor: error: --format npy holds a whole array; expected the name of a keyword alone
)")),
    CaseName<Row>);

TEST(NumpyArray, HoldsDefaultsAsNotANumber)
{
    const Outcome outcome =
        Analyse("get a.data 'PERMX#2' --format npy --set RATE=5", valueDeck, "PORO\n 4*0.2 /\n");
    ASSERT_EQ(outcome.out.size(), 128 + 4 * sizeof(double)) << outcome.err;
    EXPECT_EQ(outcome.out.substr(0, 10), std::string("\x93NUMPY\x01\0\x76\0", 10));
    double values[4];
    outcome.out.copy(reinterpret_cast<char*>(values), sizeof values, 128);
    EXPECT_NE(values[0], values[0]);
    EXPECT_EQ(values[3], 60.0);
}

} // namespace

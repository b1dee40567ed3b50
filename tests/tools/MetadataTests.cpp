#include "tests/support/Cases.h"
#include "tests/tools/RunProgram.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;
using nlohmann::json;

namespace {

const std::string forThree =
    "<validSimulators><simulator name='Dunmere'/><simulator name='Sedge'/><simulator "
    "name='Hallow'/></validSimulators><validSections><section name='PROPS'/></validSections>";

/// A keyword for three simulators.
std::string Keyword(const std::string& name, const std::string& data, const std::string& more = {})
{
    return "<keyword name='" + name + "'>" + forThree + more + "<data>" + data + "</data></keyword>\n";
}

std::string Item(const std::string& attributes, const std::string& content)
{
    return "<item " + attributes + ">" + content + "</item>\n";
}

// Validities, aliases and the descriptions of integers stand behind white space, or they aren't read.
const std::string language =
    Keyword("FLUID",
        "<record termination='SLASH'>"
            + Item("name='NAME' identifier='true'",
                "<string canContainComma='true'><description>Which "
                "fluid.</description><caseSensitive/><lengthLimit>12</lengthLimit></string>")
            + Item("name='FACTOR' optional='true' columnConstraint='increasing'",
                "<real><min val='0'/><max val='1'/><quantity name='ratio'/><description>What share of all "
                "that there is belongs to this fluid, by volume at the conditions of the "
                "surface.</description><default type='specified' val='0.1'><override name='Sedge' "
                "type='specified' val='0.02'/><override name='Hallow' type='calculated'/></default></real>")
            + Item("name='LEVEL'",
                "<integer>\n <description>Depth of search.</description>\n <min val='2'/>\n"
                " <default type='specified' val='3'><override name='Dunmere' type='specified' "
                "val='4'/><override name='Sedge' type='specified' val='4'/><override name='Hallow' "
                "type='specified' val='4'/><override name='Wend' type='no "
                "default'/></default></integer><skippableOnRead/><skippableOnWrite/><validity>\n <simulator "
                "name='Sedge'/>\n <option value='Thermal'/>\n</validity><unsupportedBy>\n <simulator "
                "name='Sedge'/>\n</unsupportedBy>")
            + Item("name='ROWS'",
                "<list size='N' itemsDefaultable='true' "
                "fillEmptyElementsWithPreviousValue='true'><description>The "
                "rows.</description><boolean><description>Whether to print.</description><default "
                "type='specified' val='NO'/></boolean></list>")
            + "</record>")
    + Keyword("WELLCTL",
        "<list><record termination='SLASH'>"
            + Item("name='MODE'",
                "<choice><values><value string='rate'><aliases>\n <alias name='FLOW'/>\n <alias name='OLD'> "
                "<isHiddenAlias/> </alias>\n</aliases></value><value string='bhp'><validity>\n <simulator "
                "name='Dunmere'/>\n <simulator name='Hallow'/>\n"
                "</validity></value><value string='thp'><unsupportedBy>\n <simulator "
                "name='Hallow'/>\n</unsupportedBy></value></values><default type='specified' "
                "val='RATE'><override name='Hallow' type='specified' val='TH'/></default></choice>")
            + Item("name='PARTS'",
                "<list termination='EOL' minSize='1'><record>" + Item("name='A'", "<real/>")
                    + "</record></list>")
            + "</record></list>")
    + Keyword("REPORT",
        "<map><assignment name='ANY*' wildcard='true'><integer/>\n"
        "<validity>\n <simulator name='Dunmere'/>\n <simulator name='Sedge'/>\n <simulator name='Hallow'/>\n"
        "</validity></assignment><assignment name='WELLS'><aliases><alias "
        "name='W'/></aliases><description>Wells.</description><integer><min val='0'/><max val='5'/><default "
        "type='specified' val='1'><override name='Sedge' type='specified' "
        "val='2'/></default></integer><validity>\n <simulator name='Dunmere'/>\n <simulator "
        "name='Sedge'/>\n</validity></assignment></map>")
    + Keyword("REMARKS", "<raw stringTermination='ENDREM'/>")
    + Keyword("WOPR", "<list><string/></list>",
        "<summaryMnemonic><category name='entity' val='Well'/><category name='option' "
        "val='Aqui'/></summaryMnemonic>")
    + Keyword("FOPR",
        "<list "
        "size='1'><customReadTermination><stringTermination>ENDFOPR</stringTermination></"
        "customReadTermination><line/></list>",
        "<summaryMnemonic><category name='entity' val='Field'/><category name='flow' "
        "val='Production'/><category name='function' val='Rate'/><category name='phase' "
        "val='Oil'/></summaryMnemonic>")
    + Keyword("POROS",
        "<list size='NX*NY*NZ' termination='SLASH'><real><min val='1e-07'/><quantity "
        "name='Porosity'/></real></list>",
        "<cell property='PORV' components='true' copyLayerAboveByDefault='true'/>")
    + Keyword(
        "BRANCH", "", "<scope><endKeyword name='FOPR'/><endKeyword name='WOPR' explicit='true'/></scope>");

/// What `show` tells below the table of validity.
std::string Shown(const std::string& name)
{
    const std::string out = RunOn(language, "show " + name).out;
    const std::string lastRow = "    Wend_CLASSIC  -\n";
    const std::size_t place = out.find(lastRow);
    return place == std::string::npos ? out : out.substr(place + lastRow.size());
}

struct Picture {
    const char* name;
    const char* keyword;
    const char* text;
};

class ShowData : public testing::TestWithParam<Picture> { };

TEST_P(ShowData, AsText)
{
    EXPECT_EQ('\n' + Shown(GetParam().keyword), GetParam().text); // each text starts on a line of its own
}

INSTANTIATE_TEST_SUITE_P(Keywords, ShowData,
    testing::Values(Picture{"Record", "FLUID", R"(
  data: record, ends with a slash
    #  item    type              measurement  default  limits       marks
    1  NAME    string                         none     <= 12 chars  identifier, case-sensitive, may
                                                                    contain comma
         Which fluid.
    2  FACTOR  real              ratio        0.1      0 to 1       optional, increasing
         What share of all that there is belongs to this fluid, by volume at the conditions of the
           surface.
         default by simulator: Sedge 0.02, Hallow calculated
    3  LEVEL   integer                        4        >= 2         skippable
         Depth of search.
         only for Thermal, Sedge; unsupported by Sedge
    4  ROWS    list of booleans               NO                    size N, ends by its size,
                                                                    elements may be defaulted, empty
                                                                    elements repeat the one before
         The rows.
         each: Whether to print.
)"},
        Picture{"ListOfRecords", "WELLCTL", R"(
  data: list of records, ends with a slash
    each: record, ends with a slash
      #  item   type             default  marks
      1  MODE   choice           RATE
           choices: RATE (alias FLOW; hidden alias OLD), BHP (not for Sedge), THP (unsupported by
             Hallow)
           default by simulator: Hallow THP
      2  PARTS  list of records           at least 1, ends with the line
           each: record, ends with its last item
             #  item  type  default
             1  A     real  none
)"},
        Picture{"Map", "REPORT", R"(
  data: map of integers, ends with a slash
    key       default  limits  marks           description
    WELLS, W  1        0 to 5  not for Hallow  Wells.
      default by simulator: Sedge 2
    ANY*      none             wildcard
)"},
        Picture{"Raw", "REMARKS", R"(
  data: raw text, ends with ENDREM
)"},
        Picture{"Summary", "WOPR", R"(
  summary: entity Well, option Aquifer
  data: list of strings, ends with a slash
    each: string, default none, <= 8 chars
)"},
        Picture{"EndWord", "FOPR", R"(
  summary: entity Field, flow Production, function Rate, phase Oil
  data: list of lines, size 1, ends with ENDFOPR
    each: line, default none
)"},
        Picture{"Cell", "POROS", R"(
  cell property: PORV, for each component, copied from the layer above by default
  data: list of reals, size NX*NY*NZ, ends with a slash
    each: real, Porosity, default none, >= 1e-07
)"},
        Picture{"Scope", "BRANCH", R"(
  scope: ends with FOPR or WOPR (explicit)
  data: none
)"}),
    CaseName<Picture>);

/// `KEYWORD pointer into the JSON`, and the value there.
class ShowJson : public testing::TestWithParam<Row> { };

TEST_P(ShowJson, HoldsTheMetadata)
{
    const auto parts = Split(GetParam().text, " ");
    const json shown =
        json::parse(RunOn(language, "show --format json " + parts.at(0)).out)["keywords"].at(0);
    EXPECT_EQ(shown.at(json::json_pointer(parts.at(1))), json::parse(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Probes, ShowJson, testing::ValuesIn(Rows(R"(
Root: FLUID /data/type => "record"
Termination: FLUID /data/termination => "SLASH"
Identifiers: FLUID /identifierCount => 1
LengthLimit: FLUID /data/items/0/lengthLimit => 12
NoDefault: FLUID /data/items/0/default/Any => {"type":"no default"}
ItemNumber: FLUID /data/items/1/number => 2
Optional: FLUID /data/items/1/optional => true
Constraint: FLUID /data/items/1/columnConstraint => "increasing"
Measurement: FLUID /data/items/1/measurement => "ratio"
Defaults: FLUID /data/items/1/default => {"Any":{"type":"specified","value":0.1},"Dunmere":{"type":"specified","value":0.1},"Sedge":{"type":"specified","value":0.02,"override":"specified"},"Hallow":{"type":"calculated","override":"calculated"}}
OverrideOfAnotherSimulator: FLUID /data/items/2/default/Wend => {"type":"no default","override":"no default"}
NoLimit: FLUID /data/items/2/max => null
Skippable: FLUID /data/items/2/skippableOnWrite => true
ModesOfAValidity: FLUID /data/items/2/validity/Hallow => ["Thermal"]
NoRestriction: FLUID /data/items/0/validity => null
ListInRecord: FLUID /data/items/3/item/default/Any/value => false
ListFlags: FLUID /data/items/3/fillEmptyElementsWithPreviousValue => true
ChoiceAliases: WELLCTL /data/item/items/0/choices/0/aliases => [{"name":"FLOW","hidden":false},{"name":"OLD","hidden":true}]
ChoiceDefault: WELLCTL /data/item/items/0/default/Hallow/value => "THP"
ChoiceUnsupported: WELLCTL /data/item/items/0/choices/2/unsupportedBy => {"Hallow":["BlackOil","Compositional","Thermal"]}
MinSize: WELLCTL /data/item/items/1/minSize => "1"
Keys: REPORT /data/assignments/0/keys => ["WELLS","W"]
KeyValidity: REPORT /data/assignments/0/validSimulators => ["Dunmere","Sedge"]
Wildcard: REPORT /data/assignments/1/wildcard => true
RawEnd: REMARKS /data/stringTermination => "ENDREM"
EndWords: FOPR /data/endWords => ["ENDFOPR"]
Summary: WOPR /summary => {"entity":"Well","option":"Aquifer"}
Cell: POROS /cellProperty => {"property":"PORV","components":true,"copyLayerAboveByDefault":true,"dualPorosityMatrixOnly":false}
SmallReal: POROS /data/item/min => 1e-07
Scope: BRANCH /scope/endKeywords => [{"name":"FOPR","explicit":false},{"name":"WOPR","explicit":true}]
NoData: BRANCH /data => null
)")),
    CaseName<Row>);

/// Options, and the keywords listed, each with a blank behind it.
class ListFilter : public testing::TestWithParam<Row> { };

TEST_P(ListFilter, Selects)
{
    const Outcome outcome = RunOn(language, "list --format json " + GetParam().text);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    std::string names;
    const json list = json::parse(outcome.out)["keywords"];
    for (const json& row : list)
        names += row["name"].get<std::string>() + ' ';
    EXPECT_EQ(names, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Filters, ListFilter, testing::ValuesIn(Rows(R"(
Cell: --cell => POROS 
Real: --type real => POROS 
Records: --type RECORD => FLUID WELLCTL 
Raw: --type raw => REMARKS 
Map: --type map => REPORT 
Line: --type line => FOPR 
None: --type none => BRANCH 
Measurement: --measurement porosity => POROS 
MeasurementInRecord: --measurement ratio => FLUID 
Entity: --entity well => WOPR 
OptionByName: --option aquifer => WOPR 
OptionByDocumentText: --option AQUI => WOPR 
AllCategories: --entity field --flow production --function RATE --phase Oil => FOPR 
CategoriesThatExclude: --entity Field --option Aquifer =>
WithOthers: --type string --text FOPR =>
)")),
    CaseName<Row>);

TEST(ListRows, CarryTypeAndCategories)
{
    const json rows = json::parse(RunOn(language, "list --text FOPR --format json").out)["keywords"];
    EXPECT_EQ(rows[0]["type"], "line");
    EXPECT_EQ(rows[0]["summary"],
        json({{"entity", "Field"}, {"flow", "Production"}, {"function", "Rate"}, {"phase", "Oil"}}));
    EXPECT_FALSE(
        json::parse(RunOn(language, "list --cell --format json").out)["keywords"][0].contains("summary"));
}

class UnknownWord : public testing::TestWithParam<Row> { };

TEST_P(UnknownWord, IsRefused)
{
    const Outcome outcome = RunOn(language, GetParam().text);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(Holds(outcome.err, GetParam().expected)) << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Filters, UnknownWord, testing::ValuesIn(Rows(R"(
Type: list --type number => number not in {integer,real,
Measurement: list --measurement porosty =>
    quor: error: --measurement: unknown measurement 'porosty'; did you mean Porosity?
    'quor list --measurements' lists all measurements
FarMeasurement: list --measurement xyzzy => quor: error: --measurement: unknown measurement 'xyzzy'\n
Entity: list --entity Wells => Wells not in {Aquifer,Aquifer Gradient,
EntityOfAnotherCategory: list --entity Oil => Oil not in {Aquifer,
Defines: list --defines wel => quor: error: --defines: unknown kind of names 'wel'; did you mean well?\n
RefersTo: list --refers-to xyz => --refers-to: unknown kind of names 'xyz'; expected well, list of wells, group,
Flow: list --flow up => up not in {Injection,Production}
Option: list --option '' =>  not in {API,Aquifer,Conductive Fault,Flow}
)")),
    CaseName<Row>);

} // namespace

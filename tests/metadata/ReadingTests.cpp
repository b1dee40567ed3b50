#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

std::string ReadAndDump(const std::string& xml)
{
    return xml.starts_with("<map") ? Dump(*Read<KeywordMapMDImpl>(xml)) : DumpOf(xml, {});
}

/// An element and what is read of it. What else is read if a line end is before each element follows
/// after "; indented: ".
class Reading : public testing::TestWithParam<Row> { };

/// In the rows, @1 stands for the first value of the kind and @2 for the second.
struct Kind {
    std::string tag;
    std::string one;
    std::string two;
    std::string oneOut;
    std::string twoOut;

    std::string Fill(std::string text, const std::string& first, const std::string& second) const
    {
        for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1))
            text.replace(at, 2, text[at + 1] == '1' ? first : second);
        return text;
    }
};

const Kind kinds[] = {{"real", "0.5", "-2e3", "0.5", "-2000"}, {"integer", "5", "-7", "5", "-7"},
    {"boolean", "YES", "NO", "true", "false"}, {"string", "a b", "", "'a b'", "''"},
    {"line", "a", "b c", "'a'", "'b c'"}};

class Defaults : public testing::TestWithParam<Row> { };
class ChoiceDefaults : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(Reading, FollowsTheDocumentWithAndWithoutLineEnds)
{
    const auto& [name, xml, expected, more, options] = GetParam();
    const std::string separator = "; indented: ";
    const std::size_t at = expected.find(separator);
    EXPECT_EQ(ReadAndDump(xml), expected.substr(0, at));
    EXPECT_EQ(ReadAndDump(Indented(xml)),
        at == std::string::npos ? expected : expected.substr(at + separator.size()));
}

INSTANTIATE_TEST_SUITE_P(Records, Reading, testing::ValuesIn(Rows(R"(
Empty: <record/> => record NONE{}
LastIsPlain: <record><item name='A'><real/></item></record> => record NONE{real#1 A}
LastIsSpecified: <record><item><real/></item><item name='A'><integer><default type='specified' val='1'/></integer></item></record> => record SLASH{real#1; integer#2 A Any=1}
LastIsCalculated: <record><item name='A'><line><default type='calculated'/></line></item></record> => record SLASH{line#1 A Any=calculated}
LastIsTakenBackForAll: <record><item name='A'><real><default type='specified' val='1'><override name='Carrow' type='no default'/></default></real></item></record> => record SLASH{real#1 A Any=1 Carrow=none!no default}
LastHasNoDefault: <record><item name='A'><real><default type='no default'><override name='Wend' type='specified' val='1'/></default></real></item></record> => record NONE{real#1 A Wend=1!specified}
LastNamesNoChoice: <record><item name='A'><choice><default type='specified' val='X'/></choice></item></record> => record SLASH{choice#1 A{} Any=-1}
LastIsOptional: <record><item name='A' optional='true'><string/></item></record> => record SLASH{string#1 A optional}
LastIsAnOptionalList: <record><item name='A' optional='true'><list/></item></record> => record NONE{list#1 A SLASH{} optional}
GivenNone: <record termination='NONE'><item name='A' optional='true'><real/></item></record> => record NONE{real#1 A optional}
FirstTypeCounts: <record><item name='A'><integer/><real><default type='x'/></real><list><x/></list></item></record> => record NONE{integer#1 A}
NumbersCountItemsAlone: <record><description>d</description><item name='A'><real name='X'/></item><!-- -->text<description/><item name='B'><description>i</description><boolean/></item></record> => record NONE{real#1 A; boolean#2 B}
Marks: <record><item name='A' optional='true' identifier='true' columnConstraint='increasing'><real/></item><item name='B' optional='yes' identifier='TRUE' columnConstraint='decreasing'><real/></item><item columnConstraint='strictly_decreasing'><real/></item></record> => record NONE{real#1 A optional identifier increasing; real#2 B decreasing; real#3 strictly_decreasing}
LastPlaceCounts: <record><item name='A'><validity> <simulator name='Wend'/></validity><validity/><real/><unsupportedBy> <simulator name='Sedge'/></unsupportedBy><unsupportedBy/></item></record> => record NONE{real#1 A valid(nowhere)}
Skippable: <record><item><real/></item><item><skippableOnRead>no</skippableOnRead><real/></item><item><real/><skippableOnWrite/></item><item><skippableOnWrite/><skippableOnRead/><real/></item></record> => record NONE{real#1; real#2 skip-read; real#3 skip-write; real#4 skip-read skip-write}
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(ListsAndMaps, Reading, testing::ValuesIn(Rows(R"(
Empty: <list/> => list SLASH{}
EmptySize: <list size=''/> => list NONE size={}
SizeAndTermination: <list size='4' termination='SLASH'/> => list SLASH size=4{}
CustomizedWithoutWords: <list termination='CUSTOMIZED'/> => list CUSTOMIZED{}
WordsOverSize: <list size='1'><customReadTermination/></list> => list CUSTOMIZED words size=1{}
FlagsFalse: <list minSize='1' maxSize='x' itemsDefaultable='1' fillEmptyElementsWithPreviousValue='yes' writeStartingOnNewLine='false' writeTerminationOnNewLine='TRUE'/> => list SLASH min=1 max=x start=false end=false{}
LastTypeCounts: <list><real/><record/><integer name='I'/></list> => list SLASH{integer}
LastDescriptionCounts: <list><description>a</description><description>b</description></list> => list "b" SLASH{}
MapWildcardsStandLast: <map><assignment name='W*' wildcard='true'/><assignment name='A'/><assignment name='V*' wildcard='true'/><assignment name='B' wildcard='yes'/></map> => map SLASH{assignment keys(A); assignment keys(B); assignment keys(W*) wildcard; assignment keys(V*) wildcard}
MapKeysAsTheyStand: <map><assignment name=' a '><aliases><alias name='b'/><x/><alias name='C '/></aliases><aliases><alias name='D'/></aliases></assignment></map> => map SLASH{assignment keys( a |b|C |D)}
MapValidNowhere: <map><assignment name=''><aliases><alias name='B'/></aliases><validity> </validity></assignment></map> => map SLASH{assignment keys(B)}
MapValidForOneThatIsNotKnown: <map><assignment name='A'><validity> <simulator name='X'/> <option value='Thermal'/> <simulator name='Wend'/></validity></assignment></map> => map SLASH{assignment keys(A) valid(Carrow Wend)}
MapValidityAddsUp: <map><assignment name='A'><validity> <simulator name='Sedge'/></validity><validity> <simulator name='Tolmen'/></validity></assignment></map> => map SLASH{assignment keys(A) valid(Sedge Tolmen)}
MapValueIsReadWithoutSimulators: <map><assignment name='A'><description>d</description><integer> <description>i</description><min val='1'/><max val='9'/><default type='specified' val='4'><override name='Sedge' type='no default'/></default></integer><x/></assignment></map> => map SLASH{assignment "d" keys(A) [1..9] Any=4 Carrow=4 Sedge=none!no default}
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Scalars, Reading, testing::ValuesIn(Rows(R"(
RealIsCut: <real><default type="specified" val="1.5x"/></real> => real Any=1.5
RealIsHexadecimal: <real><default type="specified" val=" 0x10"/></real> => real Any=16
NegativeZeroIsNotZero: <real><default type="specified" val="0"><override name="Wend" type="specified" val="-0"/></default></real> => real Any=0 Wend=-0!specified
ValueThatMeansNothing: <real><default type="specified" val="2.2250738585072014e-308"/></real> => real Any=calculated
IntegerIsDecimal: <integer><default type="specified" val=" 010"/></integer> => integer Any=10
BooleanNo: <boolean><default type="specified" val="no"/></boolean> => boolean Any=true
StringAsItStands: <string><default type="specified" val=" &lt;a "/></string> => string Any=' <a '
RealCrossed: <real><max val="1"/><min val="2"/></real> => real [2..1]
RealTwice: <real><min val="1"/><min val="x"/></real> => real [0..]
Integer: <integer><min val="-1"/><max val=" +7"/></integer> => integer [-1..7]
IntegerBlankBehind: <integer><max val="12 "/></integer> => integer
IntegerWithoutValue: <integer><min/><max val=""/></integer> => integer [0..0]
IntegerEarlierStays: <integer><min val="3"/><min val="4.5"/></integer> => integer [3..]
BlankFormatBehindAnother: <real><format>%g</format><format> </format></real> => real as '%g'
EmptyMeasurement: <real><quantity name="length"/><quantity name=""/></real> => real
Description: <line><description>a</description><description> b&#233; </description></line> => line " bé "
StringFlagsNotTrue: <string canContainComma="yes"/> => string
LengthLimit: <string><lengthLimit>12 chars</lengthLimit></string> => string <=12
Choice: <choice><description>d</description><x/><values><value string="a"><validity> <simulator name="Sedge"/></validity><unsupportedBy> <simulator name="Tolmen"/></unsupportedBy><unsupportedBy> <simulator name="Carrow"/></unsupportedBy><aliases> <alias name="Ab"/></aliases><aliases><x/><alias name="C"> <isHiddenAlias/></alias></aliases><x/></value><x/><value string="B"/></values><values><value string="c"/></values></choice> => choice "d"{A|Ab|~C valid(Sedge/BCT) unsupported(Carrow/BCT), B, C}
Unknown: <boolean><x/><values/><record/><min val="1"/><quantity name="x"/></boolean> => boolean
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(PlacesAndOddWalks, Reading, testing::ValuesIn(Rows(R"(
ValidUnknownSimulator: <record><item><real/><validity> <simulator name="X"/></validity></item></record> => record NONE{real#1 valid(Carrow/BCT)}
ValidSimulatorAndModeAddUp: <record><item><real/><validity> <option value="Thermal"/> <simulator name="Sedge"/></validity></item></record> => record NONE{real#1 valid(Carrow/T Dunmere/T Sedge/BCT Hallow/T Marlpit/T Ostrey/T Wend/T Tolmen/T Wend_GE/T Wend_CLASSIC/T)}
ValidWendDoesNotSpeakForItsVariants: <record><item><real/><validity> <simulator name="Wend" classicOnly="true"/></validity></item></record> => record NONE{real#1 valid(Wend/BCT)}
UnsupportedUnknown: <record><item><real/><unsupportedBy> <simulator name="X"/></unsupportedBy></item></record> => record NONE{real#1 unsupported(Carrow/BCT)}
UnsupportedWendBoth: <record><item><real/><unsupportedBy> <simulator name="Wend" gridEditsOnly="true" classicOnly="true"/></unsupportedBy></item></record> => record NONE{real#1 unsupported(Wend/BCT)}
UnsupportedWendNotMarked: <record><item><real/><unsupportedBy> <simulator name="Wend" gridEditsOnly="false" classicOnly="TRUE"/></unsupportedBy></item></record> => record NONE{real#1 unsupported(Wend/BCT Wend_GE/BCT Wend_CLASSIC/BCT)}
UnsupportedVariantSetAgain: <record><item><real/><unsupportedBy> <simulator name="Wend" classicOnly="true"/> <simulator name="Wend_GE"/></unsupportedBy></item></record> => record NONE{real#1 unsupported(Wend/BCT Wend_GE/BCT Wend_CLASSIC/BCT)}
Validity: <record><item><real/><validity><simulator name="Carrow"/><simulator name="Sedge"/><simulator name="Tolmen"/></validity></item></record> => record NONE{real#1 valid(Sedge/BCT)}; indented: record NONE{real#1 valid(Carrow/BCT Sedge/BCT Tolmen/BCT)}
ValidityOption: <record><item><real/><validity><option value="Thermal"/><x/></validity></item></record> => record NONE{real#1 valid(nowhere)}; indented: record NONE{real#1 valid(Carrow/T Dunmere/T Sedge/T Hallow/T Marlpit/T Ostrey/T Wend/T Tolmen/T Wend_GE/T Wend_CLASSIC/T)}
UnsupportedBy: <record><item><real/><unsupportedBy><simulator name="Carrow"/><simulator name="Sedge"/><simulator name="Tolmen"/></unsupportedBy></item></record> => record NONE{real#1 unsupported(Sedge/BCT)}; indented: record NONE{real#1 unsupported(Carrow/BCT Sedge/BCT Tolmen/BCT)}
Aliases: <choice><values><value string="A"><aliases><alias name="A"/><alias name="B"/></aliases></value></values></choice> => choice{A|B}; indented: choice{A|A|B}
AliasMark: <choice><values><value string="A"><aliases> <alias name="A"><isHiddenAlias/></alias> <alias name="B"><x/><isHiddenAlias/></alias></aliases></value></values></choice> => choice{A|A|~B}; indented: choice{A|~A|~B}
AssignmentValidity: <map><assignment name="K"><validity><simulator name="Carrow"/><simulator name="Sedge"/><simulator name="Tolmen"/></validity></assignment></map> => map SLASH{assignment keys(K) valid(Sedge)}; indented: map SLASH{assignment keys(K) valid(Carrow Sedge Tolmen)}
IntegerDescription: <integer><description>a</description><description>b</description><description>c</description></integer> => integer "b"; indented: integer "c"
)")),
    CaseName<Row>);

TEST(Documents, AreReadAlikeInEachLocale)
{
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::string earlierC = std::setlocale(LC_ALL, nullptr);
    const std::locale earlier = std::locale::global(std::locale(std::locale::classic(), new Comma));
    for (const char* const withComma : {"de_DE.UTF-8", "fr_FR.UTF-8", "nb_NO.UTF-8"})
        std::setlocale(LC_ALL, withComma);
    const auto real = Read<KeywordRealMDImpl>(
        "<real><min val='1.5'/><max val='2,5'/><default type='specified' val='1.75'/></real>", {});
    std::locale::global(earlier);
    std::setlocale(LC_ALL, earlierC.c_str());
    EXPECT_EQ(Dump(*real), "real [1.5..2] Any=1.75");
}

TEST(Documents, ShareEqualMeasurements)
{
    const auto a = Read<KeywordRealMDImpl>("<real><quantity name='volume'/></real>");
    const auto b = Read<KeywordRealMDImpl>("<real><quantity name='volume'/></real>");
    const auto other = Read<KeywordRealMDImpl>("<real><quantity name='Volume'/></real>");
    EXPECT_EQ(a->GetMeasurement(), b->GetMeasurement());
    EXPECT_NE(a->GetMeasurement(), other->GetMeasurement());
}

TEST(Documents, KeepTheItemsBeforeAFailure)
{
    KeywordRecordMDImpl record;
    const ParsedElement element("<record><item name='A'><real/></item><item/><item><real/></item></record>");
    EXPECT_EQ(FailureOf([&] { record.ReadXML(element, {}); }),
        "KeywordRecordMDImpl::ItemMDInfo::ReadXML: record item without type specification");
    EXPECT_EQ(Dump(record), "record NONE{real#1 A}");
}

TEST(Records, AnswerBeyondTheLastSkippableItem)
{
    const auto record = Read<KeywordRecordMDImpl>(
        "<record><item><real/></item><item><real/><skippableOnWrite/></item><item><real/></item></record>");
    const ISkippableInfo& skippable = *record->GetSkippableInfo();
    for (const unsigned int index : {0U, 1U, 2U, 4'000'000'000U}) {
        EXPECT_FALSE(skippable.IsSkippableOnRead(index));
        EXPECT_EQ(skippable.IsSkippableOnWrite(index), index == 1);
    }
    EXPECT_EQ(
        Read<KeywordRecordMDImpl>("<record><item><real/></item></record>")->GetSkippableInfo(), nullptr);
}

TEST(Records, AreClassifiedByTheirItems)
{
    for (const Row& row : Rows(R"(
Empty: <record/> => numeric
Numbers: <record><item><integer/></item><item><real/></item></record> => numeric
Choice: <record><item><real/></item><item><choice/></item></record> =>
Line: <record><item><real/></item><item><line/></item></record> => string
List: <record><item><list/></item><item><real/></item></record> => container
RecordAndString: <record><item><record/></item><item><string/></item></record> => container string
)")) {
        const auto record = Read<KeywordRecordMDImpl>(row.text);
        const auto has = [&](const char* word) { return row.expected.find(word) != std::string::npos; };
        EXPECT_EQ(KeywordRecordMDUtil::AllNumeric(*record), has("numeric")) << row.name;
        EXPECT_EQ(KeywordRecordMDUtil::HasNestedContainer(*record), has("container")) << row.name;
        EXPECT_EQ(KeywordRecordMDUtil::HasStringType(*record), has("string")) << row.name;
    }
}

TEST(Lists, EndByTheirWords)
{
    // The flag becomes false on a match, and is left alone without one.
    const auto matches = [](const std::string& words, const std::string& token) {
        bool flag = true;
        const auto list = Read<KeywordListMDImpl>("<list>" + words + "</list>");
        const bool matched = list->GetCustomReadTermination()->Matches(token, flag);
        EXPECT_EQ(flag, !matched);
        return matched;
    };
    const std::string words =
        "<customReadTermination><!-- --><stringTermination>A</stringTermination><stringTermination> "
        "stop</stringTermination></customReadTermination>";
    const std::string none = "<customReadTermination/>";
    for (const char* const token : {"A", "a", " sToP"})
        EXPECT_TRUE(matches(words, token)) << token;
    for (const char* const token : {"", "stop", " A", " STOPS", " STO"})
        EXPECT_FALSE(matches(words, token)) << token;
    EXPECT_FALSE(matches(none, ""));
    EXPECT_FALSE(matches(words + none, "A")) << "the later element replaces";
}

TEST_P(Defaults, AreReadAlikeByEveryScalar)
{
    const auto& [name, xml, expected, more, options] = GetParam();
    const bool forLines = xml.find("<default type='no default'") == std::string::npos;
    for (const Kind& kind : kinds) {
        if (kind.tag == "line" && !forLines)
            continue;
        EXPECT_EQ(DumpOf("<" + kind.tag + ">" + kind.Fill(xml, kind.one, kind.two) + "</" + kind.tag + ">"),
            kind.tag + kind.Fill(expected, kind.oneOut, kind.twoOut) + " for Carrow Sedge");
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, Defaults, testing::ValuesIn(Rows(R"(
CalculatedCalculated: <default type='calculated'><override name='Carrow' type='calculated'/></default> =>  Any=calculated Carrow=calculated!calculated Sedge=calculated
CalculatedSpecified: <default type='calculated'><override name='Carrow' type='specified' val='@2'/></default> =>  Any=calculated Carrow=@2!specified Sedge=calculated
CalculatedNone: <default type='calculated'><override name='Carrow' type='no default'/></default> =>  Any=calculated Carrow=none!no default Sedge=calculated
SpecifiedCalculated: <default type='specified' val='@1'><override name='Carrow' type='calculated'/></default> =>  Any=@1 Carrow=calculated!calculated Sedge=@1
SpecifiedSpecified: <default type='specified' val='@1'><override name='Carrow' type='specified' val='@2'/></default> =>  Any=@1 Carrow=@2!specified Sedge=@1
SpecifiedNone: <default type='specified' val='@1'><override name='Carrow' type='no default'/></default> =>  Any=@1 Carrow=none!no default Sedge=@1
OtherSimulatorNone: <default type='specified' val='@1'><override name='Wend' type='no default'/></default> =>  Any=@1 Carrow=@1 Sedge=@1 Wend=none!no default
LaterOverrideWins: <default type='specified' val='@1'><override name='Carrow' type='no default'/><override name='Wend' type='no default'/><override name='Carrow' type='calculated'/><override name='Wend' type='specified' val='@2'/></default> =>  Any=@1 Carrow=calculated!calculated Sedge=@1 Wend=@2!specified
OverrideTakenBack: <default type='specified' val='@1'><override name='Carrow' type='specified' val='@2'/><override name='Carrow' type='no default'/></default> =>  Any=@1 Carrow=none!no default Sedge=@1
OtherChildren: <default type='specified' val='@1'><min val='x'/>text<!-- --><override name='Carrow' type='no default'/><x><override name='Wend' type='no default'/></x></default> =>  Any=@1 Carrow=none!no default Sedge=@1
SecondWritesOverFirst: <default type='specified' val='@1'><override name='Carrow' type='specified' val='@2'/><override name='Wend' type='specified' val='@2'/></default><default type='calculated'/> =>  Any=calculated Carrow=calculated!specified Sedge=calculated Wend=@2!specified
NoWithValue: <default type='no default' val='@1'/> =>
NoCalculated: <default type='no default'><override name='Carrow' type='calculated'/></default> =>  Carrow=calculated!calculated
NoSpecified: <default type='no default'><override name='Carrow' type='specified' val='@2'/></default> =>  Carrow=@2!specified
FirstStaysUnderSecond: <default type='specified' val='@1'><override name='Carrow' type='calculated'/></default><default type='no default'><override name='Wend' type='specified' val='@2'/></default> =>  Any=@1 Carrow=calculated!calculated Sedge=@1 Wend=@2!specified
)")),
    CaseName<Row>);

TEST_P(ChoiceDefaults, AreIndices)
{
    const LogCapture quiet;
    const std::string words =
        "<values><value string='ALPHA'/><value string='ALTO'/><value string='BETA'/></values>";
    for (const std::string& xml : {words + GetParam().text, GetParam().text + words})
        EXPECT_EQ(DumpOf("<choice>" + xml + "</choice>"),
            "choice{ALPHA, ALTO, BETA}" + GetParam().expected + " for Carrow Sedge");
}

INSTANTIATE_TEST_SUITE_P(Documents, ChoiceDefaults, testing::ValuesIn(Rows(R"(
Abbreviated: <default type='specified' val='AL'/> =>  Any=1 Carrow=1 Sedge=1
NoSuchChoice: <default type='specified' val='ZZ'/> =>  Any=-1 Carrow=-1 Sedge=-1
Blank: <default type='specified' val=''/> =>  Any=-1 Carrow=-1 Sedge=-1
CalculatedBySimulatorIsOverwritten: <default type='specified' val='BETA'><override name='Carrow' type='calculated'/></default> =>  Any=2 Carrow=2!calculated Sedge=2
CalculatedByAnotherSimulatorIsNot: <default type='specified' val='BETA'><override name='Wend' type='calculated'/></default> =>  Any=2 Carrow=2 Sedge=2 Wend=calculated!calculated
NoneBySimulatorLeavesACalculatedOne: <default type='calculated'><override name='Carrow' type='no default'/></default> =>  Any=calculated Carrow=calculated!no default Sedge=calculated
SpecifiedOverCalculated: <default type='calculated'><override name='Carrow' type='specified' val='alpha'/></default> =>  Any=calculated Carrow=0!specified Sedge=calculated
UnknownTypeIsNone: <default type='Specified' val='BETA'/> =>
MissingTypeIsNone: <default val='BETA'><override name='Carrow' type='specified' val='alpha'/></default> =>  Carrow=0!specified
SecondOverFirst: <default type='specified' val='BETA'/><default type='specified' val='alpha'/> =>  Any=0 Carrow=0 Sedge=0
SpecifiedThenCalculated: <default type='specified' val='BETA'/><default type='calculated'/> =>  Any=2 Carrow=2 Sedge=2
SpecifiedThenNone: <default type='specified' val='BETA'/><default type='no default'/> =>
CalculatedThenNone: <default type='calculated'/><default type='no default'/> =>  Any=calculated Carrow=calculated Sedge=calculated
)")),
    CaseName<Row>);

TEST(IntegerDefaults, AreAlsoAMap)
{
    using Defaults = KeywordIntegerMDImpl::Defaults;
    const auto integer = Read<KeywordIntegerMDImpl>(
        "<integer><default type='specified' val='4'><override name='Carrow' type='calculated'/><override "
        "name='Wend' type='no default'/></default></integer>");
    EXPECT_EQ(integer->GetDefaults(),
        (Defaults{{SimulatorType::Carrow, {}}, {SimulatorType::Sedge, 4}, {SimulatorType::Any, 4}}));
    integer->SetDefaults({{SimulatorType::Tolmen, 9}, {SimulatorType::Any, {}}});
    EXPECT_EQ(Dump(*integer),
        "integer Any=calculated Carrow=none!calculated Wend=none!no default Tolmen=9 for Carrow Sedge");
}

TEST(IntegerDefaults, ManyDifferentOnesFit)
{
    KeywordIntegerMDImpl integer;
    KeywordIntegerMDImpl::Defaults expected;
    for (int round = 0; round < 3; ++round) {
        std::string xml = "<integer><default type='specified' val='" + std::to_string(-round) + "'>";
        expected[SimulatorType::Any] = -round;
        for (const auto& row : SimulatorType::EnumInfos()) {
            if (round > 0 && row.value == SimulatorType::Tolmen)
                continue; // stays what it was
            expected[row.value] = 100 * round + row.value;
            xml += "<override name='" + row.text + "' type='specified' val='"
                + std::to_string(100 * round + row.value) + "'/>";
        }
        integer.ReadXML(ParsedElement(xml + "</default></integer>"), carrowAndSedge);
        EXPECT_EQ(integer.GetDefaults(), expected);
    }
}

#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;

namespace {

class KeywordFailure : public testing::TestWithParam<Row> { };
/// The same override is refused below the default of every scalar.
class OverrideFailure : public testing::TestWithParam<Row> { };

std::string FailureOfKeyword(const std::string& xml)
{
    return LoadFailureOf("<keyword name='BEFORE'/><keyword name='X'>" + xml + "</keyword>");
}

} // namespace

TEST_P(KeywordFailure, EndsTheLoad)
{
    EXPECT_EQ(FailureOfKeyword(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Documents, KeywordFailure, testing::ValuesIn(Rows(R"(
DataType: <data><real/></data> => X: KeywordSyntax::CreateDataMD: unhandled keyword data type: real
RecordTermination: <data><record termination='slash'/></data> => X: KeywordRecordMDImpl::ReadXML: unrecoqnized termination setting
RecordChild: <data><record><map/></record></data> => X: KeywordRecordMDImpl::ReadXML: unhandled record child type: map
ColumnConstraint: <data><record><item columnConstraint='Increasing'><real/></item></record></data> => X: KeywordRecordMDImpl::ReadXML: unrecoqnized columnConstraint setting
MapAsItem: <data><record><item><map/></item></record></data> => X: KeywordRecordMDImpl::ItemMDInfo::ReadXML: unhandled record item type: map
RawBehindAType: <data><record><item><real/><raw/></item></record></data> => X: KeywordRecordMDImpl::ItemMDInfo::ReadXML: unhandled record item type: raw
ListTermination: <data><list termination='NO'/></data> => X: KeywordListMDImpl::ReadXML: unrecoqnized termination setting
ListChild: <data><list><item/></list></data> => X: KeywordListMDImpl::ReadXML: unhandled list item type: item
MapInList: <data><list><map/></list></data> => X: KeywordListMDImpl::ReadXML: unhandled list item type: map
DefaultableRecord: <data><list itemsDefaultable='true'><real/><record/></list></data> => X: KeywordListMDImpl::ReadXML: <list itemsDefaultable="true"/> does not contain a primitive type
ListWords: <data><list><customReadTermination><string/></customReadTermination></list></data> => X: CustomReadTermination ctor: unhandled list item type: string
MapTermination: <data><map termination='Slash'/></data> => X: KeywordMapMDImpl::ReadXML: unrecoqnized termination setting
MapChild: <data><map><assignment/><item/></map></data> => X: KeywordMapMDImpl::ReadXML: unhandled map child node: item
MapValue: <data><map><assignment><integer><default type=''/></integer></assignment></map></data> => X: Invalid type encountered.
RawChild: <data><raw><description/><stringTermination/></raw></data> => X: KeywordRawMDImpl::ReadXML: unhandled list item type: stringTermination
SummaryChild: <summaryMnemonic><x/></summaryMnemonic> => X: SummaryMnemonicInfo::SummaryMnemonicInfo(): unhandled element type: x
Category: <summaryMnemonic><category name='Entity' val='Well'/></summaryMnemonic> => X: SummaryMnemonicInfo::SummaryMnemonicInfo(): unhandled category name: Entity
ScopeChild: <scope><endKeyword name='E'/><keyword name='E'/></scope> => X: ScopeInfo::ScopeInfo(): unhandled element type: keyword
CategoryWithoutName: <summaryMnemonic><category val='Well'/></summaryMnemonic> => X: SummaryMnemonicInfo::SummaryMnemonicInfo(): unhandled category name: 
FirstDataElementAlone: <data/><data><x/></data> => X: KeywordSyntax::CreateDataMD: unhandled keyword data type: x
NotASecondDataElement: <data><raw/></data><data><x/></data> => loaded
SecondTypeOfData: <data><raw/><real/></data> => loaded
RealValueMissing: <data><list><real><default type='specified'/></real></list></data> => X: A value must be supplied for defaults of type "specified".
RealValueForbidden: <data><list><real><default type='calculated' val=''/></real></list></data> => X: A value must not be supplied for defaults of type "calculated".
RealType: <data><list><real><default type='Specified' val='1'/></real></list></data> => X: Invalid type encountered.
LineNoDefault: <data><list><line><default type='no default'/></line></list></data> => X: Invalid type encountered.
ChoiceValueMissing: <data><list><choice><default type='specified'/></choice></list></data> => X: A value must be supplied for defaults of type "specified".
ChoiceValueForbidden: <data><list><choice><default type='calculated' val='A'/></choice></list></data> => X: A value must not be supplied for defaults of type "calculated".
)")),
    CaseName<Row>);

TEST_P(OverrideFailure, EndsTheLoadForEveryScalar)
{
    for (const std::string tag : {"real", "integer", "boolean", "string", "line", "choice"}) {
        for (const std::string own : {"type='calculated'", "type='specified' val='1'"})
            EXPECT_EQ(FailureOfKeyword("<data><list><" + tag + "><default " + own + ">" + GetParam().text
                          + "</default></" + tag + "></list></data>"),
                GetParam().expected)
                << tag << " " << own;
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, OverrideFailure, testing::ValuesIn(Rows(R"(
Simulator: <override name='wend' type='calculated'/> => X: Unknown simulator encountered.
NoSimulator: <override type='x'/> => X: Unknown simulator encountered.
Type: <override name='Wend' type='x'/> => X: Invalid type encountered.
ValueMissing: <override name='Wend' type='specified'/> => X: A value must be supplied for defaults of type "specified".
ValueForbidden: <override name='Wend' type='calculated' val='1'/> => X: A value must not be supplied for defaults of type "calculated".
)")),
    CaseName<Row>);

#include "tests/metadata/MetadataText.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

/// Every element and attribute that a list, a record and their items may have. The map and the raw text are
/// only at the top of a keyword's data, and have separate keywords.
const std::string listXml = Indented(
    R"(<list size="2*N" minSize="1" maxSize="9" termination="EOL" fillEmptyElementsWithPreviousValue="true"
    writeStartingOnNewLine="true" writeTerminationOnNewLine="false"><description>rows</description>
  <customReadTermination><stringTermination>ENDX</stringTermination></customReadTermination>
  <record termination="SLASH"><description>row</description>
  <item name="R" optional="true" identifier="true" columnConstraint="strictly_increasing">
    <description>item</description>
    <real><description>real</description><min val="0.5"/><max val="1e3"/><quantity name="pressure"/>
      <format>%.3f</format>
      <default type="specified" val="1.5"><override name="Carrow" type="calculated"/>
        <override name="Sedge" type="specified" val="2.5"/><override name="Wend" type="no default"/></default>
    </real>
    <validity><simulator name="Carrow"/><option value="Thermal"/></validity>
    <unsupportedBy><simulator name="Wend" classicOnly="true"/></unsupportedBy>
    <skippableOnRead/><skippableOnWrite/></item>
  <item name="I" identifier="true"><integer><description>integer</description><min val="-1"/><max val="7"/>
    <format>%d</format><default type="calculated"/></integer></item>
  <item name="B"><boolean><description>boolean</description><default type="specified" val="NO"/></boolean></item>
  <item name="S"><string canContainComma="true"><description>string</description>
    <default type="no default"/><caseSensitive/><lengthLimit>40</lengthLimit></string></item>
  <item name="C"><choice><description>choice</description><default type="specified" val="two"/><values>
    <value string="one"><validity><simulator name="Sedge"/></validity>
      <unsupportedBy><simulator name="Wend" gridEditsOnly="true"/></unsupportedBy>
      <aliases><alias name="UNO"/><alias name="UN"><isHiddenAlias/></alias></aliases></value>
    <value string="two"/></values></choice></item>
  <item name="V"><list itemsDefaultable="true"><integer><default type="specified" val="3"/></integer></list></item>
  <item name="L"><line><description>line</description><default type="specified" val="text"/></line></item>
  </record></list>)");

const std::string mapXml = Indented(R"(<map termination="EOL"><description>map</description>
  <assignment name="A"><description>assignment</description>
    <integer><min val="1"/><max val="5"/><default type="specified" val="2"/></integer>
    <aliases><alias name="AA"/></aliases><validity><simulator name="Carrow"/></validity></assignment>
  <assignment name="A*" wildcard="true"/></map>)");

/// What becomes of the text, cut off after each byte and all open elements closed. Without them closed, no
/// such text can be read.
template <class Impl>
std::map<std::string, int> OutcomesOfCuts(const std::string& xml)
{
    std::map<std::string, int> outcomes;
    std::vector<std::string> open;
    for (std::size_t size = 1; size < xml.size(); ++size) {
        std::string text = xml.substr(0, size);
        Service::XML::XMLDocument document;
        EXPECT_FALSE(document.readMemory(text.data(), text.size(), "test")) << text;
        if (const std::size_t tag = text.rfind('<'); text.back() == '>') {
            if (text[tag + 1] == '/')
                open.pop_back();
            else if (text[size - 2] != '/')
                open.push_back(text.substr(tag + 1, text.find_first_of(" >\n", tag) - tag - 1));
        }
        for (auto name = open.rbegin(); name != open.rend(); ++name)
            text += "</" + *name + ">";
        const bool wellFormed = document.readMemory(text.data(), text.size(), "test");
        ++outcomes[wellFormed ? FailureOf([&] { Read<Impl>(text); }) : "refused"];
    }
    return outcomes;
}

/// Goes through a tree without the library's own walk, and looks at each node.
class Visitor {
public:
    std::vector<const IKeywordDataMD*> nodes; ///< in pre-order, without wildcards
    int identifiers = 0;

    void Visit(const IKeywordDataMD& md)
    {
        SCOPED_TRACE(md.GetName());
        nodes.push_back(&md);
        if (const auto* const list = dynamic_cast<const IKeywordListMD*>(&md); list && list->GetItemMD())
            Visit(*list->GetItemMD());
        const auto* const map = dynamic_cast<const IKeywordMapMD*>(&md);
        for (int i = 0; map && i < map->GetSize(); ++i)
            Visit(*map->GetItemMD(i));
        const auto* const record = dynamic_cast<const IKeywordRecordMD*>(&md);
        for (int i = 0; record && i < record->GetSize(); ++i) {
            const IKeywordDataMD& item = *record->GetItemMD(i);
            EXPECT_EQ(item.GetItemNumber(), static_cast<unsigned int>(i) + 1);
            identifiers += record->IsIdentifier(i) ? 1 : 0;
            Visit(item);
        }
    }
};

} // namespace

TEST(WholeKeyword, IsReadToTheLastAttribute)
{
    const LoadedTable table("<keyword name='X'><validSimulators><simulator name='Carrow'/><simulator "
                            "name='Wend' gridEditsOnly='true' classicOnly='true'/><simulator name='Tolmen' "
                            "supportLevel='ignored'/></validSimulators><data>"
        + listXml + "</data></keyword><keyword name='M'><data>" + mapXml
        + "</data><validSimulators><simulator name='Carrow'/></validSimulators></keyword><keyword "
          "name='W'><data><raw stringTermination='ENDW'/></data></keyword>");
    const IKeywordSyntax& syntax = table.Get("X");
    EXPECT_EQ(Dump(*syntax.GetDataMD()),
        "list \"rows\" CUSTOMIZED words size=2*N min=1 max=9 fill start=true end=false{record SLASH{real#1 R "
        "\"real\" in pressure [0.5..1000] as '%.3f' Any=1.5 Carrow=calculated!calculated Sedge=2.5!specified "
        "Wend=none!no default for Carrow Wend optional identifier strictly_increasing skip-read skip-write "
        "valid(Carrow/BCT Dunmere/T Sedge/T Hallow/T Marlpit/T Ostrey/T Wend/T Tolmen/T Wend_GE/T "
        "Wend_CLASSIC/T) unsupported(Wend/BCT Wend_CLASSIC/BCT); integer#2 I \"integer\" [-1..7] as '%d' "
        "Any=calculated Carrow=calculated Wend=calculated for Carrow Wend identifier; boolean#3 B "
        "\"boolean\" Any=false Carrow=false Wend=false for Carrow Wend; string#4 S \"string\" <=40 case "
        "comma for Carrow Wend; choice#5 C \"choice\"{ONE|UNO|~UN valid(Sedge/BCT) unsupported(Wend/BCT "
        "Wend_GE/BCT), TWO} Any=1 Carrow=1 Wend=1 for Carrow Wend; list#6 V SLASH defaultable{integer Any=3 "
        "Carrow=3 Wend=3 for Carrow Wend}; line#7 L \"line\" Any='text' Carrow='text' Wend='text' for Carrow "
        "Wend}}");
    EXPECT_EQ(syntax.GetIdentifierCount(), 2);
    // The map's own validity is after its data, and comes too late.
    EXPECT_EQ(Dump(*table.Get("M").GetDataMD()),
        "map EOL{assignment \"assignment\" keys(A|AA) valid(Carrow) [1..5] Any=2 Carrow=2 Dunmere=2 Sedge=2 "
        "Hallow=2 Marlpit=2 Ostrey=2 Wend=2 Tolmen=2 Wend_GE=2 Wend_CLASSIC=2; assignment keys(A*) "
        "wildcard}");
    EXPECT_EQ(Dump(*table.Get("W").GetDataMD()), "raw 'ENDW'");
}

TEST(WholeKeyword, CutOffAnywhereIsReadOrRefused)
{
    const LogCapture quiet;
    const std::map<std::string, int> outcomes = OutcomesOfCuts<KeywordListMDImpl>(listXml);
    std::string texts;
    for (const auto& [text, count] : outcomes)
        texts += text + "\n";
    EXPECT_EQ(texts,
        "KeywordListMDImpl::ReadXML: <list itemsDefaultable=\"true\"/> does not contain a primitive type\n"
        "KeywordRecordMDImpl::ItemMDInfo::ReadXML: record item without type specification\n"
        "done\n"
        "refused\n");
    EXPECT_GT(outcomes.at("done"), 200);
    EXPECT_EQ(OutcomesOfCuts<KeywordMapMDImpl>(mapXml).size(), 2U);
}

TEST(BuiltIn, KeywordsAreWalkedInTheOrderOfTheirItems)
{
    KeywordSyntaxTable::Instance(true, false);
    KeywordSyntaxEnumerator keywords = KeywordSyntaxTable::Instance().KeywordsEnumerator();
    std::size_t nodes = 0;
    while (keywords.NextWithHidden()) {
        const IKeywordSyntax& syntax = *keywords.Current()->second;
        SCOPED_TRACE(syntax.GetName());
        const IKeywordDataMD* const root = syntax.GetDataMD();
        Visitor visitor;
        if (root && root->GetType() != IKeywordDataMD::MDType::Raw) {
            visitor.Visit(*root);
            std::vector<const IKeywordDataMD*> walked;
            for (ConstMetaDataIterator it(*root); it != ConstMetaDataIterator::End(); ++it)
                walked.push_back(*it);
            EXPECT_EQ(walked, visitor.nodes);
        }
        EXPECT_EQ(syntax.GetIdentifierCount(), visitor.identifiers);
        EXPECT_EQ(syntax.HasIdentifiers(), visitor.identifiers > 0);
        nodes += visitor.nodes.size();
    }
    EXPECT_GT(nodes, 1000U);
    KeywordSyntaxTable::Instance(true, false);
}

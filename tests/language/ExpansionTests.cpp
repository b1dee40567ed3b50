#include "tests/language/PackLanguage.h"
#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;

namespace {

/// `pieces @@ document`, or the document alone.
std::string PackText(const std::string& text)
{
    const std::size_t at = text.find(" @@ ");
    if (at == std::string::npos)
        return Pack({text, {}, {}, {}});
    return Pack({text.substr(at + 4), text.substr(0, at), {}, {}});
}

class ShortForm : public testing::TestWithParam<Row> { };
class Mistake : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(ShortForm, StandsForElements)
{
    EXPECT_EQ(PackText(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, ShortForm, testing::ValuesIn(Rows(R"(
Piece: <piece name="a"><x/><y/></piece> @@ <k><use piece="a"/><z/><use piece="a"/></k> => <k><x/><y/><z/><x/><y/></k>
PieceInPiece: <piece name="a"><use piece="b"/></piece><piece name="b"><x/></piece> @@ <use piece="a"/> => <x/>
PieceOfShortForms: <piece name="a"><real name="A">T.</real></piece> @@ <record><use piece="a"/></record> => <record><item name="A"><real><description>T.</description></real></item></record>
CommentAmongPieces: <!-- a --><piece name="a"/> @@ <k><use piece="a"/></k> => <k/>
Scalar: <list><real min="0" max="1" default="2" quantity="q">T.</real></list> => <list><real><description>T.</description><min val="0"/><max val="1"/><default type="specified" val="2"/><quantity name="q"/></real></list>
AttributesInAnyOrder: <real quantity="q" default="calculated" max="1" min="0"/> => <real><min val="0"/><max val="1"/><default type="calculated"/><quantity name="q"/></real>
NoDefault: <integer default="no default"/> => <integer><default type="no default"/></integer>
EmptyDefault: <string default=""/> => <string><default type="specified" val=""/></string>
String: <string canContainComma="true" caseSensitive="true" lengthLimit="8" default="A">T.</string> => <string canContainComma="true"><description>T.</description><default type="specified" val="A"/><caseSensitive/><lengthLimit>8</lengthLimit></string>
Choice: <choice words="A  B|C|(D)~  +E" default="A">T.</choice> => <choice><description>T.</description><values><value string="A"/><value string="B"><aliases><alias name="C"/><alias name="D"><isHiddenAlias/></alias></aliases></value><value string="+E"/></values><default type="specified" val="A"/></choice>
ChoiceWithValues: <choice default="A"><description>T.</description><values><value string="A"/></values></choice> => <choice><description>T.</description><values><value string="A"/></values><default type="specified" val="A"/></choice>
ItemOfRecord: <record><integer columnConstraint="increasing" min="1" identifier="true" optional="true" name="N">T.</integer></record> => <record><item name="N" optional="true" identifier="true" columnConstraint="increasing"><integer><description>T.</description><min val="1"/></integer></item></record>
ItemWithValidity: <record><line name="N"><validity/><description>T.</description><skippableOnRead/></line></record> => <record><item name="N"><line><description>T.</description></line><validity/><skippableOnRead/></item></record>
Records: <data><records><boolean name="N"/></records></data> => <data><list termination="SLASH" writeStartingOnNewLine="true" writeTerminationOnNewLine="true"><record termination="SLASH"><item name="N"><boolean/></item></record></list></data>
Keyword: <keyword name="K" precedents="A B" sections="GRID~ EDIT"><description>T.</description><aliases/><scope/><data/></keyword> => <keyword name="K"><description>T.</description><aliases/><validSections><section name="GRID"/><section name="EDIT"/></validSections><precedents><precedent name="A"/><precedent name="B"/></precedents><scope/><data/></keyword>
KeywordWithoutData: <keyword name="K" sections="GRID"><description>T.</description></keyword> => <keyword name="K"><description>T.</description><validSections><section name="GRID"/></validSections></keyword>
LongForm: <record><item name="A"><real><description>T.</description><min val="0"/></real></item></record> => <record><item name="A"><real><description>T.</description><min val="0"/></real></item></record>
BlanksOfTexts: <description>~  A  b~  c.~</description> => <description>A b c.</description>
SpecialCharacters: <k a='&lt;&gt;&quot;&amp;é'>&lt;&amp;é></k> => <k a="&lt;&gt;&quot;&amp;é">&lt;&amp;é></k>
Comment: <k><!-- a --><x/></k> => <k><!-- a --><x/></k>
)")),
    CaseName<Row>);

TEST_P(Mistake, IsRefused)
{
    EXPECT_EQ(PackText(GetParam().text), "error: " + GetParam().expected + "\n");
}

INSTANTIATE_TEST_SUITE_P(All, Mistake, testing::ValuesIn(Rows(R"(
MisspeltPiece: <piece name="box"/> @@ ~ <use piece="bix"/> => document.xml:4:2: unknown piece 'bix'; did you mean 'box'?
UnknownPiece: <k/><use~piece="wells"/> => document.xml:3:5: unknown piece 'wells'; define it in language/pieces
UnknownPieceAfterOtherLetters: <k>é€😀</k><use piece="a"/> => document.xml:3:17: unknown piece 'a'; define it in language/pieces
UnknownPieceInPiece: <piece name="a"><use piece="wells"/></piece> @@ <use piece="a"/> => pieces.xml:3:17: unknown piece 'wells'; define it in language/pieces
PieceOfItself: <piece name="a"><use piece="b"/></piece>~<piece name="b"><k><use piece="a"/></k></piece> @@ <use piece="a"/> => pieces.xml:4:20: piece 'a' uses itself: a > b > a; remove this use
UnusedPiece: <piece name="a"/>~<piece name="b"/> @@ <use piece="a"/> => pieces.xml:4:1: piece 'b' is never used; remove it, or write <use piece="b"/> where it belongs
PieceDefinedTwice: <piece name="a"/>~<piece name="a"/> @@ <use piece="a"/> => pieces.xml:4:1: piece 'a' is defined twice, first at pieces.xml:3:1; rename or remove one
PieceWithoutName: <piece/> @@ <k/> => pieces.xml:3:1: <piece> needs the attribute name, and no other
UseWithoutName: <use/> => document.xml:3:1: <use> needs the attribute piece, and no other
UseWithMore: <use piece="a" optional="true"/> => document.xml:3:1: <use> needs the attribute piece, and no other
UseWithText: <piece name="a"/> @@ <use piece="a">T.</use> => document.xml:3:1: <use> must be empty
NoPiece: <item/> @@ <k/> => pieces.xml:3:1: <item> in <pieces>; expected <piece name="...">
ItemInList: <list><real name="A"/></list> => document.xml:3:7: <real name="A"> is an item, and <list> has none; remove the name or put it into a record
TextBesideElements: <real>T.<min val="0"/></real> => document.xml:3:1: <real> has text beside elements; put the text into an element such as <description>
NotWellFormed: <a></b> => document.xml:3:6: expected end of tag 'a'
)")),
    CaseName<Row>);

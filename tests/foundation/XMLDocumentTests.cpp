#include "quor/Keywords.h"

#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SmallStack.h"

#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include <iconv.h>
#include <sys/stat.h>

using namespace std::string_literals;
using namespace Veld::Quor::Core::Service::XML;
using Veld::Quor::Core::Keywords::KeywordSyntaxTable;
using namespace Veld::Quor::Tests;

namespace {

std::string Repeat(std::string_view text, std::size_t times)
{
    std::string all;
    all.reserve(text.size() * times);
    for (; times > 0; --times)
        all += text;
    return all;
}

std::string Nested(std::size_t depth)
{
    return Repeat("<e>", depth) + Repeat("</e>", depth);
}

std::string WithAttributes(std::size_t count)
{
    std::string text = "<r";
    for (std::size_t i = 0; i < count; ++i)
        text += " a" + std::to_string(i) + "=''";
    return text + "/>";
}

/// A UTF-8 text in another character set.
std::string Encode(std::string text, const char* charset)
{
    const iconv_t converter = ::iconv_open(charset, "UTF-8");
    if (converter == reinterpret_cast<iconv_t>(-1)) // NOLINT(performance-no-int-to-ptr): its own error value
        throw std::runtime_error("no character set "s + charset);
    std::string encoded(4 * text.size() + 8, '\0');
    char* from = text.data();
    char* to = encoded.data();
    std::size_t left = text.size();
    std::size_t room = encoded.size();
    const std::size_t result = ::iconv(converter, &from, &left, &to, &room);
    ::iconv_close(converter);
    if (result != 0)
        throw std::runtime_error(text + " can't be written in " + charset);
    encoded.resize(encoded.size() - room);
    return encoded;
}

/// A node and all below it: tag[attribute=value]{...}, 'text', !comment, [CDATA section], ?instruction.
std::string Dump(const xercesc::DOMNode& node)
{
    std::string text = XToC(node.getNodeName());
    const std::string value = XToC(node.getNodeValue());
    switch (node.getNodeType()) {
    case xercesc::DOMNode::TEXT_NODE:
        return "'" + value + "'";
    case xercesc::DOMNode::COMMENT_NODE:
        return "!" + value;
    case xercesc::DOMNode::CDATA_SECTION_NODE:
        return "[" + value + "]";
    case xercesc::DOMNode::PROCESSING_INSTRUCTION_NODE:
        return "?" + text + " " + value;
    default:
        break;
    }
    if (const xercesc::DOMNamedNodeMap* const attributes = node.getAttributes()) {
        for (XMLSize_t i = 0; i < attributes->getLength(); ++i)
            text.append("[")
                .append(XToC(attributes->item(i)->getNodeName()))
                .append("=")
                .append(XToC(attributes->item(i)->getNodeValue()))
                .append("]");
    }
    text += "{";
    for (const xercesc::DOMNode* child = node.getFirstChild(); child; child = child->getNextSibling())
        text += Dump(*child);
    return text + "}";
}

/// What is in the document's root, or "refused".
std::string DumpOf(const std::string& text)
{
    XMLDocument document;
    const xercesc::DOMDocument* const dom = document.readMemory(text.data(), text.size(), "text");
    return dom ? Dump(*dom->getDocumentElement()) : "refused";
}

/// A document, and where and why it is refused, as far as the message goes.
class RefusedDocument : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(RefusedDocument, IsNullAndLoggedWithItsPosition)
{
    const auto& [name, text, why, more, options] = GetParam();
    const TemporaryDirectory directory;
    const std::string path = directory.Write("x.xml", text);
    LogCapture log;
    XMLDocument document;
    EXPECT_EQ(document.readMemory(text.data(), text.size(), "stranger.xml"), nullptr);
    EXPECT_EQ(document.read(path.c_str()), nullptr);
    EXPECT_EQ(document.GetDocument(), nullptr);
    const ScopedVariable main(mainVariable, path); // a table is loaded without a DOM
    testing::internal::CaptureStdout();
    EXPECT_THROW(KeywordSyntaxTable::Instance(), Veld::Quor::Core::Service::Exception);
    EXPECT_NE(testing::internal::GetCapturedStdout().find(path), std::string::npos);
    ASSERT_EQ(log.Lines().size(), 3U);
    EXPECT_EQ(log.Lines()[2].text, log.Lines()[1].text);
    EXPECT_EQ(log.Lines()[0].text.substr(0, 13 + why.size()), "stranger.xml:" + why);
    EXPECT_EQ(log.Lines()[1].text.substr(0, path.size() + 1 + why.size()), path + ":" + why);
    EXPECT_EQ(static_cast<int>(log.Lines()[0].severity), 3);
}

INSTANTIATE_TEST_SUITE_P(DocumentTypes, RefusedDocument, testing::ValuesIn(Rows(R"(
Bare: <!DOCTYPE r><r/> => 1:13: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
Entity: <!DOCTYPE r [<!ENTITY e 'x'>]>\n<r>&e;</r> => 1:13: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
External: <!DOCTYPE r SYSTEM 'secret.dtd'><r/> => 1:32: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
Public: <!DOCTYPE r PUBLIC '-//x' 'http://localhost/x.dtd'><r/> => 1:51: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
ParameterEntity: <!DOCTYPE r [<!ENTITY % p SYSTEM 'secret.dtd'> %p;]><r/> => 1:13: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
DefaultAttribute: <!DOCTYPE r [<!ATTLIST r a CDATA 'x'>]><r/> => 1:13: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
Laughs: <!DOCTYPE r [<!ENTITY a 'ha'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'><!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>]><r>&c;</r> => 1:13: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
Unfinished: <!DOCTYPE r [ => 1:13: a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Malformed, RefusedDocument, testing::ValuesIn(Rows(R"(
Empty:  => 1:1: invalid document structure
Blank:  \n => 2:1: invalid document structure
Text: hello => 1:1: invalid document structure
Unclosed: <r>\n<a></r> => 2:6: expected end of tag 'a'
Truncated: <r>\n<a x='1' => 2:9: whitespace expected
AttributeTwice: <r a='' a=''/> => 1:13: attribute 'a' is already specified for element 'r'
UndefinedEntity: <r>\n &e;</r> => 2:5: entity 'e' not found
UndefinedEntityInAttribute: <r a='&e;'/> => 1:10: entity 'e' not found
ReferenceToSurrogate: <r>&#xD800;</r> => 1:12: invalid character reference
ReferenceToNul: <r>&#0;</r> => 1:8: invalid character reference
ControlCharacter: <r>\x01</r> => 1:5: invalid character 0x1
SecondRoot: <r/>\n<r/> => 2:1: comment or processing instruction expected
TextBehindRoot: <r/>\nx => 2:1: comment or processing instruction expected
UnknownVersion: <?xml version='2.0'?><r/> => 1:20: unsupported XML version '2.0'
LaterVersion: <?xml version='1.2'?>\n<r/> => 1:22: unsupported XML version '1.2'
UnknownEncoding: <?xml version='1.0' encoding='no-such'?><r/> => 1:41: unable to create converter for 'NO-SUCH' encoding
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Encodings, RefusedDocument, testing::ValuesIn(Rows(R"(
InvalidUtf8: <r>\xC3(</r> => 1:1: invalid byte '(' at position 2
OverlongUtf8: <r>\xC0\xAF</r> => 1:1: invalid byte
SurrogateInUtf8: <r>\xED\xA0\x80</r> => 1:1: irregular bytes
LoneSurrogate: \xFE\xFF\0<\0r\0>\xD8\0\0<\0/\0r\0> => 1:5: leading surrogate character
NulBefore: \0<r/> => 1:1: invalid document structure
NulIn: <r>\0</r> => 1:4: input ended before all started tags were ended
NulInComment: <r/><!-- \0 --> => 1:11: unterminated comment
NulInTag: <r\0/> => 1:3: unexpected end of input
NulBehind: <r/>\0 => 1:5: bytes behind the root element that are not text
NulAndRootBehind: <r/>\0<r/> => 1:5: bytes behind the root element that are not text
HalfACharacterBehind: <r/>\xC3 => 1:5: bytes behind the root element that are not text
OddByteBehind: \xFE\xFF\0<\0r\0/\0>\0 => 1:5: bytes behind the root element that are not text
NoAscii: <?xml version='1.0' encoding='US-ASCII'?><r>\xE9</r> => 1:42: char 0xE9 is not representable in 'US-ASCII' encoding
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Excessive, RefusedDocument,
    testing::Values(
        Row{"Deep", Nested(XMLDocument::MaxDepth + 1), "1:772: elements are nested more than 256 deep"},
        Row{"VeryDeep", Repeat("<e>", 100'000), "1:772: elements are nested more than 256 deep"},
        Row{"Attributes", WithAttributes(XMLDocument::MaxAttributes + 1),
            "1:7904: an element has more than 1000 attributes"},
        Row{"ManyAttributes", WithAttributes(100'000), "1:988895: an element has more than 1000 attributes"},
        Row{"Quadratic",
            "<!DOCTYPE r [<!ENTITY a '" + std::string(100'000, 'x') + "'>]><r>" + Repeat("&a;", 100'000)
                + "</r>",
            "1:13: a document type declaration is refused"}),
    CaseName<Row>);

TEST(RefusedDocuments, LeakNothingOfOtherFiles)
{
    const TemporaryDirectory directory;
    const std::string secret = directory.Write("secret.dtd", "<!ENTITY e 'hush'>");
    const LogCapture log;
    XMLDocument document;
    for (const std::string& subset : {"SYSTEM 'secret.dtd'"s, "SYSTEM '" + secret + "'",
             "[<!ENTITY e SYSTEM 'secret.dtd'>]"s, "[<!ENTITY % p SYSTEM 'secret.dtd'> %p;]"s}) {
        const std::string path = directory.Write("x.xml", "<!DOCTYPE r " + subset + "><r>&e;</r>");
        EXPECT_EQ(document.read(path.c_str()), nullptr) << subset;
    }
    EXPECT_EQ(log.Text().find("hush"), std::string::npos) << log.Text();
}

TEST(RefusedFiles, AreOfThisMachineAndRegular)
{
    const TemporaryDirectory directory;
    const std::string pipe = (directory.Path() / "pipe.xml").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string folder = directory.Path().string();
    const LogCapture log;
    XMLDocument document;
    for (const std::string& path :
        {pipe, folder, folder + "/none.xml", "http://localhost/x.xml"s, "file:///etc/passwd"s, ""s})
        EXPECT_EQ(document.read(path.c_str()), nullptr) << path;
    EXPECT_EQ(log.Text(),
        pipe + ": not a regular file\n" + folder + ": not a regular file\n" + folder
            + "/none.xml: No such file or directory\n"
              "http://localhost/x.xml: No such file or directory\n"
              "file:///etc/passwd: No such file or directory\n"
              ": No such file or directory\n");
}

TEST(RefusedDocuments, AreAllThatAreCutOff)
{
    const std::string whole = "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\n<!-- c --><?p i?><r "
                              "a='caf\xC3\xA9 &amp;'>\n<b/>\xE2\x82\xAC<![CDATA[<]]>&#x10FFFF;</r>";
    const LogCapture log;
    for (const std::string& text :
        {whole, "\xFE\xFF" + Encode("<r a='\xC3\xA9'>\xF0\x9D\x84\x9E</r>", "UTF-16BE")}) {
        EXPECT_NE(DumpOf(text), "refused");
        for (std::size_t size = 0; size < text.size(); ++size)
            EXPECT_EQ(DumpOf(text.substr(0, size)), "refused") << size;
    }
}

class AcceptedDocument : public testing::TestWithParam<Row> { };

TEST_P(AcceptedDocument, KeepsEachNode)
{
    LogCapture log;
    EXPECT_EQ(DumpOf(GetParam().text), GetParam().expected);
    EXPECT_EQ(log.Text(), "");
}

INSTANTIATE_TEST_SUITE_P(Texts, AcceptedDocument,
    testing::Values(Row{"Smallest", "<r/>", "r{}"},
        Row{"WhiteSpaceIsKept", "<r>\n <a/>\t</r>", "r{'\n 'a{}'\t'}"},
        Row{"CommentsAreKept", "<r><!-- c --><a/><?p i?></r>", "r{! c a{}?p i}"},
        Row{"CdataIsKept", "<r>a<![CDATA[<b>]]>c</r>", "r{'a'[<b>]'c'}"},
        Row{"ColonsArePlain", "<x:r y:a='1' xmlns='u'/>", "x:r[xmlns=u][y:a=1]{}"},
        Row{"OwnEntities", "<r>&lt;&gt;&amp;&apos;&quot;&#233;</r>", "r{'<>&'\"\xC3\xA9'}"},
        Row{"BehindTheRoot", "<r/> \n<!-- c -->\t<?p i?>\r\n", "r{}"},
        Row{"BlankBehindTheRoot", "<r/>" + std::string(100'000, ' '), "r{}"},
        Row{"LongName", "<" + std::string(1'000'000, 'n') + "/>", std::string(1'000'000, 'n') + "{}"},
        Row{"LongAttribute", "<r a='" + std::string(1'000'000, 'v') + "'/>",
            "r[a=" + std::string(1'000'000, 'v') + "]{}"},
        Row{"DeepAsAllowed", Nested(XMLDocument::MaxDepth),
            Repeat("e{", XMLDocument::MaxDepth) + Repeat("}", XMLDocument::MaxDepth)},
        Row{"DeepAndBroad", "<r>" + Repeat(Nested(XMLDocument::MaxDepth - 1) + "<b/>", 2) + "</r>",
            "r{" + Repeat(Repeat("e{", 255) + Repeat("}", 255) + "b{}", 2) + "}"}),
    CaseName<Row>);

TEST(AcceptedDocuments, HaveAsManyAttributesAsAllowed)
{
    EXPECT_EQ(DumpOf(WithAttributes(XMLDocument::MaxAttributes)).substr(0, 11), "r[a0=][a1=]");
}

struct Encoding {
    const char* name;
    const char* declared; ///< null: none
    const char* charset;
    std::string mark;
    std::string text = "caf\xC3\xA9";
};

class AcceptedEncoding : public testing::TestWithParam<Encoding> { };

TEST_P(AcceptedEncoding, GivesTheSameTextInUtf8)
{
    const Encoding& encoding = GetParam();
    const std::string content = Repeat(encoding.text, 20'000); // more than a buffer of the parser holds
    const std::string declaration =
        encoding.declared ? "<?xml version='1.0' encoding='"s + encoding.declared + "'?>" : "";
    const std::string text = declaration + "<r a='" + encoding.text + "'>" + content + "</r>\n<!-- c -->\n";
    const LogCapture log;
    EXPECT_TRUE(DumpOf(encoding.mark + Encode(text, encoding.charset))
        == "r[a=" + encoding.text + "]{'" + content + "'}");
    EXPECT_EQ(log.Text(), "");
}

INSTANTIATE_TEST_SUITE_P(Encodings, AcceptedEncoding,
    testing::Values(Encoding{"Utf8", nullptr, "UTF-8", "", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E"},
        Encoding{"Utf8Marked", "UTF-8", "UTF-8", "\xEF\xBB\xBF", "\xE2\x82\xAC \xF0\x9D\x84\x9E"},
        Encoding{"Utf16Big", nullptr, "UTF-16BE", "\xFE\xFF", "\xE2\x82\xAC \xF0\x9D\x84\x9E"},
        Encoding{"Utf16Little", nullptr, "UTF-16LE", "\xFF\xFE", "\xE2\x82\xAC \xF0\x9D\x84\x9E"},
        Encoding{"Utf16Declared", "UTF-16", "UTF-16LE", "\xFF\xFE"},
        Encoding{"Utf16Unmarked", "UTF-16BE", "UTF-16BE", ""},
        Encoding{"Ucs4Big", "ISO-10646-UCS-4", "UCS-4BE", "", "\xE2\x82\xAC \xF0\x9D\x84\x9E"},
        Encoding{"Ucs4Little", "ISO-10646-UCS-4", "UCS-4LE", "", "\xE2\x82\xAC \xF0\x9D\x84\x9E"},
        Encoding{"Ucs4BigMarked", "ISO-10646-UCS-4", "UCS-4BE", "\0\0\xFE\xFF"s},
        Encoding{"Utf32LittleMarked", "UTF-32", "UTF-32LE", "\xFF\xFE\0\0"s},
        Encoding{"Latin1", "ISO-8859-1", "ISO-8859-1", ""},
        Encoding{"Ascii", "US-ASCII", "US-ASCII", "", "cafe"},
        Encoding{"Windows1252", "windows-1252", "WINDOWS-1252", "", "caf\xC3\xA9 \xE2\x82\xAC"},
        Encoding{"Ebcdic", "IBM037", "IBM037", ""},
        Encoding{"ShiftJis", "Shift_JIS", "SHIFT-JIS", "", "\xE6\x97\xA5\xE6\x9C\xAC a"}),
    CaseName<Encoding>);

TEST(XMLDocuments, FitASmallStackAtTheGreatestDepth)
{
    std::string name;
    OnSmallStack([&] {
        const std::size_t depth = XMLDocument::MaxDepth - 3; // root, keyword and description are above
        const LoadedTable table("<keyword name='MAIN'><description>" + Repeat("<e>", depth) + "deep"
                + Repeat("</e>", depth) + "</description></keyword>",
            Repeat("<e>", XMLDocument::MaxDepth - 2) + "<keyword name='TRUSTED'/>"
                + Repeat("</e>", XMLDocument::MaxDepth - 2));
        name = table.Get("MAIN").GetDescription() + " " + table.Get("TRUSTED").GetName();
    });
    EXPECT_EQ(name, "deep TRUSTED");
}

TEST(XMLDocuments, AreFreedByTheNextRead)
{
    const LogCapture log;
    XMLDocument document;
    ASSERT_NE(document.readMemory("<a/>", 4, "a"), nullptr);
    ASSERT_NE(document.readMemory("<b/>", 4, "b"), nullptr);
    EXPECT_EQ(Dump(*document.GetDocument()->getDocumentElement()), "b{}");
    EXPECT_EQ(document.readMemory("<c>", 3, "c"), nullptr);
    EXPECT_EQ(document.GetDocument(), nullptr);
}

TEST(XMLDocuments, RefuseInvalidNamesWhenBuilt)
{
    XMLDocument document("root");
    XMLElement root = document.getRoot();
    XMLElement child(root, "child");
    child.createTextNode("caf\xC3\xA9 <&>");
    XMLElement(child, "below").createTextNode("");
    EXPECT_EQ(Dump(*document.GetDocument()->getDocumentElement()), "root{child{'caf\xC3\xA9 <&>'below{''}}}");
    for (const char* name : {"", "1a", "a b", "<"}) {
        EXPECT_THROW(XMLDocument{name}, std::exception) << name;
        EXPECT_THROW(XMLElement(root, name), std::exception) << name;
    }
    EXPECT_EQ(Dump(*document.GetDocument()->getDocumentElement()), "root{child{'caf\xC3\xA9 <&>'below{''}}}");
}

TEST(DomText, IsUtf8AndEmptyWhereThereIsNone)
{
    const std::string text = "<r name='caf\xC3\xA9' val='true' id=''>a<val>\xE2\x82\xAC</val><!-- no "
                             "--><![CDATA[b]]><item><keyword/></item></r>";
    XMLDocument document;
    const auto* const dom = document.readMemory(text.data(), text.size(), "text");
    ASSERT_NE(dom, nullptr);
    const xercesc::DOMElement* const root = dom->getDocumentElement();
    EXPECT_EQ(GetAttributeValue(root, Tags::Name()), "caf\xC3\xA9");
    EXPECT_EQ(GetAttributeValue(root, Tags::Type()), "");
    EXPECT_TRUE(AttributeExists(root, Tags::ID())) << "an empty attribute is there";
    EXPECT_FALSE(AttributeExists(root, Tags::Type()));
    EXPECT_TRUE(GetAttributeValueEqual(root, Tags::Val(), Tags::True()));
    EXPECT_FALSE(GetAttributeValueEqual(root, Tags::Name(), Tags::True()));
    EXPECT_FALSE(GetAttributeValueEqual(root, Tags::Type(), u"")) << "an absent one equals nothing";
    EXPECT_TRUE(HasChildTagName(root, Tags::Item()));
    EXPECT_FALSE(HasChildTagName(root, Tags::Keyword())) << "a grandchild";
    EXPECT_EQ(GetElementText(root),
        "a\xE2\x82\xAC"
        "b");
    EXPECT_STREQ(XToC(u"a\u00E9\u20AC\U0001D11E"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E");
    EXPECT_STREQ(XToC(nullptr), "");
}

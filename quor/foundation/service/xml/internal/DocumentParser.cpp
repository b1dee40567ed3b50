#include "quor/foundation/service/xml/internal/DocumentParser.h"

#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/XMLDocument.h"
#include "quor/foundation/service/xml/internal/Wide.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <string_view>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

/// The parser's offsets do not count the mark.
std::size_t ByteOrderMarkSize(std::string_view text)
{
    using namespace std::string_view_literals;
    for (const std::string_view mark :
        {"\xEF\xBB\xBF"sv, "\0\0\xFE\xFF"sv, "\xFF\xFE\0\0"sv, "\xFE\xFF"sv, "\xFF\xFE"sv}) {
        if (text.substr(0, mark.size()) == mark)
            return mark.size();
    }
    return 0;
}

} // namespace

DocumentParser::DocumentParser()
{
    useScanner(xercesc::XMLUni::fgDGXMLScanner); // knows neither schemas nor namespaces, and reports the DTD
    setDoNamespaces(false);
    setDoSchema(false);
    setValidationScheme(Val_Never);
    setLoadExternalDTD(false);
    setLoadSchema(false);
    setSkipDTDValidation(true);
    setDisableDefaultEntityResolution(true);
    setCreateEntityReferenceNodes(false);
    setCreateCommentNodes(true);
    setIncludeIgnorableWhitespace(true);
    setCalculateSrcOfs(true); // endDocument compares with it
    setErrorHandler(this);
}

xercesc::DOMDocument* DocumentParser::Parse(const void* text, std::size_t size, const char* name)
{
    const auto* const bytes = static_cast<const XMLByte*>(text);
    bytes_ = size - ByteOrderMarkSize({reinterpret_cast<const char*>(bytes), size});
    depth_ = 0;
    const xercesc::MemBufInputSource source(bytes, size, Wide(name));
    parse(source);
    return adoptDocument();
}

void DocumentParser::Refuse(const std::string& why) const
{
    throw xercesc::SAXParseException(Wide(why), *getScanner()->getLocator());
}

void DocumentParser::XMLDecl(
    const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone, const XMLCh* actualEncoding)
{
    // The scanner accepts every 1.x, and the document then refuses it without a location.
    using xercesc::XMLString;
    using xercesc::XMLUni;
    if (!XMLString::equals(version, XMLUni::fgVersion1_0)
        && !XMLString::equals(version, XMLUni::fgVersion1_1))
        Refuse(std::string("unsupported XML version '") + XToC(version) + '\'');
    XercesDOMParser::XMLDecl(version, encoding, standalone, actualEncoding);
}

void DocumentParser::doctypeDecl(const xercesc::DTDElementDecl&, const XMLCh*, const XMLCh*, bool, bool)
{
    Refuse("a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities");
}

void DocumentParser::startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId,
    const XMLCh* prefix, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount,
    bool isEmpty, bool isRoot)
{
    if (depth_ >= XMLDocument::MaxDepth)
        Refuse("elements are nested more than " + std::to_string(XMLDocument::MaxDepth) + " deep");
    if (attributeCount > XMLDocument::MaxAttributes)
        Refuse("an element has more than " + std::to_string(XMLDocument::MaxAttributes) + " attributes");
    ++depth_; // the base calls endElement for an empty element too
    XercesDOMParser::startElement(declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
}

void DocumentParser::endElement(
    const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot, const XMLCh* prefix)
{
    --depth_;
    XercesDOMParser::endElement(declaration, uriId, isRoot, prefix);
}

void DocumentParser::endDocument()
{
    // The scanner takes a NUL, and bytes that don't decode, for the end of the text when they are after
    // the root.
    if (getScanner()->getSrcOffset() != bytes_)
        Refuse("bytes behind the root element that are not text");
    XercesDOMParser::endDocument();
}

void DocumentParser::error(const xercesc::SAXParseException& error)
{
    throw xercesc::SAXParseException(error);
}

void DocumentParser::fatalError(const xercesc::SAXParseException& error)
{
    throw xercesc::SAXParseException(error);
}

} // namespace Veld::Quor::Core::Service::XML::Internal

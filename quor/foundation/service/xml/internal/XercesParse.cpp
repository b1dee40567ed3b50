#include "quor/foundation/service/xml/internal/XercesParse.h"

#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/XMLDocument.h"
#include "quor/foundation/service/xml/internal/DocumentSink.h"
#include "quor/foundation/service/xml/internal/Wide.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <string>
#include <type_traits>
#include <vector>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

using Attributes = xercesc::RefVectorOf<xercesc::XMLAttr>;

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

/// What both parsers of the library, `Base`, refuse alike.
template <class Base>
class StrictParser : protected Base, private xercesc::ErrorHandler {
protected:
    StrictParser()
    {
        // Knows neither schemas nor namespaces, and reports the document type.
        Base::useScanner(xercesc::XMLUni::fgDGXMLScanner);
        Base::setDoNamespaces(false);
        Base::setDoSchema(false);
        Base::setValidationScheme(Base::Val_Never);
        Base::setLoadExternalDTD(false);
        Base::setLoadSchema(false);
        Base::setSkipDTDValidation(true);
        Base::setDisableDefaultEntityResolution(true);
        Base::setCalculateSrcOfs(true); // endDocument compares with it
        Base::setErrorHandler(this);
    }

    void ParseText(std::string_view text, const char* name)
    {
        bytes_ = text.size() - ByteOrderMarkSize(text);
        const xercesc::MemBufInputSource source(
            reinterpret_cast<const XMLByte*>(text.data()), text.size(), Wide(name));
        Base::parse(source);
    }

    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
        const XMLCh* actualEncoding) override
    {
        // The scanner accepts every 1.x, and a DOM document then refuses it without a location.
        using xercesc::XMLString;
        using xercesc::XMLUni;
        if (!XMLString::equals(version, XMLUni::fgVersion1_0)
            && !XMLString::equals(version, XMLUni::fgVersion1_1))
            Refuse(std::string("unsupported XML version '") + XToC(version) + '\'');
        Base::XMLDecl(version, encoding, standalone, actualEncoding);
    }

    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, const XMLCh* prefix,
        const Attributes& attributes, XMLSize_t attributeCount, bool isEmpty, bool isRoot) override
    {
        if (depth_ >= XMLDocument::MaxDepth)
            Refuse("elements are nested more than " + std::to_string(XMLDocument::MaxDepth) + " deep");
        if (attributeCount > XMLDocument::MaxAttributes)
            Refuse("an element has more than " + std::to_string(XMLDocument::MaxAttributes) + " attributes");
        ++depth_;
        Start(declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
    }

    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot,
        const XMLCh* prefix) override
    {
        --depth_;
        End(declaration, uriId, isRoot, prefix);
    }

private:
    // Of an empty element both are called.
    virtual void Start(const xercesc::XMLElementDecl& declaration, unsigned int uriId, const XMLCh* prefix,
        const Attributes& attributes, XMLSize_t attributeCount, bool isEmpty, bool isRoot)
    {
        Base::startElement(declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
    }
    virtual void End(
        const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot, const XMLCh* prefix)
    {
        Base::endElement(declaration, uriId, isRoot, prefix);
    }

    const xercesc::XMLScanner& Scanner() const
    {
        if constexpr (std::is_pointer_v<decltype(Base::getScanner())>)
            return *Base::getScanner();
        else
            return Base::getScanner();
    }

    [[noreturn]] void Refuse(const std::string& why) const
    {
        throw xercesc::SAXParseException(Wide(why), *Scanner().getLocator());
    }

    void doctypeDecl(const xercesc::DTDElementDecl&, const XMLCh*, const XMLCh*, bool, bool) override
    {
        Refuse("a document type declaration is refused; remove <!DOCTYPE ...> and write out its entities");
    }

    void endDocument() override
    {
        // The scanner takes a NUL, and bytes that don't decode, for the end of the text when they are after
        // the root.
        if (Scanner().getSrcOffset() != bytes_)
            Refuse("bytes behind the root element that are not text");
        Base::endDocument();
    }

    using Base::error; // an operation of another sort, which the one below would hide
    void warning(const xercesc::SAXParseException&) override { }
    void error(const xercesc::SAXParseException& error) override { throw xercesc::SAXParseException(error); }
    void fatalError(const xercesc::SAXParseException& error) override
    {
        throw xercesc::SAXParseException(error);
    }
    void resetErrors() override { }

    XMLFilePos bytes_ = 0; // of the text, without a byte order mark
    unsigned depth_ = 0;
};

class DocumentParser : private StrictParser<xercesc::XercesDOMParser> {
public:
    DocumentParser()
    {
        setCreateEntityReferenceNodes(false);
        setCreateCommentNodes(true);
        setIncludeIgnorableWhitespace(true);
    }

    xercesc::DOMDocument* Parse(std::string_view text, const char* name)
    {
        ParseText(text, name);
        return adoptDocument();
    }
};

/// Counts the nodes that a DOM would have, for `isOdd`.
class SinkParser : private StrictParser<xercesc::SAXParser> {
public:
    explicit SinkParser(DocumentSink& sink)
        : sink_(sink)
    {
        setDocumentHandler(&none_); // the scanner reports to a parser that has these
        setDTDHandler(&none_);
    }
    using StrictParser::ParseText;

private:
    struct Level {
        bool isOdd = false; // whether an odd number of nodes was begun
        bool isInText = false;
    };

    void Start(const xercesc::XMLElementDecl& declaration, unsigned int, const XMLCh*,
        const Attributes& attributes, XMLSize_t attributeCount, bool isEmpty, bool) override
    {
        sink_.Open(declaration.getFullName(), levels_.back().isOdd);
        AddNode();
        levels_.emplace_back();
        for (XMLSize_t i = 0; i < attributeCount; ++i) {
            const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
            sink_.AddAttribute(attribute.getQName(), attribute.getValue());
        }
        if (isEmpty)
            endElement(declaration, 0, false, nullptr);
    }
    void End(const xercesc::XMLElementDecl&, unsigned int, bool, const XMLCh*) override
    {
        levels_.pop_back();
        sink_.Close();
    }
    void docCharacters(const XMLCh* text, XMLSize_t size, bool isCdata) override
    {
        if (levels_.size() == 1)
            return; // outside of the root
        if (isCdata || !levels_.back().isInText)
            AddNode();
        levels_.back().isInText = !isCdata;
        sink_.AddText({text, size});
    }
    void ignorableWhitespace(const XMLCh* text, XMLSize_t size, bool isCdata) override
    {
        docCharacters(text, size, isCdata);
    }
    void docComment(const XMLCh*) override { AddNode(); }
    void docPI(const XMLCh*, const XMLCh*) override { AddNode(); }

    void AddNode()
    {
        if (levels_.size() > 1) // the root is the first of what is asked for
            levels_.back() = {!levels_.back().isOdd, false};
    }

    DocumentSink& sink_;
    std::vector<Level> levels_{1};
    xercesc::HandlerBase none_;
};

} // namespace

xercesc::DOMDocument* ParseToDocument(std::string_view text, const char* name)
{
    return DocumentParser().Parse(text, name);
}

void ParseInto(DocumentSink& sink, std::string_view text, const char* name)
{
    SinkParser(sink).ParseText(text, name);
}

} // namespace Veld::Quor::Core::Service::XML::Internal

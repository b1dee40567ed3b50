#pragma once

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>

#include <cstddef>
#include <string>

namespace Veld::Quor::Core::Service::XML::Internal {

/// The DOM parser with everything shut that a stranger's document could reach through, and with the refusals
/// that `XMLDocument` promises. Every error leaves `Parse` as a `SAXParseException` with its location.
class DocumentParser : private xercesc::XercesDOMParser, private xercesc::ErrorHandler {
public:
    DocumentParser();

    /// The document belongs to the caller, who releases it. Throws Xerces's exceptions.
    xercesc::DOMDocument* Parse(const void* text, std::size_t size, const char* name);

private:
    [[noreturn]] void Refuse(const std::string& why) const;

    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
        const XMLCh* actualEncoding) override;
    void doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* publicId, const XMLCh* systemId,
        bool hasInternalSubset, bool hasExternalSubset) override;
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, const XMLCh* prefix,
        const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
        bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot,
        const XMLCh* prefix) override;
    void endDocument() override;

    using XercesDOMParser::error; // an operation of another sort, which the one below would hide
    void warning(const xercesc::SAXParseException&) override { }
    void error(const xercesc::SAXParseException& error) override;
    void fatalError(const xercesc::SAXParseException& error) override;
    void resetErrors() override { }

    XMLFilePos bytes_ = 0; // of the text, without a byte order mark
    unsigned depth_ = 0;
};

} // namespace Veld::Quor::Core::Service::XML::Internal

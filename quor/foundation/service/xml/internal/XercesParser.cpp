// The library of the XML parser: all that calls Xerces-C++.

#include "quor/foundation/service/xml/internal/Wide.h"
#include "quor/foundation/service/xml/internal/XMLParser.h"
#include "quor/foundation/service/xml/internal/XercesErrors.h"
#include "quor/foundation/service/xml/internal/XercesParse.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <cstddef>
#include <memory>
#include <stdexcept>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

/// In place of the one of the platform, which ends the process.
class Panic : public xercesc::PanicHandler {
public:
    void panic(const PanicReasons reason) override
    {
        throw std::runtime_error(
            std::string("the XML parser can't be started: ") + getPanicReasonString(reason));
    }
};

struct Released {
    template <class T>
    void operator()(T* object) const
    {
        object->release();
    }
};

template <class Action>
decltype(auto) WithStandardErrorsOnly(const Action& action)
{
    try {
        return action();
    } catch (...) {
        RethrowStandard();
    }
}

/// Whether `parse` found no mistake.
template <class Action>
bool IsAccepted(XMLDocument::Failure& failure, const Action& parse)
{
    try {
        parse();
        return true;
    } catch (const xercesc::OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (const xercesc::SAXParseException& error) {
        failure = {XToC(error.getMessage()), true, static_cast<std::size_t>(error.getLineNumber()),
            static_cast<std::size_t>(error.getColumnNumber())};
    } catch (const xercesc::SAXException& error) {
        failure.reason = XToC(error.getMessage());
    } catch (const xercesc::XMLException& error) {
        failure.reason = XToC(error.getMessage());
    } catch (const xercesc::DOMException& error) {
        failure.reason = XToC(error.getMessage());
    }
    return false;
}

class XercesParser final : public XMLParser {
public:
    XercesParser();

    xercesc::DOMDocument* Parse(
        std::string_view text, const char* name, XMLDocument::Failure& failure) override;
    bool Parse(
        std::string_view text, const char* name, DocumentSink& sink, XMLDocument::Failure& failure) override;
    xercesc::DOMDocument* Make(const char* rootName) override;
    xercesc::DOMElement& AddElement(xercesc::DOMElement& parent, const char* tag) override;
    void AddText(xercesc::DOMElement& parent, const char* text) override;
    std::string Write(const xercesc::DOMDocument& document) override;
    std::string ToUTF8(const XMLCh* text) override;
    [[noreturn]] void Rethrow() override { RethrowStandard(); }
};

/// Starts the platform, which is never terminated: documents and the host's own use of it may live until the
/// very exit.
XercesParser::XercesParser()
{
    static bool isBroken = false; // half of it is there, and can't be taken back
    static Panic panic;
    if (isBroken)
        throw std::runtime_error("the XML parser can't be started: an earlier start failed");
    isBroken = true;
    WithStandardErrorsOnly([] {
        xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, &panic);
    });
    isBroken = false;
}

xercesc::DOMDocument* XercesParser::Parse(
    std::string_view text, const char* name, XMLDocument::Failure& failure)
{
    xercesc::DOMDocument* document = nullptr;
    IsAccepted(failure, [&] { document = ParseToDocument(text, name); });
    return document;
}

bool XercesParser::Parse(
    std::string_view text, const char* name, DocumentSink& sink, XMLDocument::Failure& failure)
{
    return IsAccepted(failure, [&] { ParseInto(sink, text, name); });
}

xercesc::DOMDocument* XercesParser::Make(const char* rootName)
{
    return WithStandardErrorsOnly([&] {
        auto* const implementation = xercesc::DOMImplementation::getImplementation();
        return implementation->createDocument(nullptr, Wide(rootName), nullptr);
    });
}

xercesc::DOMElement& XercesParser::AddElement(xercesc::DOMElement& parent, const char* tag)
{
    return WithStandardErrorsOnly([&]() -> xercesc::DOMElement& {
        xercesc::DOMElement* const child = parent.getOwnerDocument()->createElement(Wide(tag));
        parent.appendChild(child);
        return *child;
    });
}

void XercesParser::AddText(xercesc::DOMElement& parent, const char* text)
{
    WithStandardErrorsOnly(
        [&] { parent.appendChild(parent.getOwnerDocument()->createTextNode(Wide(text))); });
}

std::string XercesParser::Write(const xercesc::DOMDocument& document)
{
    return WithStandardErrorsOnly([&] {
        auto* const implementation = xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS");
        const std::unique_ptr<xercesc::DOMLSSerializer, Released> serializer(
            implementation->createLSSerializer());
        const std::unique_ptr<xercesc::DOMLSOutput, Released> output(implementation->createLSOutput());
        xercesc::MemBufFormatTarget target;
        output->setByteStream(&target);
        output->setEncoding(u"UTF-8");
        serializer->write(&document, output.get());
        return std::string(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
    });
}

std::string XercesParser::ToUTF8(const XMLCh* text)
{
    return WithStandardErrorsOnly([&] {
        const xercesc::TranscodeToStr transcoded(text, MakeTranscoder().get());
        return std::string(reinterpret_cast<const char*>(transcoded.str()), transcoded.length());
    });
}

} // namespace

} // namespace Veld::Quor::Core::Service::XML::Internal

/// What `XMLParser::Instance` looks for: the `XMLParser`.
extern "C" VELD_QUOR_EXPORT void* veld_quor_xml_parser()
{
    using namespace Veld::Quor::Core::Service::XML::Internal;
    static XercesParser parser;
    return static_cast<XMLParser*>(&parser);
}

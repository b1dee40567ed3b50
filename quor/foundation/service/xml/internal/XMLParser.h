#pragma once

#include "quor/foundation/service/xml/DomForward.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace Veld::Quor::Core::Service::XML::Internal {

class DocumentSink;

/// All that calls Xerces-C++. To load it, with what it needs, takes longer than to check a small deck: it is
/// in a library that is opened when XML is first parsed or written. What fails throws standard exceptions.
class XMLParser {
public:
    /// Opens the library and starts the parser at the first call; they stay for the rest of the process.
    /// Safe from any thread. Throws `std::bad_alloc` if less than 4 MiB of memory are left, after which it
    /// can be tried again, and another `std::exception` if there is no such library or it can't be started.
    static XMLParser& Instance();
    /// Whether the process has Xerces-C++ already, for whatever reason.
    static bool IsInProcess();

    /// The document, which belongs to the caller. Null for one that is refused; `failure` has the reason.
    virtual xercesc::DOMDocument* Parse(
        std::string_view text, const char* name, XMLDocument::Failure& failure) = 0;
    /// The same without a DOM: `sink` is told of the elements; of those before a mistake, too. False for a
    /// document that is refused.
    virtual bool Parse(
        std::string_view text, const char* name, DocumentSink& sink, XMLDocument::Failure& failure) = 0;

    /// A new document with a root of that name, which belongs to the caller.
    virtual xercesc::DOMDocument* Make(const char* rootName) = 0;
    virtual xercesc::DOMElement& AddElement(xercesc::DOMElement& parent, const char* tag) = 0;
    virtual void AddText(xercesc::DOMElement& parent, const char* text) = 0;
    /// The document's text in UTF-8, with all its nodes.
    virtual std::string Write(const xercesc::DOMDocument& document) = 0;

    virtual std::string ToUTF8(const XMLCh* text) = 0;
    /// Throws what is being handled: a parser's exception as the standard one that hosts see.
    [[noreturn]] virtual void Rethrow() = 0;

protected:
    ~XMLParser() = default;
};

/// Calls `action`. None of the XML parser's exceptions is a `std::exception`: they leave as one.
template <class Action>
decltype(auto) WithStandardErrors(Action&& action)
{
    try {
        return std::forward<Action>(action)();
    } catch (const std::exception&) {
        throw;
    } catch (...) {
        if (XMLParser::IsInProcess())
            XMLParser::Instance().Rethrow();
        throw;
    }
}

} // namespace Veld::Quor::Core::Service::XML::Internal

#pragma once

#include "quor/foundation/service/Exception.h"
#include "quor/foundation/service/xml/DomText.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include <new>
#include <string>

namespace Veld::Quor::Core::Service::XML::Internal {

/// What an exception of the XML parser becomes before it leaves an exported function.
class XMLError : public Exception {
public:
    explicit XMLError(const XMLCh* message)
        : Exception(message ? XToC(message) : "unknown error of the XML parser")
    {
    }
};

/// Throws what is being handled: the parser's exceptions as an `XMLError`, or as `std::bad_alloc` when memory
/// ran out.
[[noreturn]] inline void RethrowStandard()
{
    try {
        throw;
    } catch (const xercesc::OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (const xercesc::XMLException& error) {
        throw XMLError(error.getMessage());
    } catch (const xercesc::SAXException& error) {
        throw XMLError(error.getMessage());
    } catch (const xercesc::DOMException& error) {
        throw XMLError(error.getMessage());
    }
}

} // namespace Veld::Quor::Core::Service::XML::Internal

#pragma once

#include "quor/foundation/service/Exception.h"
#include "quor/foundation/service/xml/DomText.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include <new>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Service::XML::Internal {

/// What an exception of the XML parser becomes before it leaves an exported function.
class XMLError : public Exception {
public:
    explicit XMLError(const XMLCh* message)
        : Exception(message ? XToC(message) : "unknown error of the XML parser")
    {
    }
};

/// Calls `action`. None of the XML parser's exceptions is a `std::exception`: they leave as an `XMLError`, or
/// as `std::bad_alloc` when memory ran out.
template <class Action>
decltype(auto) WithStandardErrors(Action&& action)
{
    try {
        return std::forward<Action>(action)();
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

#pragma once

#include <xercesc/dom/DOMDocument.hpp>

#include <string_view>

namespace Veld::Quor::Core::Service::XML::Internal {

class DocumentSink;

/// Parses with everything shut that a stranger's document could reach through, and with the refusals that
/// `XMLDocument` promises. Each mistake leaves as a `SAXParseException` with its location. Throws Xerces's
/// exceptions.
/// @{
/// The document belongs to the caller, who releases it.
xercesc::DOMDocument* ParseToDocument(std::string_view text, const char* name);
void ParseInto(DocumentSink& sink, std::string_view text, const char* name);
/// @}

} // namespace Veld::Quor::Core::Service::XML::Internal

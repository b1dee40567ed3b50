#include "quor/foundation/service/xml/XMLDocument.h"

#include "quor/foundation/service/xml/XMLElement.h"
#include "quor/foundation/service/xml/internal/DocumentFile.h"
#include "quor/foundation/service/xml/internal/XMLParser.h"

#include <xercesc/dom/DOMDocument.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Service::XML {

using Internal::XMLParser;

void XMLDocument::Release::operator()(xercesc::DOMDocument* document) const
{
    document->release();
}

XMLDocument::XMLDocument() = default;

XMLDocument::XMLDocument(const char* rootName)
    : document_(XMLParser::Instance().Make(rootName))
{
}

XMLDocument::~XMLDocument() = default;

xercesc::DOMDocument* XMLDocument::read(const char* path)
{
    document_.reset();
    const std::optional<std::string> text = Internal::ReadFile(path);
    return text ? readMemory(text->data(), text->size(), path) : nullptr;
}

xercesc::DOMDocument* XMLDocument::readMemory(const void* text, std::size_t size, const char* name)
{
    Failure failure;
    if (!readMemory(text, size, name, failure))
        Internal::LogFailure(name, failure);
    return document_.get();
}

xercesc::DOMDocument* XMLDocument::readMemory(
    const void* text, std::size_t size, const char* name, Failure& failure)
{
    document_.reset();
    const std::string_view bytes(static_cast<const char*>(text), size);
    document_.reset(XMLParser::Instance().Parse(bytes, name, failure));
    return document_.get();
}

std::string XMLDocument::GetText(const xercesc::DOMDocument& document)
{
    return XMLParser::Instance().Write(document);
}

XMLElement XMLDocument::getRoot()
{
    return XMLElement(*document_->getDocumentElement());
}

} // namespace Veld::Quor::Core::Service::XML

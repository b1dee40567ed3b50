#include "language/generate/Files.h"
#include "language/generate/Markup.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace {

using Veld::Quor::Core::Service::XML::XMLDocument;
using Veld::Quor::Core::Service::XML::XToC;

constexpr std::string_view blanks = " \t\r\n";

std::string Collapsed(std::string_view text)
{
    std::string collapsed;
    for (std::size_t at = text.find_first_not_of(blanks); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(blanks, at), text.size());
        collapsed.append(collapsed.empty() ? "" : " ").append(text.substr(at, end - at));
        at = text.find_first_not_of(blanks, end);
    }
    return collapsed;
}

/// Makes the tree of a well-formed text. Unlike a DOM it keeps the order of attributes, and positions.
class TreeBuilder : public xercesc::DefaultHandler {
public:
    TreeBuilder(const std::string& path, std::string_view text)
        : path_(path)
        , text_(text)
    {
    }

    Document Take() { return std::move(document_); }

private:
    void setDocumentLocator(const xercesc::Locator* locator) override { locator_ = locator; }
    void startElement(
        const XMLCh*, const XMLCh*, const XMLCh* name, const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh*, const XMLCh*, const XMLCh*) override;
    void characters(const XMLCh* text, XMLSize_t length) override;
    void comment(const XMLCh* text, XMLSize_t length) override;

    std::size_t TagBegin() const;
    Place PlaceOf(std::size_t offset) const;

    const std::string& path_;
    std::string_view text_;
    const xercesc::Locator* locator_ = nullptr;
    std::vector<Element> open_;
    Document document_;
};

/// The offset of the start tag that was just read. The locator is at its end, and counts in UTF-16; no tag
/// has a bracket inside.
std::size_t TreeBuilder::TagBegin() const
{
    std::size_t at = 0;
    for (XMLFileLoc line = 1; line < locator_->getLineNumber(); ++line)
        at = text_.find('\n', at) + 1;
    for (XMLFileLoc column = 1; column < locator_->getColumnNumber() && at < text_.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text_[at]);
        column += byte >= 0xF0 ? 2U : byte >= 0xC0 || byte < 0x80 ? 1U : 0U;
    }
    return text_.rfind('<', at - 1);
}

Place TreeBuilder::PlaceOf(std::size_t offset) const
{
    const std::string_view before = text_.substr(0, offset);
    const auto lines = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const std::size_t lineEnd = before.rfind('\n');
    return {path_, lines + 1, lineEnd == std::string_view::npos ? offset + 1 : offset - lineEnd};
}

void TreeBuilder::startElement(
    const XMLCh*, const XMLCh*, const XMLCh* name, const xercesc::Attributes& attributes)
{
    const std::size_t begin = TagBegin();
    if (open_.empty())
        document_.prolog = text_.substr(xmlDeclaration.size(), begin - xmlDeclaration.size());
    Element element = MakeElement(XToC(name));
    element.place = PlaceOf(begin);
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const std::string attribute = XToC(attributes.getQName(i));
        element.attributes.push_back({attribute, XToC(attributes.getValue(i))});
    }
    open_.push_back(std::move(element));
}

void TreeBuilder::endElement(const XMLCh*, const XMLCh*, const XMLCh*)
{
    Element element = std::move(open_.back());
    open_.pop_back();
    element.text = Collapsed(element.text);
    if (!element.text.empty() && !element.children.empty())
        Fail(element.place,
            "<" + element.tag
                + "> has text beside elements; put the text into an element such as <description>");
    if (open_.empty())
        document_.root = std::move(element);
    else
        open_.back().Add(std::move(element));
}

void TreeBuilder::characters(const XMLCh* text, XMLSize_t length)
{
    if (!open_.empty())
        open_.back().text += XToC(std::basic_string<XMLCh>(text, length).c_str());
}

void TreeBuilder::comment(const XMLCh* text, XMLSize_t length)
{
    if (!open_.empty())
        open_.back().Add(MakeElement({}, {}, XToC(std::basic_string<XMLCh>(text, length).c_str())));
}

/// Refuses what the loader refuses too.
void CheckWellFormed(const std::string& path, const std::string& text)
{
    XMLDocument::Failure failure;
    if (!XMLDocument().readMemory(text.data(), text.size(), path.c_str(), failure))
        Fail({path, std::max<std::size_t>(failure.line, 1), std::max<std::size_t>(failure.column, 1)},
            failure.reason);
    if (text.compare(0, xmlDeclaration.size(), xmlDeclaration) != 0)
        Fail({path, 1, 1}, "the file must start with " + std::string(xmlDeclaration));
}

} // namespace

Document ReadDocument(const std::string& path)
{
    const std::string text = ReadText(path);
    CheckWellFormed(path, text);
    TreeBuilder builder(path, text);
    const std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
    reader->setFeature(xercesc::XMLUni::fgSAX2CoreNameSpaces, false);
    reader->setFeature(xercesc::XMLUni::fgXercesLoadExternalDTD, false);
    reader->setContentHandler(&builder);
    reader->setLexicalHandler(&builder);
    reader->parse(
        xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size(), path.c_str()));
    return builder.Take();
}

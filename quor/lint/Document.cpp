#include "quor/lint/Document.h"

#include "quor/foundation/builtin/KeywordSyntaxData.h"
#include "quor/foundation/builtin/TrustedSyntaxData.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Initialise.h"
#include "quor/foundation/service/xml/XMLDocument.h"
#include "quor/lint/internal/TagScanner.h"

#include <fmt/format.h>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <system_error>
#include <utility>

namespace Veld::Quor::Core::Lint {

namespace Decks = Core::Decks;
using Core::Service::XML::XMLDocument;
using Core::Service::XML::XToC;
using xercesc::DOMNode;

namespace {

Document::Refusal RefusalOf(const XMLDocument::Failure& failure, const std::string& name)
{
    std::string reason = failure.reason;
    while (reason.ends_with('.'))
        reason.pop_back();
    return {reason, {name, std::max<std::size_t>(failure.line, 1), std::max<std::size_t>(failure.column, 1)}};
}

Element Copy(const xercesc::DOMElement& node, std::size_t position)
{
    Element element;
    element.tag = XToC(node.getTagName());
    element.position = position;
    const xercesc::DOMNamedNodeMap& attributes = *node.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const DOMNode& attribute = *attributes.item(i);
        element.attributes.push_back({XToC(attribute.getNodeName()), XToC(attribute.getNodeValue()), {}, {}});
    }
    std::size_t count = 0;
    for (const DOMNode* child = node.getFirstChild(); child; child = child->getNextSibling(), ++count) {
        const DOMNode::NodeType type = child->getNodeType();
        if (type == DOMNode::ELEMENT_NODE)
            element.children.push_back(Copy(static_cast<const xercesc::DOMElement&>(*child), count));
        else if (type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE)
            element.text += XToC(child->getNodeValue());
    }
    return element;
}

/// Gives each element its place. False if the tags found in the text are others than those of the document:
/// it is in an encoding that does not extend ASCII, say.
bool Locate(Element& element, std::string_view text, TagScanner& scanner)
{
    ScannedTag tag;
    if (!scanner.Next(tag) || tag.name != element.tag || tag.names.size() != element.attributes.size())
        return false;
    element.span = tag.span;
    for (Attribute& attribute : element.attributes) {
        const auto at = std::find_if(tag.names.begin(), tag.names.end(),
            [&](const Span& span) { return text.substr(span.offset, span.length) == attribute.name; });
        if (at == tag.names.end())
            return false;
        attribute.nameSpan = *at;
        attribute.valueSpan = tag.values[static_cast<std::size_t>(at - tag.names.begin())];
    }
    return std::all_of(element.children.begin(), element.children.end(),
        [&](Element& child) { return Locate(child, text, scanner); });
}

std::string Serialize(const xercesc::DOMDocument& document)
{
    try {
        return XMLDocument::GetText(document);
    } catch (const Service::Exception& error) {
        throw DocumentError(error.what());
    }
}

[[noreturn]] void ThrowSystemError(int error)
{
    if (error == ENOMEM)
        throw std::bad_alloc();
    throw DocumentError(std::generic_category().message(error));
}

std::string ReadBytes(const std::string& path)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        ThrowSystemError(error ? error.value() : ENOENT);
    if (!std::filesystem::is_regular_file(status))
        throw DocumentError("not a regular file");
    constexpr std::size_t most = XMLDocument::MaxBytes;
    if (std::filesystem::file_size(path, error) > most)
        throw DocumentError(fmt::format("file too large (expected at most {} bytes)", most));
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file.good() && !file.eof())
        ThrowSystemError(errno);
    return bytes;
}

} // namespace

DocumentError::DocumentError(const std::string& message)
    : Service::Exception(message)
{
}

DocumentError::~DocumentError() = default;

const Attribute* Element::Find(std::string_view attribute) const
{
    const auto at = std::find_if(
        attributes.begin(), attributes.end(), [&](const Attribute& own) { return own.name == attribute; });
    return at == attributes.end() ? nullptr : &*at;
}

const std::string& Element::Get(std::string_view attribute) const
{
    static const std::string none;
    const Attribute* const found = Find(attribute);
    return found ? found->value : none;
}

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n\f\v") == std::string_view::npos;
}

Document::Document(std::string name, std::string text)
    : name_(std::move(name))
    , text_(std::move(text))
{
    lines_.push_back(0);
    for (std::size_t at = text_.find('\n'); at != std::string::npos; at = text_.find('\n', at + 1))
        lines_.push_back(at + 1);
}

Document Document::ReadFile(const std::string& path)
{
    return ReadText(ReadBytes(path), path);
}

Document Document::ReadText(std::string text, const std::string& name)
{
    XMLDocument holder;
    XMLDocument::Failure failure;
    const xercesc::DOMDocument* const dom =
        holder.readMemory(text.data(), text.size(), name.c_str(), failure);
    Document document(name, std::move(text));
    if (!dom || !dom->getDocumentElement()) {
        document.refusal_ = RefusalOf(failure, name);
        return document;
    }
    document.root_ = std::make_unique<Element>(Copy(*dom->getDocumentElement(), 0));
    TagScanner scanner(document.text_);
    if (Locate(*document.root_, document.text_, scanner))
        return document;
    return ReadText(Serialize(*dom), name);
}

std::vector<Document> Document::ReadBuiltin()
{
    Core::Service::XML::Initialise::Init();
    Core::KeywordSyntax::TrustedSyntaxData trusted;
    Core::KeywordSyntax::KeywordSyntaxData main;
    std::vector<Document> documents;
    if (const xercesc::DOMDocument* const dom = trusted.GetData())
        documents.push_back(ReadText(Serialize(*dom), "(built in trusted)"));
    if (const xercesc::DOMDocument* const dom = main.GetData())
        documents.push_back(ReadText(Serialize(*dom), "(built in main)"));
    return documents;
}

Decks::Location Document::LocationOf(std::size_t offset) const
{
    const auto next = std::upper_bound(lines_.begin(), lines_.end(), offset);
    const auto line = static_cast<std::size_t>(next - lines_.begin());
    return {name_, line, offset - lines_[line - 1] + 1};
}

std::string_view Document::GetLine(std::size_t number) const
{
    if (number < 1 || number > lines_.size())
        return {};
    const std::size_t begin = lines_[number - 1];
    const std::size_t end = number == lines_.size() ? text_.size() : lines_[number] - 1;
    std::string_view line = std::string_view(text_).substr(begin, end - begin);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

} // namespace Veld::Quor::Core::Lint

#include "quor/foundation/internal/DocumentTree.h"
#include "quor/foundation/internal/TreeBuilder.h"
#include "quor/foundation/service/xml/DomText.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <vector>

namespace Veld::Quor::Core::Service::XML::Internal {

using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

void Open(const DOMElement& element, bool isOdd, TreeBuilder& builder)
{
    const Tag tag = builder.Open(element.getTagName(), isOdd);
    const xercesc::DOMNamedNodeMap& attributes = *element.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const DOMNode& attribute = *attributes.item(i);
        builder.AddAttribute(attribute.getNodeName(), XToC(attribute.getNodeValue()));
    }
    if (TreeBuilder::HasText(tag))
        builder.SetText(GetElementText(&element));
}

} // namespace

void AddTree(const DOMElement& root, TreeBuilder& builder)
{
    // Without recursion: a host's document may be deep.
    struct Level {
        const DOMNode* child; // the next one
        bool isOdd;
    };
    Open(root, false, builder);
    std::vector<Level> levels = {{root.getFirstChild(), false}};
    while (!levels.empty()) {
        const auto [child, isOdd] = levels.back();
        if (!child) {
            builder.Close();
            levels.pop_back();
            continue;
        }
        levels.back() = {child->getNextSibling(), !isOdd};
        if (child->getNodeType() == DOMNode::ELEMENT_NODE) {
            Open(static_cast<const DOMElement&>(*child), isOdd, builder);
            levels.push_back({child->getFirstChild(), false});
        }
    }
}

DocumentTree TreeOf(const DOMElement& element)
{
    TreeBuilder builder;
    AddTree(element, builder);
    return builder.Take();
}

} // namespace Veld::Quor::Core::Service::XML::Internal

#pragma once

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/XMLString.hpp>

#include <utility>
#include <vector>

/// The three walks of a syntax document. All go by sibling, and cost what they pass over.
namespace Veld::Quor::Core::Service::XML::Internal {

/// Tags are compared exactly, on their 16-bit text.
inline bool Is(const xercesc::DOMNode& node, const XMLCh* tag)
{
    return xercesc::XMLString::equals(node.getNodeName(), tag);
}

inline const xercesc::DOMElement* AsElement(const xercesc::DOMNode* node)
{
    return static_cast<const xercesc::DOMElement*>(node);
}

inline bool IsElement(const xercesc::DOMNode* node)
{
    return node->getNodeType() == xercesc::DOMNode::ELEMENT_NODE;
}

/// A range over the elements that `Step` leads to; the walks below differ in nothing else.
template <class Step>
class ElementRange {
public:
    class Iterator {
    public:
        explicit Iterator(Step step)
            : step_(std::move(step))
        {
            step_.Settle();
        }
        const xercesc::DOMElement& operator*() const { return *AsElement(step_.node); }
        Iterator& operator++()
        {
            step_.Advance();
            step_.Settle();
            return *this;
        }
        bool operator!=(std::nullptr_t) const { return step_.node != nullptr; }

    private:
        Step step_;
    };

    explicit ElementRange(Step step)
        : first_(std::move(step))
    {
    }
    Iterator begin() const { return Iterator(first_); }
    std::nullptr_t end() const { return nullptr; }

private:
    Step first_;
};

/// Direct children in document order.
struct ChildStep {
    const xercesc::DOMNode* node;
    void Advance() { node = node->getNextSibling(); }
    void Settle()
    {
        while (node && !IsElement(node))
            Advance();
    }
};

/// Direct children of any node type are counted from 0, and only elements at odd positions are seen. In an
/// indented document a text node is before each child element, and this walk sees what `ChildStep` sees;
/// an element after a comment, or with no white space before it, is passed over. Writers of documents rely
/// on either.
struct OddChildStep {
    const xercesc::DOMNode* node;
    bool odd = false;
    void Advance()
    {
        node = node->getNextSibling();
        odd = !odd;
    }
    void Settle()
    {
        while (node && !(odd && IsElement(node)))
            Advance();
    }
};

/// All below a root at any depth, in document order, that have the tag; the root itself is not among them.
/// The way back up is kept, since a node's parent is expensive to ask for.
struct DescendantStep {
    const xercesc::DOMNode* node;
    const XMLCh* tag;
    std::vector<const xercesc::DOMNode*> ancestors = {}; // of `node`, below the root

    void Advance()
    {
        if (const xercesc::DOMNode* child = node->getFirstChild()) {
            ancestors.push_back(node);
            node = child;
            return;
        }
        const xercesc::DOMNode* next = node->getNextSibling();
        while (!next && !ancestors.empty()) {
            next = ancestors.back()->getNextSibling();
            ancestors.pop_back();
        }
        node = next;
    }
    void Settle()
    {
        while (node && !(IsElement(node) && Is(*node, tag)))
            Advance();
    }
};

inline ElementRange<ChildStep> ChildElements(const xercesc::DOMElement& parent)
{
    return ElementRange<ChildStep>({parent.getFirstChild()});
}

inline ElementRange<OddChildStep> OddChildElements(const xercesc::DOMElement& parent)
{
    return ElementRange<OddChildStep>({parent.getFirstChild()});
}

inline ElementRange<DescendantStep> Descendants(const xercesc::DOMElement& root, const XMLCh* tag)
{
    return ElementRange<DescendantStep>({root.getFirstChild(), tag});
}

} // namespace Veld::Quor::Core::Service::XML::Internal

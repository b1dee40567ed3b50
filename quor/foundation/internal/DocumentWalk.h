#pragma once

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/XMLString.hpp>

/// The three walks of a syntax document. All go by sibling, use no stack, and cost what they pass over.
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
            : step_(step)
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
        : first_(step)
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
/// indented document a text node stands before each child element, and this walk sees what `ChildStep` sees;
/// an element behind a comment, or with no white space before it, is passed over. Writers of documents rely
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

/// All below `root` at any depth, in document order, that have the tag; `root` itself is not among them.
struct DescendantStep {
    const xercesc::DOMNode* node;
    const xercesc::DOMNode* root;
    const XMLCh* tag;
    void Advance()
    {
        if (const xercesc::DOMNode* child = node->getFirstChild()) {
            node = child;
            return;
        }
        while (node != root && !node->getNextSibling())
            node = node->getParentNode();
        node = node == root ? nullptr : node->getNextSibling();
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
    return ElementRange<DescendantStep>({root.getFirstChild(), &root, tag});
}

} // namespace Veld::Quor::Core::Service::XML::Internal

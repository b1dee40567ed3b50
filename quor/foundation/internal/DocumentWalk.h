#pragma once

#include "quor/foundation/internal/DocumentTree.h"

/// The three walks of a syntax document. All cost what they pass over.
namespace Veld::Quor::Core::Service::XML::Internal {

/// A range over the elements that `Step` leads to; the walks below differ in nothing else.
template <class Step>
class ElementRange {
public:
    class Iterator {
    public:
        Iterator(const TreeElement& parent, Step step)
            : tree_(parent.GetTree())
            , step_(step)
            , index_(parent.GetIndex() + 1)
            , end_(parent.GetNode().end)
        {
            Settle();
        }
        TreeElement operator*() const { return {tree_, index_}; }
        Iterator& operator++()
        {
            index_ = step_.After(index_, tree_.nodes[index_]);
            Settle();
            return *this;
        }
        bool operator!=(std::nullptr_t) const { return index_ != end_; }

    private:
        void Settle()
        {
            while (index_ != end_ && !step_.IsSeen(tree_.nodes[index_]))
                index_ = step_.After(index_, tree_.nodes[index_]);
        }

        const DocumentTree& tree_;
        Step step_;
        std::uint32_t index_;
        std::uint32_t end_;
    };

    ElementRange(const TreeElement& parent, Step step)
        : parent_(parent)
        , step_(step)
    {
    }
    Iterator begin() const { return Iterator(parent_, step_); }
    std::nullptr_t end() const { return nullptr; }

private:
    TreeElement parent_;
    Step step_;
};

/// Direct children in document order.
struct ChildStep {
    static std::uint32_t After(std::uint32_t, const DocumentTree::Node& node) { return node.end; }
    static bool IsSeen(const DocumentTree::Node&) { return true; }
};

/// Direct children of any node type are counted from 0, and only elements at odd positions are seen. In an
/// indented document a text node is before each child element, and this walk sees what `ChildStep` sees;
/// an element after a comment, or with no white space before it, is passed over. Writers of documents rely
/// on either.
struct OddChildStep {
    static std::uint32_t After(std::uint32_t, const DocumentTree::Node& node) { return node.end; }
    static bool IsSeen(const DocumentTree::Node& node) { return node.isOdd != 0; }
};

/// All below a root at any depth, in document order, that have the tag; the root itself is not among them.
struct DescendantStep {
    Tag tag;
    static std::uint32_t After(std::uint32_t index, const DocumentTree::Node&) { return index + 1; }
    bool IsSeen(const DocumentTree::Node& node) const { return node.tag == tag; }
};

inline ElementRange<ChildStep> ChildElements(const TreeElement& parent)
{
    return {parent, {}};
}

inline ElementRange<OddChildStep> OddChildElements(const TreeElement& parent)
{
    return {parent, {}};
}

inline ElementRange<DescendantStep> Descendants(const TreeElement& root, Tag tag)
{
    return {root, {tag}};
}

} // namespace Veld::Quor::Core::Service::XML::Internal

#pragma once

#include "quor/foundation/internal/DocumentTag.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Service::XML::Internal {

/// The elements of a document, with what readers ask of them and no more: no comments, and texts only of the
/// tags that have one. All are in a few blocks, in the order of the document, so that a walk is a scan.
struct DocumentTree {
    /// Its first child is the next element, its next sibling the one at `end`.
    struct Node {
        std::uint32_t end; ///< of its descendants
        std::uint32_t attributes; ///< the first one; the last one is before those of the next element
        std::uint32_t text; ///< where it begins
        std::uint32_t textSize;
        Tag tag;
        std::uint32_t isOdd; ///< whether an odd number of nodes of any kind is before it in its parent
    };
    struct Attribute {
        std::uint32_t value; ///< where it begins
        std::uint32_t size;
        Tag name;
    };

    std::span<const Node> nodes; ///< the last one is after all elements, and none
    std::span<const Attribute> attributes;
    std::string_view texts; ///< of elements and attributes, in UTF-8
    std::vector<std::string> otherNames; ///< those with numbers from `Tag::Count`
    std::shared_ptr<const void> storage; ///< has what is viewed; null: that lasts as long as the process

    std::string GetName(Tag tag) const;
    bool LastsAsTheProcess() const { return storage == nullptr; }
};

/// An element of a tree that lives longer, or none.
class TreeElement {
public:
    TreeElement() = default;
    TreeElement(const DocumentTree& tree, std::uint32_t index)
        : tree_(&tree)
        , index_(index)
    {
    }

    explicit operator bool() const { return tree_ != nullptr; }
    bool Is(Tag tag) const { return GetNode().tag == tag; }
    std::string GetTagName() const { return tree_->GetName(GetNode().tag); }

    bool Has(Tag attribute) const { return Find(attribute) != nullptr; }
    /// The value of the attribute; empty if it is absent.
    std::string Get(Tag attribute) const;
    /// Whether the attribute is there and is the text of `value`.
    bool Says(Tag attribute, Tag value) const;

    bool HasChild(Tag tag) const;
    /// The text content, that of elements below included, comments not. Empty for a tag that has none.
    std::string GetText() const
    {
        return std::string(tree_->texts.substr(GetNode().text, GetNode().textSize));
    }

    const DocumentTree& GetTree() const { return *tree_; }
    std::uint32_t GetIndex() const { return index_; }
    const DocumentTree::Node& GetNode() const { return tree_->nodes[index_]; }

private:
    const DocumentTree::Attribute* Find(Tag attribute) const;

    const DocumentTree* tree_ = nullptr;
    std::uint32_t index_ = 0;
};

inline TreeElement RootOf(const DocumentTree& tree)
{
    return {tree, 0};
}

/// The tree of an element. What is asked of the tree has the answer that the DOM gives.
DocumentTree TreeOf(const xercesc::DOMElement& element);

} // namespace Veld::Quor::Core::Service::XML::Internal

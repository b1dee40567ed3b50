#pragma once

#include "quor/foundation/internal/DocumentTree.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Service::XML::Internal {

/// Makes a tree, element by element, in the order of the document.
class TreeBuilder {
public:
    /// Whether readers ask for the text of such an element.
    static bool HasText(Tag tag);

    /// Begins an element. Its attributes follow, before its children.
    Tag Open(std::u16string_view name, bool isOdd);
    void AddAttribute(std::u16string_view name, std::string_view value);
    /// Of the element that was begun last and is still open.
    void SetText(std::string_view text);
    /// Ends the element that was begun last and is still open.
    void Close();

    /// Where elements are added. What was added since can be taken back.
    /// @{
    struct Position {
        std::size_t nodes, attributes, texts, open;
    };
    Position GetPosition() const;
    void ReturnTo(const Position& position);
    /// @}

    /// The tree, once all elements are closed.
    DocumentTree Take();

private:
    struct Hash : std::hash<std::u16string_view> {
        using is_transparent = void;
    };
    using Numbers = std::unordered_map<std::u16string, Tag, Hash, std::equal_to<>>;

    static const Numbers& KnownNumbers();
    Tag NumberOf(std::u16string_view name);
    std::uint32_t AddText(std::string_view text);

    std::vector<DocumentTree::Node> nodes_;
    std::vector<DocumentTree::Attribute> attributes_;
    std::string texts_;
    std::vector<std::string> otherNames_;
    std::vector<std::uint32_t> open_;
    Numbers others_; // of names that `Tag` doesn't have
};

/// Adds a host's element and all below it.
void AddTree(const xercesc::DOMElement& root, TreeBuilder& builder);
/// Adds the root element of a file and all below it. False, and nothing is added, for a file that can't be
/// read or is refused; the log has the reason.
bool AddFile(const char* path, TreeBuilder& builder);

} // namespace Veld::Quor::Core::Service::XML::Internal

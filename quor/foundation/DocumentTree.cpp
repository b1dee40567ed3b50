#include "quor/foundation/internal/DocumentTree.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/xml/DomText.h"

#include <algorithm>

namespace Veld::Quor::Core::Service::XML::Internal {

std::string DocumentTree::GetName(Tag tag) const
{
    return tag < Tag::Count ? XToC(TextOf(tag))
                            : otherNames[static_cast<std::size_t>(tag) - std::size_t(Tag::Count)];
}

const DocumentTree::Attribute* TreeElement::Find(Tag attribute) const
{
    const DocumentTree::Attribute* const all = tree_->attributes.data();
    const DocumentTree::Attribute* const end = all + tree_->nodes[index_ + 1].attributes;
    const auto* const at = std::find_if(all + GetNode().attributes, end,
        [attribute](const DocumentTree::Attribute& own) { return own.name == attribute; });
    return at == end ? nullptr : at;
}

std::string TreeElement::Get(Tag attribute) const
{
    const DocumentTree::Attribute* const found = Find(attribute);
    return found ? std::string(tree_->texts.substr(found->value, found->size)) : std::string();
}

bool TreeElement::Says(Tag attribute, Tag value) const
{
    const DocumentTree::Attribute* const found = Find(attribute);
    if (!found)
        return false;
    const std::string_view own = tree_->texts.substr(found->value, found->size);
    const std::u16string_view wanted = TextOf(value);
    return std::equal(own.begin(), own.end(), wanted.begin(), wanted.end(),
        [](char a, char16_t b) { return static_cast<unsigned char>(a) == b; });
}

bool TreeElement::HasChild(Tag tag) const
{
    for (const TreeElement child : ChildElements(*this)) {
        if (child.Is(tag))
            return true;
    }
    return false;
}

} // namespace Veld::Quor::Core::Service::XML::Internal

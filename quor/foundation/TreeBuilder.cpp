#include "quor/foundation/internal/TreeBuilder.h"

#include "quor/foundation/service/xml/DomText.h"

#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

namespace Veld::Quor::Core::Service::XML::Internal {

const TreeBuilder::Numbers& TreeBuilder::KnownNumbers()
{
    static const Numbers& known = *[] {
        auto numbers = std::make_unique<Numbers>();
        for (unsigned tag = 0; tag < static_cast<unsigned>(Tag::Count); ++tag)
            numbers->emplace(TextOf(Tag(tag)), Tag(tag));
        return numbers.release();
    }();
    return known;
}

bool TreeBuilder::HasText(Tag tag)
{
    return tag == Tag::Description || tag == Tag::Documentation || tag == Tag::Format
        || tag == Tag::LengthLimit || tag == Tag::StringTermination;
}

Tag TreeBuilder::NumberOf(std::u16string_view name)
{
    if (const auto at = KnownNumbers().find(name); at != KnownNumbers().end())
        return at->second;
    if (const auto at = others_.find(name); at != others_.end())
        return at->second;
    const Tag tag = Tag(static_cast<std::size_t>(Tag::Count) + others_.size());
    const auto at = others_.emplace(name, tag).first;
    tree_.otherNames.emplace_back(XToC(at->first.c_str()));
    return tag;
}

std::uint32_t TreeBuilder::AddText(std::string_view text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - tree_.texts.size())
        throw std::length_error("a document with more than 4 GB of text");
    const std::size_t begin = tree_.texts.size();
    tree_.texts += text;
    return static_cast<std::uint32_t>(begin);
}

Tag TreeBuilder::Open(std::u16string_view name, bool isOdd)
{
    const Tag tag = NumberOf(name);
    open_.push_back(static_cast<std::uint32_t>(tree_.nodes.size()));
    tree_.nodes.push_back(
        {0, static_cast<std::uint32_t>(tree_.attributes.size()), 0, 0, tag, isOdd ? 1U : 0U});
    return tag;
}

void TreeBuilder::AddAttribute(std::u16string_view name, std::string_view value)
{
    const std::uint32_t text = AddText(value); // first: what `value` views may be gone after `NumberOf`
    tree_.attributes.push_back({text, static_cast<std::uint32_t>(value.size()), NumberOf(name)});
}

void TreeBuilder::SetText(std::string_view text)
{
    DocumentTree::Node& node = tree_.nodes[open_.back()];
    node.text = AddText(text);
    node.textSize = static_cast<std::uint32_t>(text.size());
}

void TreeBuilder::Close()
{
    tree_.nodes[open_.back()].end = static_cast<std::uint32_t>(tree_.nodes.size());
    open_.pop_back();
}

TreeBuilder::Position TreeBuilder::GetPosition() const
{
    return {tree_.nodes.size(), tree_.attributes.size(), tree_.texts.size(), open_.size()};
}

void TreeBuilder::ReturnTo(const Position& position)
{
    tree_.nodes.resize(position.nodes);
    tree_.attributes.resize(position.attributes);
    tree_.texts.resize(position.texts);
    open_.resize(position.open);
}

DocumentTree TreeBuilder::Take()
{
    const auto end = static_cast<std::uint32_t>(tree_.nodes.size());
    tree_.nodes.push_back({end, static_cast<std::uint32_t>(tree_.attributes.size()), 0, 0, Tag::Count, 0});
    return std::move(tree_);
}

} // namespace Veld::Quor::Core::Service::XML::Internal

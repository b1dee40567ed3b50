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
    otherNames_.emplace_back(XToC(at->first.c_str()));
    return tag;
}

std::uint32_t TreeBuilder::AddText(std::string_view text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - texts_.size())
        throw std::length_error("a document with more than 4 GB of text");
    const std::size_t begin = texts_.size();
    texts_ += text;
    return static_cast<std::uint32_t>(begin);
}

Tag TreeBuilder::Open(std::u16string_view name, bool isOdd)
{
    const Tag tag = NumberOf(name);
    open_.push_back(static_cast<std::uint32_t>(nodes_.size()));
    nodes_.push_back({0, static_cast<std::uint32_t>(attributes_.size()), 0, 0, tag, isOdd ? 1U : 0U});
    return tag;
}

void TreeBuilder::AddAttribute(std::u16string_view name, std::string_view value)
{
    const std::uint32_t text = AddText(value); // first: what `value` views may be gone after `NumberOf`
    attributes_.push_back({text, static_cast<std::uint32_t>(value.size()), NumberOf(name)});
}

void TreeBuilder::SetText(std::string_view text)
{
    DocumentTree::Node& node = nodes_[open_.back()];
    node.text = AddText(text);
    node.textSize = static_cast<std::uint32_t>(text.size());
}

void TreeBuilder::Close()
{
    nodes_[open_.back()].end = static_cast<std::uint32_t>(nodes_.size());
    open_.pop_back();
}

TreeBuilder::Position TreeBuilder::GetPosition() const
{
    return {nodes_.size(), attributes_.size(), texts_.size(), open_.size()};
}

void TreeBuilder::ReturnTo(const Position& position)
{
    nodes_.resize(position.nodes);
    attributes_.resize(position.attributes);
    texts_.resize(position.texts);
    open_.resize(position.open);
}

DocumentTree TreeBuilder::Take()
{
    const auto end = static_cast<std::uint32_t>(nodes_.size());
    nodes_.push_back({end, static_cast<std::uint32_t>(attributes_.size()), 0, 0, Tag::Count, 0});
    struct Storage {
        std::vector<DocumentTree::Node> nodes;
        std::vector<DocumentTree::Attribute> attributes;
        std::string texts;
    };
    auto storage = std::make_shared<const Storage>(
        Storage{std::move(nodes_), std::move(attributes_), std::move(texts_)});
    return {storage->nodes, storage->attributes, storage->texts, std::move(otherNames_), storage};
}

} // namespace Veld::Quor::Core::Service::XML::Internal

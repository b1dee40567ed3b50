#include "quor/foundation/internal/PackedTree.h"

#include <array>
#include <cstdint>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

/// Of nodes, attributes, characters of texts, and characters of other names, each of which a NUL ends.
using Counts = std::array<std::uint64_t, 4>;

template <class T>
void Append(const T& values, std::string& bytes)
{
    bytes.append(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(values[0]));
}

/// Views the first values of the bytes, which begin after them then; false if there are not so many.
template <class T>
bool Take(std::string_view& bytes, std::uint64_t count, const T*& values)
{
    if (count > bytes.size() / sizeof(T))
        return false;
    values = reinterpret_cast<const T*>(bytes.data());
    bytes.remove_prefix(count * sizeof(T));
    return true;
}

} // namespace

std::string BytesOf(const DocumentTree& tree)
{
    std::string names;
    for (const std::string& name : tree.otherNames)
        names.append(name).push_back('\0');
    std::string bytes;
    Append(Counts{tree.nodes.size(), tree.attributes.size(), tree.texts.size(), names.size()}, bytes);
    Append(tree.nodes, bytes);
    Append(tree.attributes, bytes);
    Append(tree.texts, bytes);
    Append(names, bytes);
    return bytes;
}

std::optional<DocumentTree> TreeOfBytes(std::string_view bytes)
{
    const Counts* counts = nullptr;
    const DocumentTree::Node* nodes = nullptr;
    const DocumentTree::Attribute* attributes = nullptr;
    const char* texts = nullptr;
    const char* names = nullptr;
    if (!Take(bytes, 1, counts) || !Take(bytes, (*counts)[0], nodes) || !Take(bytes, (*counts)[1], attributes)
        || !Take(bytes, (*counts)[2], texts) || !Take(bytes, (*counts)[3], names))
        return std::nullopt;
    DocumentTree tree;
    tree.nodes = {nodes, (*counts)[0]};
    tree.attributes = {attributes, (*counts)[1]};
    tree.texts = {texts, (*counts)[2]};
    for (std::string_view rest(names, (*counts)[3]); !rest.empty();) {
        tree.otherNames.emplace_back(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(tree.otherNames.back().size() + 1);
    }
    return tree;
}

} // namespace Veld::Quor::Core::Service::XML::Internal

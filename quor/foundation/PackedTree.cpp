#include "quor/foundation/internal/PackedTree.h"

#include <array>
#include <cstring>

namespace Veld::Quor::Core::Service::XML::Internal {

namespace {

/// Of nodes, attributes, characters of texts, and characters of other names, each of which a NUL ends.
using Counts = std::array<std::uint64_t, 4>;

template <class T>
void Append(const T& values, std::string& bytes)
{
    bytes.append(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(values[0]));
}

/// Takes as many bytes as `values` has; returns whether there were so many.
template <class T>
bool Take(std::string_view& bytes, T& values)
{
    const std::size_t size = values.size() * sizeof(values[0]);
    if (bytes.size() < size)
        return false;
    if (size > 0)
        std::memcpy(values.data(), bytes.data(), size);
    bytes.remove_prefix(size);
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
    Counts counts{};
    if (!Take(bytes, counts))
        return std::nullopt;
    for (const std::uint64_t count : counts) {
        if (count > bytes.size())
            return std::nullopt;
    }
    DocumentTree tree;
    tree.nodes.resize(counts[0]);
    tree.attributes.resize(counts[1]);
    tree.texts.resize(counts[2]);
    std::string names(counts[3], '\0');
    if (!Take(bytes, tree.nodes) || !Take(bytes, tree.attributes) || !Take(bytes, tree.texts)
        || !Take(bytes, names))
        return std::nullopt;
    for (std::string_view rest = names; !rest.empty();) {
        tree.otherNames.emplace_back(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(tree.otherNames.back().size() + 1);
    }
    return tree;
}

} // namespace Veld::Quor::Core::Service::XML::Internal

#include "quor/data/PathAliases.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

namespace {

constexpr char mark = '$';

/// Whether a reference can end before this place: else it is a longer name that starts alike.
bool IsEndOfReference(const std::string& text, std::string::size_type at)
{
    return at == text.size() || text[at] == '/' || text[at] == '\\';
}

/// The next reference after `from`; the size of the text if there is none.
std::string::size_type FindReference(
    const std::string& text, const std::string& reference, std::string::size_type from)
{
    std::string::size_type at = from < text.size() ? text.find(reference, from) : std::string::npos;
    while (at != std::string::npos && !IsEndOfReference(text, at + reference.size()))
        at = text.find(reference, at + 1);
    return std::min(at, text.size());
}

void Replace(std::string& text, const std::string& reference, const std::string& path)
{
    const bool isLoop = FindReference(path, reference, 1) < path.size();
    std::string::size_type at = FindReference(text, reference, 0);
    while (at < text.size() && text.size() + path.size() <= PathAliases::maxLength + reference.size()) {
        text.replace(at, reference.size(), path);
        at = FindReference(text, reference, at + (isLoop ? path.size() : 1));
    }
}

} // namespace

PathAliases::PathAliases() = default;
PathAliases::PathAliases(const PathAliases&) = default;
PathAliases::PathAliases(PathAliases&&) noexcept = default;
PathAliases& PathAliases::operator=(const PathAliases&) = default;
PathAliases& PathAliases::operator=(PathAliases&&) noexcept = default;
PathAliases::~PathAliases() = default;

void PathAliases::setAlias(const std::string& alias, const std::string& path)
{
    if (isAliasValid(alias))
        paths_.insert_or_assign(aliasReference(alias), path);
}

bool PathAliases::resolvePathAliases(const std::string& path, std::string& resolved) const
{
    std::string text = path; // `resolved` may be `path` itself
    // From the greatest key to the least, so that $ABC is tried before $AB.
    for (auto entry = paths_.rbegin(); entry != paths_.rend(); ++entry)
        Replace(text, entry->first, entry->second);
    resolved = text;
    return resolved.find(mark) != std::string::npos;
}

std::string PathAliases::aliasReference(const std::string& alias)
{
    return alias.empty() || alias.front() == mark ? alias : mark + alias;
}

bool PathAliases::isAliasValid(const std::string& alias)
{
    return !alias.empty() && alias != std::string(1, mark);
}

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/Export.h"

#include <cstddef>
#include <map>
#include <string>

namespace Veld::Quor::Core::Keywords {

/// Short names for directories, used in paths as `$DATA/run/file`. Case matters. Works on texts alone, and
/// never looks at the file system. A copy is independent; a moved-from object is empty.
class VELD_QUOR_EXPORT PathAliases {
public:
    PathAliases();
    PathAliases(const PathAliases&);
    PathAliases(PathAliases&&) noexcept;
    PathAliases& operator=(const PathAliases&);
    PathAliases& operator=(PathAliases&&) noexcept;
    ~PathAliases();

    /// `alias` with or without its "$". Replaces an earlier path of it. Does nothing for an empty alias or a
    /// lone "$".
    void setAlias(const std::string& alias, const std::string& path);

    /// Replaces the references in `path` by what they stand for, each up to the end, a slash or a backslash.
    /// The result says whether a "$" is left: true if something could not be resolved. The reference of a
    /// path to its own alias is not replaced again, and no reference that would make the text longer than
    /// `maxLength`.
    bool resolvePathAliases(const std::string& path, std::string& resolved) const;

    /// In bytes: the system opens no longer name.
    static constexpr std::size_t maxLength = 4096;

private:
    static std::string aliasReference(const std::string& alias);
    static bool isAliasValid(const std::string& alias);

    std::map<std::string, std::string> paths_; // by reference: with the "$"
};

} // namespace Veld::Quor::Core::Keywords

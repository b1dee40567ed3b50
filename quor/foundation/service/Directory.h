#pragma once

#include "quor/foundation/Export.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Service {

/// A directory on disk. An empty path is the current one.
class VELD_QUOR_EXPORT Directory {
public:
    /// Keeps the path as it is; nothing is looked up.
    explicit Directory(const std::string& path);
    Directory(const Directory&);
    Directory& operator=(const Directory&);
    ~Directory();

    /// As it was given.
    const std::string& GetPath() const { return path_; }
    /// Whether there is a directory, links followed; false also if the system does not say. Throws nothing of
    /// the file system.
    bool Exists() const;

    /// The names of the entries that the regular expression `pattern` (ECMAScript) is found in.
    /// `files` and `directories` say which sorts of entries count; links count as what they lead to, and
    /// sockets, pipes and devices not at all. `sorted`: in byte order of the names, else as the system
    /// returns them. `recursive`: also below subdirectories, with names relative to this directory; the
    /// pattern is held against the last part. A directory that can't be read has no names. Throws
    /// `std::regex_error` for a faulty pattern.
    std::vector<std::string> Find(const std::string& pattern, bool files, bool directories, bool sorted,
        bool caseSensitive, bool recursive) const;

    /// The names of all entries, of whatever sort, in byte order; of a directory with more than `most` those
    /// that the system returns first. A directory that can't be read has no names.
    std::vector<std::string> GetNames(std::size_t most = static_cast<std::size_t>(-1)) const;

private:
    std::string path_;
};

} // namespace Veld::Quor::Core::Service

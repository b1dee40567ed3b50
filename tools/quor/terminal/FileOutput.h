#pragma once

#include <array>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Veld::Quor::Tools {

/// Why a file can't be written.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Which file it is, its size and its times: another one if anything was written to it.
using FileStamp = std::array<long long, 7>;
/// All zero if there is no such file.
FileStamp StampOf(const std::string& path);

/// Whether the file has another name, which isn't a symbolic link.
bool HasHardLinks(const std::string& path);

/// Whether a file is on the disk once it is written, which takes a while, or some time later.
enum class Sync { AtOnce, Later };

/// Writes the file whole: what stood there before is replaced once all is written, or stays. It
/// keeps mode, owner, group and access list. Throws `OutputError`, also for a path that is something else
/// than a file. `known`, or null for any: the stamps of those that may be replaced. Signals wait meanwhile,
/// so that no temporary file stays.
void WriteFile(const std::string& path, std::string_view text, const std::set<FileStamp>* known = nullptr,
    Sync sync = Sync::AtOnce);

} // namespace Veld::Quor::Tools

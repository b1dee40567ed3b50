#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace Veld::Quor::Tools {

/// Why a file can't be written.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes the file whole: what stood there before is replaced once all is written, or stays. Throws
/// `OutputError`, also for a path that is something else than a file.
void WriteFile(const std::string& path, std::string_view text);

} // namespace Veld::Quor::Tools

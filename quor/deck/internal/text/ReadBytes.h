#pragma once

#include <cstddef>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Throws `SourceError` with the reason that the system gave last.
[[noreturn]] void FailBySystem();

/// Reads all of a file that has a size. Throws `SourceError`, also if the file was cut short meanwhile.
/// Gives the number of bytes: fewer if the file never had as many as it said.
std::size_t ReadWhole(int descriptor, char* bytes, std::size_t size);

/// All that there is to read. A file that the system makes while it is read has no size before, and may have
/// no end: throws `SourceError` for one that is very long.
std::string ReadToEnd(int descriptor);

} // namespace Veld::Quor::Core::Decks

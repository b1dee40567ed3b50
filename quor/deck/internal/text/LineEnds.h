#pragma once

#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Whether the first line of the text ends as in files of Windows.
bool HasWindowsLineEnds(std::string_view text);

/// `text`, whose lines end by a line feed, with the line ends of `source`.
std::string WithLineEndsOf(std::string_view source, std::string text);

/// Without the carriage returns before line feeds.
std::string WithPlainLineEnds(std::string_view text);

} // namespace Veld::Quor::Core::Decks

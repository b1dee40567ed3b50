#pragma once

#include "quor/deck/PrintableText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools {

/// Data, to standard output.
void Print(std::string_view text);
/// Everything else, to standard error.
void PrintAside(std::string_view text);
/// "quor: error: " and the message on a line, to standard error.
void PrintError(std::string_view message);
/// The messages so far.
const std::vector<std::string>& GetErrors();
/// Whether anything was printed on standard output.
bool HasPrinted();

/// Says so without memory.
void PrintOutOfMemory();

/// False if some of what was printed didn't reach standard output; says why, unless its reader went away.
bool FlushOutput();

enum class Stream { Output, Error };

bool IsTerminal(Stream stream = Stream::Output);
/// Whether the stream takes colours and the user wants them.
bool TakesColour(Stream stream = Stream::Output);
/// Columns of the stream.
std::size_t GetWidth(Stream stream = Stream::Output);

using Core::Decks::MakePrintable; // so that no file can control the terminal

/// Characters of UTF-8.
std::size_t CountCharacters(std::string_view text);

/// `text` cut to `width` characters of UTF-8, with dots at the end if something was cut off.
std::string Cut(std::string_view text, std::size_t width);

} // namespace Veld::Quor::Tools

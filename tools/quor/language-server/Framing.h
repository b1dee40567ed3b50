#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

/// The content of the next message: a head of lines "Name: value", a blank line, then as many bytes as
/// "Content-Length" says. A head without a length is skipped. Empty at the end of the stream, and once the
/// stream can't be made out: a length that is no number, or beyond 2^30.
std::optional<std::string> ReadMessage(std::FILE* stream);

/// A message with its head.
std::string Frame(std::string_view content);

} // namespace Veld::Quor::Tools::LanguageServer

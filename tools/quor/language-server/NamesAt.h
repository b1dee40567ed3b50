#pragma once

#include "tools/quor/language-server/Places.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// The names of the deck that are meant at a position; several if it is of several kinds.
std::vector<std::uint32_t> NamesAt(const View& view, std::size_t offset);

} // namespace Veld::Quor::Tools::LanguageServer

#pragma once

#include "quor/deck/DeckSource.h"

#include <string>

namespace Veld::Quor::Core::Decks {

/// A path as functions of the system accept it, which would end it at a zero byte. Throws `SourceError` if it
/// has one. Valid as long as `path`.
inline const char* SystemPath(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        throw SourceError("the name contains a zero byte");
    return path.c_str();
}

} // namespace Veld::Quor::Core::Decks

#pragma once

#include "quor/syntax/KeywordSyntaxTable.h"

#include <string>

namespace Veld::Quor::Tests {

/// A small language for decks. Below the root of a document.
std::string SmallLanguage();

/// The table of `SmallLanguage`, one for the whole process: what recognises skip keywords lasts as long.
Core::Keywords::KeywordSyntaxTable& SmallTable();

} // namespace Veld::Quor::Tests

#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/language-server/Places.h"
#include "tools/quor/language-server/RecordCursor.h"
#include "tools/quor/language-server/Session.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// What the text before a position says that can be written there.
struct TextContext {
    Core::Keywords::SectionType::Enum section = Core::Keywords::SectionType::None; ///< `None`: not known
    const Core::Keywords::IKeywordSyntax* syntax = nullptr; ///< the keyword before it; null if there is none
    std::string spelling; ///< of the keyword
    DataCursor cursor; ///< in the data of that keyword
    std::size_t dataOffset = 0; ///< after the name of the keyword
    std::size_t lineOffset = 0; ///< of the line
    bool isComment = false; ///< it is in one, or after the slash that ends a record
};

/// The keyword is that of the deck as it was read, or one that was written since.
TextContext FindContext(Session& session, const View& view, std::size_t offset);

/// The text between quotes: `quote`, or the other kind if it has one of those. Empty if it has both.
std::string InQuotes(const std::string& text, char quote);

} // namespace Veld::Quor::Tools::LanguageServer

#pragma once

#include "quor/deck/WrittenWords.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <cstddef>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

/// What of a keyword's data a cursor is at.
struct DataCursor {
    /// The data are over before it, or end with something that the words don't show.
    bool isOutside = true;
    const Core::Keywords::IKeywordRecordMD* record = nullptr; ///< the innermost; null outside records
    int item = 0; ///< of it; its size if only the slash is missing
    const Core::Keywords::IKeywordDataMD* md = nullptr; ///< of the scalar; null if only the slash is missing
    const Core::Keywords::IKeywordMapMD* map = nullptr; ///< if the cursor is in one
    std::string_view prefix; ///< of the word at the cursor, up to it; without the quote
    std::size_t wordOffset = 0; ///< where the word, or its quote, begins in `text`
    bool isQuoted = false; ///< it begins with a quote
};

/// `text` begins after the name of the keyword and ends at the cursor. The words are counted along the
/// metadata, without a look at their values: lists that end by a size or a word are taken to go on.
DataCursor FindDataCursor(const Core::Keywords::IKeywordDataMD& data, std::string_view text);

} // namespace Veld::Quor::Tools::LanguageServer

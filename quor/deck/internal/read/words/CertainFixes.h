#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/TextRange.h"
#include "quor/deck/internal/text/Vocabulary.h"

#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

// Fixes of findings, after which a deck says what the reader made of it anyway. Each is empty where that
// isn't certain.

/// Moves a keyword to the start of its line.
std::vector<TextEdit> Unindent(const DeckFiles& files, const TextRange& keyword);
/// Removes the line of a keyword, if nothing else but a comment is on it.
std::vector<TextEdit> RemoveLine(const DeckFiles& files, const TextRange& keyword);
/// Makes a comment of the line from the word on, if all that is skipped is on that line: after it, in `rest`,
/// comes a keyword.
std::vector<TextEdit> CommentOut(const TextRange& word, std::string_view rest, Vocabulary& vocabulary);
/// Closes a text that only a slash or a comment follows in `rest`, so that it is sure to be one word.
std::vector<TextEdit> CloseQuote(const TextRange& text, char quote, std::string_view rest);
/// Opens a text that is first on its line, so that nothing before could belong to it.
std::vector<TextEdit> OpenQuote(const DeckFiles& files, const TextRange& text, char quote);

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/read/words/CertainFixes.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/deck/internal/text/TextLines.h"

#include <algorithm>
#include <string>

namespace Veld::Quor::Core::Decks {

std::vector<TextEdit> Unindent(const DeckFiles& files, const TextRange& keyword)
{
    const std::size_t line = StartOfLine(files.GetText(keyword.file), keyword.offset);
    return {{{keyword.file, line, keyword.offset - line}, {}}};
}

std::vector<TextEdit> RemoveLine(const DeckFiles& files, const TextRange& keyword)
{
    const std::string_view text = files.GetText(keyword.file);
    if (!IsEmpty(RestOfLine(text, keyword.offset + keyword.length)))
        return {};
    const std::size_t begin = StartOfLine(text, keyword.offset);
    return {{{keyword.file, begin, EndOfLine(text, begin) - begin}, {}}};
}

std::vector<TextEdit> CommentOut(const TextRange& word, std::string_view rest, Vocabulary& vocabulary)
{
    LineReader lines(rest);
    Line line;
    bool isKeywordNext = true;
    for (lines.Next(line); lines.Next(line);) {
        if (IsEmpty(line.text))
            continue;
        const auto lone = FindLoneWord(line.text);
        isKeywordNext = lone && vocabulary.Find(lone->word);
        break;
    }
    if (!isKeywordNext)
        return {};
    return {{{word.file, word.offset, 0}, "-- "}};
}

std::vector<TextEdit> CloseQuote(const TextRange& text, char quote, std::string_view rest)
{
    const bool isLast = IsEmpty(rest) || rest[rest.find_first_not_of(" \t")] == '/';
    if (!isLast || text.length == 0)
        return {};
    return {{{text.file, text.offset + text.length, 0}, std::string(1, quote)}};
}

std::vector<TextEdit> OpenQuote(const DeckFiles& files, const TextRange& text, char quote)
{
    const auto [line, start] = files.LineOf(text);
    const std::string_view before = line.substr(0, text.offset - start);
    const std::size_t blanks = std::min(before.find_first_not_of(" \t"), before.size());
    const bool isFirst = FindRepeat(before.substr(blanks)).length == before.size() - blanks;
    if (!isFirst || files.GetText(text).find_first_of("'\"") != std::string_view::npos)
        return {};
    return {{{text.file, text.offset, 0}, std::string(1, quote)}};
}

} // namespace Veld::Quor::Core::Decks

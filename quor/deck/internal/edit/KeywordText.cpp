#include "quor/deck/internal/edit/KeywordText.h"

#include "quor/deck/internal/text/LineEnds.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/TextLines.h"
#include "quor/deck/internal/text/Vocabulary.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

bool IsAtLineStart(const DeckContents& deck, const TextRange& range)
{
    return StartOfLine(deck.files.GetText(range.file), range.offset) == range.offset;
}

bool IsKeywordName(const DeckContents& deck, std::string_view word)
{
    return !word.empty() && word.size() <= longestName && !deck.language.LookupAll(ToUpper(word)).empty();
}

std::string_view FindCut(const DeckContents& deck, std::string_view lines)
{
    Vocabulary vocabulary(deck.language, deck.GetTarget());
    const Entry* const first = vocabulary.Find(FindLeadingWord(lines));
    const auto isRaw = [](const IKeywordSyntax* syntax) {
        return KeywordUtils::GetMDType(syntax->GetDataMD()) == IKeywordDataMD::MDType::Raw;
    };
    const bool endsAfterName = first && std::any_of(first->syntaxes.begin(), first->syntaxes.end(), isRaw);
    for (std::size_t line = 0; line < lines.size(); line = EndOfLine(lines, line)) {
        const auto lone = FindLoneWord(RestOfLine(lines, line));
        const std::string_view word = line == 0 ? FindLeadingWord(lines) : lone ? lone->word : "";
        const Entry* const entry = vocabulary.Find(word);
        if (entry && entry->IsOfText() && entry->role != KeywordDeckRole::Include)
            return word;
        if (endsAfterName)
            break;
    }
    return {};
}

std::string IndentNames(const DeckContents& deck, std::string lines)
{
    for (std::size_t line = EndOfLine(lines, 0); line < lines.size(); line = EndOfLine(lines, line)) {
        if (IsKeywordName(deck, FindLeadingWord(std::string_view(lines).substr(line))))
            lines.insert(line, "  ");
    }
    return lines;
}

bool HasOpenQuote(std::string_view record)
{
    for (std::size_t i = SkipComments(record, 0); i < record.size() && record[i] != '/';) {
        const DataWord word = FindDataWord(record.substr(i));
        if (word.quotes == DataWord::Quotes::Unclosed || word.quotes == DataWord::Quotes::Unopened)
            return true;
        i = SkipComments(record, i + word.length);
    }
    return false;
}

bool HasNumbersUpToSlash(const DeckContents& deck, const KeywordInstance& keyword)
{
    const std::string_view data = deck.files.GetText(keyword.whole).substr(keyword.name.length);
    std::size_t at = SkipComments(data, 0);
    while (at < data.size() && data[at] != '/') {
        const std::size_t end = std::min(data.find_first_not_of("0123456789+-.*eEdD", at), data.size());
        if (end == at)
            return false;
        at = SkipComments(data, end);
    }
    return at + 1 == data.size();
}

TextEdit MakeEdit(const DeckContents& deck, const TextRange& range, const std::string& text)
{
    const std::string_view file = deck.files.GetText(range.file);
    const std::size_t inLine = range.length > 0 || range.offset == 0 ? range.offset : range.offset - 1;
    return {range, WithLineEndsOf(file.substr(StartOfLine(file, inLine)), WithPlainLineEnds(text))};
}

TextEdit InsertLines(const DeckContents& deck, std::uint32_t file, std::size_t offset, std::string lines)
{
    const std::string_view text = deck.files.GetText(file);
    if (!lines.ends_with('\n'))
        lines += '\n';
    if (offset > 0 && text[offset - 1] != '\n')
        lines.insert(0, 1, '\n');
    return MakeEdit(deck, {file, offset, 0}, lines);
}

TextRange RangeToRemove(const DeckContents& deck, const TextRange& range)
{
    const std::string_view text = deck.files.GetText(range.file);
    std::size_t begin = range.offset;
    std::size_t end = begin + range.length;
    const std::string_view rest = RestOfLine(text, end);
    const bool endsLine = IsEmpty(rest) || (range.length > 0 && text[end - 1] == '/');
    const std::size_t start = StartOfLine(text, begin);
    if (endsLine && IsEmpty(text.substr(start, begin - start))) {
        begin = start;
        end = EndOfLine(text, end);
    } else if (endsLine) {
        end += rest.size();
    } else {
        end += std::min(rest.find_first_not_of(" \t,"), rest.size());
    }
    return {range.file, begin, end - begin};
}

std::size_t EndOfKeyword(const DeckContents& deck, const KeywordInstance& keyword)
{
    const std::string_view text = deck.files.GetText(keyword.whole.file);
    const std::size_t end = keyword.whole.offset + keyword.whole.length;
    const bool isAfterSlash = text[end - 1] == '/' && keyword.whole.length > keyword.name.length;
    const std::size_t next = SkipComments(text, isAfterSlash ? EndOfLine(text, end) : end);
    return next < text.size() && text[next] == '/' ? next + 1 : end;
}

std::size_t LeaveBlocks(const DeckContents& deck, std::size_t keyword, std::size_t offset)
{
    const std::uint32_t file = deck.keywords[keyword].whole.file;
    const std::string_view text = deck.files.GetText(file);
    std::size_t limit = text.size();
    if (keyword + 1 < deck.keywords.size() && deck.keywords[keyword + 1].name.file == file)
        limit = deck.keywords[keyword + 1].name.offset;
    Vocabulary vocabulary(deck.language, deck.GetTarget());
    std::size_t opened = 0;
    std::size_t left = offset;
    for (; offset < limit; offset = EndOfLine(text, offset)) {
        const auto lone = FindLoneWord(RestOfLine(text, offset));
        const Entry* const entry = lone ? vocabulary.Find(lone->word) : nullptr;
        if (!entry)
            continue;
        if (entry->role == KeywordDeckRole::Skip || entry->skipsFor)
            ++opened;
        else if (entry->role == KeywordDeckRole::EndSkip && opened > 0)
            --opened;
        else if (entry->role == KeywordDeckRole::EndSkip)
            left = EndOfLine(text, offset);
    }
    return left;
}

} // namespace Veld::Quor::Core::Decks

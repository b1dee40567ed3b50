#include "quor/deck/internal/text/LineText.h"

#include "quor/deck/PrintableText.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

constexpr bool IsLowerLetter(char c)
{
    return c >= 'a' && c <= 'z';
}

bool IsNameCharacter(char c)
{
    return IsLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '+' || c == '#' || c == '&';
}

/// Of UTF-8.
constexpr bool ContinuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

constexpr bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::size_t SkipBlanks(std::string_view line, std::size_t offset)
{
    while (offset < line.size() && IsBlank(line[offset]))
        ++offset;
    return offset;
}

bool IsEmptyFrom(std::string_view line, std::size_t offset)
{
    offset = SkipBlanks(line, offset);
    return offset == line.size() || IsCommentAt(line, offset);
}

} // namespace

std::string_view FindLeadingWord(std::string_view line)
{
    if (line.empty() || !IsLetter(line[0]))
        return {};
    std::size_t length = 1;
    while (length < line.size() && IsNameCharacter(line[length]) && !IsCommentAt(line, length))
        ++length;
    return line.substr(0, length);
}

std::optional<LoneWord> FindLoneWord(std::string_view line)
{
    LoneWord lone;
    lone.word = FindLeadingWord(line);
    if (lone.word.empty())
        return std::nullopt;
    std::size_t offset = SkipBlanks(line, lone.word.size());
    if (offset < line.size() && line[offset] == '/') {
        lone.hasSlash = true;
        ++offset;
    }
    if (!IsEmptyFrom(line, offset))
        return std::nullopt;
    lone.isUpper = std::none_of(lone.word.begin(), lone.word.end(), IsLowerLetter);
    return lone;
}

bool IsEmpty(std::string_view line)
{
    return IsEmptyFrom(line, 0);
}

bool IsEmptyToLineEnd(std::string_view text)
{
    const std::size_t offset = SkipBlanks(text, 0);
    return offset == text.size() || text[offset] == '\n' || IsCommentAt(text, offset);
}

bool IsComment(std::string_view line)
{
    return IsCommentAt(line, SkipBlanks(line, 0));
}

std::string_view TrimBlanks(std::string_view line)
{
    const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
    return line.substr(first, line.find_last_not_of(" \t") + 1 - first);
}

bool HasEndingSlash(std::string_view line)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '/')
            return true;
        if (IsCommentAt(line, i))
            return false;
        if (IsQuote(line[i])) {
            i = line.find(line[i], i + 1);
            if (i == std::string_view::npos)
                return false;
        }
    }
    return false;
}

std::optional<FileNameToken> FindFileName(std::string_view line, std::size_t offset)
{
    if (IsEmptyFrom(line, offset))
        return std::nullopt;
    FileNameToken token;
    token.offset = SkipBlanks(line, offset);
    const std::string_view rest = line.substr(token.offset);
    if (IsQuote(rest[0])) {
        const std::size_t end = rest.find(rest[0], 1);
        token.isClosed = end != std::string_view::npos;
        token.name = rest.substr(1, token.isClosed ? end - 1 : end);
        token.length = token.isClosed ? end + 1 : rest.size();
        return token;
    }
    token.length = static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), IsBlank) - rest.begin());
    token.name = rest.substr(0, token.length);
    if (token.name.ends_with('/')) {
        token.name.remove_suffix(1);
        token.length = std::max<std::size_t>(token.name.size(), 1);
    }
    return token;
}

bool LineReader::Next(Line& line)
{
    if (rest_.empty())
        return false;
    const std::size_t length = std::min(rest_.find('\n'), rest_.size());
    line.text = rest_.substr(0, length);
    if (line.text.ends_with('\r'))
        line.text.remove_suffix(1);
    line.number = ++number_;
    rest_.remove_prefix(std::min(length + 1, rest_.size()));
    return true;
}

std::string Printable(std::string_view text)
{
    std::string printable = MakePrintable(text);
    std::replace(printable.begin(), printable.end(), '\t', '?');
    return printable;
}

std::string Shorten(std::string_view word)
{
    constexpr std::size_t longest = 40;
    if (word.size() <= longest)
        return Printable(word);
    std::size_t length = longest;
    while (length > 0 && ContinuesCharacter(word[length]))
        --length;
    return Printable(word.substr(0, length)) + "...";
}

std::string Counted(std::size_t count, std::string_view noun)
{
    return std::to_string(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

std::string ToUpper(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper) {
        if (IsLowerLetter(c))
            c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

} // namespace Veld::Quor::Core::Decks

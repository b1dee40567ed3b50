#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// A word at the start of a line that has no data after it: what a keyword looks like.
struct LoneWord {
    std::string_view word;
    bool isUpper = false; ///< has no lower-case letter
    bool hasSlash = false; ///< a slash follows, with nothing but a comment after it
};

/// Empty if the line doesn't start with such a word.
std::optional<LoneWord> FindLoneWord(std::string_view line);

/// The word at the start of the line, whatever follows; empty if the line starts otherwise.
std::string_view FindLeadingWord(std::string_view line);

/// Whether the line holds nothing but blanks and a comment.
bool IsEmpty(std::string_view line);
bool IsComment(std::string_view line);
/// Without blanks and tabs at both ends.
std::string_view TrimBlanks(std::string_view line);
/// The same as `IsEmpty` of the first line of a text. It looks no further than it must.
bool IsEmptyToLineEnd(std::string_view text);

/// Whether a slash outside quotes and before any comment ends a record on the line.
bool HasEndingSlash(std::string_view line);

struct FileNameToken {
    std::string_view name; ///< without quotes; empty if a slash is where the name should be
    std::size_t offset = 0; ///< of the token in the line, quote included
    std::size_t length = 0; ///< of the token, quotes included
    bool isClosed = true; ///< false: the closing quote is missing
};

/// The first token of `line` from `offset` on, quoted or bare. A bare name continues to the next blank; a
/// slash at its end doesn't belong to it, but one inside does. Empty if there is only a comment.
std::optional<FileNameToken> FindFileName(std::string_view line, std::size_t offset);

/// Blank, tab or line end.
inline bool IsWhite(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The same, or the comma that may be between values.
inline bool IsSeparator(char c)
{
    return IsWhite(c) || c == ',';
}

inline bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

inline bool IsQuote(char c)
{
    return c == '\'' || c == '"';
}

inline bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

inline bool IsCommentAt(std::string_view text, std::size_t offset)
{
    return text.substr(offset, 2) == "--";
}

struct Line {
    std::string_view text; ///< without the line end, of either kind
    std::size_t number = 0; ///< from 1
};

/// Hands out the lines of a text, which must outlive it.
class LineReader {
public:
    explicit LineReader(std::string_view text)
        : rest_(text)
    {
    }

    /// False at the end.
    bool Next(Line& line);

private:
    std::string_view rest_;
    std::size_t number_ = 0;
};

/// A text as messages quote it: without control characters.
std::string Printable(std::string_view text);

/// A word as messages quote it: without control characters, and cut if it is very long.
std::string Shorten(std::string_view word);

/// "1 record", "2 records".
std::string Counted(std::size_t count, std::string_view noun);

/// In the letters of ASCII.
std::string ToUpper(std::string_view text);

} // namespace Veld::Quor::Core::Decks

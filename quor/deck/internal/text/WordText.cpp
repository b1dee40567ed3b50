#include "quor/deck/internal/text/WordText.h"

#include "quor/deck/internal/text/LineText.h"

#include <algorithm>
#include <array>

namespace Veld::Quor::Core::Decks {

namespace {

using Quotes = DataWord::Quotes;

constexpr bool IsBeyondAscii(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}

/// What ends a bare word, or may: hyphens begin a comment, a quote follows a repeat count. And what is beyond
/// ASCII, which is noticed by the way.
constexpr std::array<bool, 256> mayEnd = [] {
    std::array<bool, 256> table = {};
    for (std::size_t c = 0x80; c < table.size(); ++c)
        table[c] = true;
    for (const char c : std::string_view(" \t\n\v\f\r,/-'\""))
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

std::size_t LengthOfBareWord(std::string_view text, bool& isPlain)
{
    isPlain = !IsBeyondAscii(text[0]);
    std::size_t count = 0; // how long a repeat count may be
    std::size_t length = 1;
    const auto isRepeated = [&] {
        while (count < length && (IsDigit(text[count]) || text[count] == '*'))
            ++count;
        return count == length && text[length - 1] == '*';
    };
    for (;; ++length) {
        while (length < text.size() && !mayEnd[static_cast<unsigned char>(text[length])])
            ++length;
        if (length == text.size())
            return length;
        const char c = text[length];
        if (IsSeparator(c) || c == '/' || IsCommentAt(text, length) || (IsQuote(c) && isRepeated()))
            return length;
        isPlain = isPlain && !IsBeyondAscii(c);
    }
}

DataWord FindQuoted(std::string_view text)
{
    std::string_view line = text.substr(0, text.find('\n'));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    const std::size_t end = line.find(line[0], 1);
    if (end != std::string_view::npos)
        return {TrimBlanks(line.substr(1, end - 1)), end + 1, {}, Quotes::Closed};
    std::size_t length = std::min(line.find_first_of(" \t", 1), line.size());
    if (length > 2 && line[length - 1] == '/')
        --length;
    return {line.substr(1, length - 1), length, {}, Quotes::Unclosed};
}

} // namespace

DataWord FindDataWord(std::string_view text)
{
    if (IsQuote(text[0]))
        return FindQuoted(text);
    DataWord word;
    word.length = LengthOfBareWord(text, word.isPlain);
    word.text = text.substr(0, word.length);
    if (!IsLetter(text[0]))
        word.repeat = FindRepeat(word.text);
    const bool isRepeatedQuote =
        word.repeat.length == word.length && word.length < text.size() && IsQuote(text[word.length]);
    if (isRepeatedQuote) {
        const Repeat repeat = word.repeat;
        word = FindQuoted(text.substr(repeat.length));
        word.length += repeat.length;
        word.repeat = repeat;
        return word;
    }
    if (word.length > 1 && IsQuote(word.text.back()))
        word.quotes = Quotes::Unopened;
    word.text.remove_prefix(word.repeat.length);
    return word;
}

LineWords FindLineWords(std::string_view line)
{
    LineWords found;
    std::size_t offset = 0;
    while (offset < line.size() && !found.isEnded && !IsCommentAt(line, offset)) {
        if (IsSeparator(line[offset])) {
            ++offset;
        } else if (line[offset] == '/') {
            found.isEnded = true;
        } else {
            DataWord word = FindDataWord(line.substr(offset));
            if (word.quotes == Quotes::Unclosed) {
                word.text = line.substr(static_cast<std::size_t>(word.text.data() - line.data()));
                word.length = line.size() - offset;
            }
            found.offsets.push_back(offset);
            offset += word.length;
            found.words.push_back(word);
        }
    }
    found.end = offset;
    return found;
}

std::size_t CountValues(const LineWords& line)
{
    std::size_t count = 0;
    for (const DataWord& word : line.words)
        count += static_cast<std::size_t>(word.repeat.count);
    return count;
}

} // namespace Veld::Quor::Core::Decks

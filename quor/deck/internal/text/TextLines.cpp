#include "quor/deck/internal/text/TextLines.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/WordText.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

std::size_t StartOfLine(std::string_view text, std::size_t offset)
{
    const std::size_t end = offset == 0 ? std::string_view::npos : text.rfind('\n', offset - 1);
    return end == std::string_view::npos ? 0 : end + 1;
}

std::size_t EndOfLine(std::string_view text, std::size_t offset)
{
    const std::size_t end = text.find('\n', offset);
    return end == std::string_view::npos ? text.size() : end + 1;
}

std::string_view RestOfLine(std::string_view text, std::size_t offset)
{
    std::string_view rest = text.substr(offset, EndOfLine(text, offset) - offset);
    while (rest.ends_with('\n') || rest.ends_with('\r'))
        rest.remove_suffix(1);
    return rest;
}

std::size_t SkipComments(std::string_view text, std::size_t offset)
{
    while (offset < text.size()) {
        if (IsSeparator(text[offset]))
            ++offset;
        else if (IsCommentAt(text, offset))
            offset = EndOfLine(text, offset);
        else
            break;
    }
    return offset;
}

std::size_t EndOfWords(std::string_view text, std::size_t begin, std::size_t limit)
{
    std::size_t end = begin;
    for (std::size_t i = SkipComments(text, begin); i < limit; i = SkipComments(text, i)) {
        if (text[i] == '/') {
            end = i + 1;
            i = EndOfLine(text, i);
        } else {
            end = i += FindDataWord(text.substr(i)).length;
        }
    }
    return end;
}

std::size_t EndOfRecord(std::string_view text)
{
    std::size_t i = SkipComments(text, 0);
    while (i < text.size() && text[i] != '/')
        i = SkipComments(text, i + FindDataWord(text.substr(i)).length);
    return std::min(i + 1, text.size());
}

} // namespace Veld::Quor::Core::Decks

#include "tools/quor/language-server/Cursor.h"

#include <algorithm>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

bool IsSameRange(const Decks::TextRange& a, const Decks::TextRange& b)
{
    return a.file == b.file && a.offset == b.offset && a.length == b.length;
}

bool IsWordByte(char c)
{
    return static_cast<unsigned char>(c) > ' ' && std::string_view(",/'\"").find(c) == std::string_view::npos;
}

} // namespace

std::optional<Decks::DeckKeyword> FindKeywordAt(const View& view, std::size_t offset)
{
    const auto then = view.ToThen(offset);
    const auto index = then ? view.GetState().FindKeywordBefore(view.file, *then) : std::nullopt;
    return index ? std::optional(view.GetDeck()[*index]) : std::nullopt;
}

bool IsAtName(const View& view, const Decks::DeckKeyword& keyword, std::size_t offset)
{
    const auto now = view.ToNow(keyword.GetNameRange());
    return now && now->Touches(offset);
}

std::optional<ScalarAt> FindScalarAt(const View& view, const Decks::DeckKeyword& keyword, std::size_t offset)
{
    const auto* const ranges = FindValueRanges(view.GetDeck(), keyword);
    const auto then = view.ToThen(offset);
    if (!ranges || !then)
        return std::nullopt;
    const auto word = std::find_if(ranges->begin(), ranges->end(), [&](const Decks::TextRange& range) {
        return range.length > 0 && range.file == view.file
            && ByteRange{range.offset, range.length}.Touches(*then);
    });
    if (word == ranges->end() || !view.ToNow(*word))
        return std::nullopt;
    const auto end = std::find_if(
        word, ranges->end(), [&](const Decks::TextRange& range) { return !IsSameRange(range, *word); });
    const auto slot = static_cast<std::size_t>(word - ranges->begin());
    return ScalarAt{PlaceOf(keyword, slot), static_cast<std::size_t>(end - word), *word};
}

ScalarPlace PlaceOf(const Decks::DeckKeyword& keyword, std::size_t slot)
{
    ScalarPlace found;
    ForEachScalar(*keyword.FindData(), true, [&](const ScalarPlace& place) {
        if (place.slot == slot)
            found = place;
    });
    return found;
}

std::pair<std::string_view, std::size_t> WordAt(std::string_view text, std::size_t offset)
{
    std::size_t begin = std::min(offset, text.size());
    while (begin > 0 && IsWordByte(text[begin - 1]))
        --begin;
    std::size_t end = begin;
    while (end < text.size() && IsWordByte(text[end]))
        ++end;
    return {text.substr(begin, end - begin), begin};
}

} // namespace Veld::Quor::Tools::LanguageServer

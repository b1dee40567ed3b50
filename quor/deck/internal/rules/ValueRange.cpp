#include "quor/deck/internal/rules/ValueRange.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/WordText.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace Veld::Quor::Core::Decks {

namespace {

/// The word after the start that has the value of that number, from 0; repeated ones count as often as they
/// are repeated. Empty if the end of the file comes first, or a slash that isn't to be passed.
std::optional<TextRange> FindWord(
    const DeckContents& deck, const TextRange& start, std::size_t number, bool passesSlashes = false)
{
    const std::string_view text = deck.files.GetText(start.file);
    std::size_t passed = 0;
    for (std::size_t at = start.offset; at < text.size() && (passesSlashes || text[at] != '/');) {
        if (IsSeparator(text[at])) {
            ++at;
        } else if (text[at] == '/' || IsCommentAt(text, at)) {
            at = std::min(text.find('\n', at), text.size());
        } else {
            const DataWord word = FindDataWord(text.substr(at));
            passed += static_cast<std::size_t>(word.repeat.count);
            if (passed > number)
                return TextRange{start.file, at, word.length};
            at += std::max<std::size_t>(word.length, 1);
        }
    }
    return std::nullopt;
}

/// After so many slashes from the start, with the rest of the line of each; empty if the file has fewer.
std::optional<TextRange> PassSlashes(const DeckContents& deck, const TextRange& start, std::size_t slashes)
{
    const std::string_view text = deck.files.GetText(start.file);
    std::size_t at = start.offset;
    while (slashes > 0 && at < text.size()) {
        if (IsSeparator(text[at])) {
            ++at;
        } else if (text[at] == '/' || IsCommentAt(text, at)) {
            slashes -= text[at] == '/' ? 1U : 0U;
            at = std::min(text.find('\n', at), text.size());
        } else {
            at += std::max<std::size_t>(FindDataWord(text.substr(at)).length, 1);
        }
    }
    return slashes == 0 ? std::optional(TextRange{start.file, at, 0}) : std::nullopt;
}

} // namespace

TextRange FindValue(const DeckContents& deck, const KeywordInstance& keyword, const ValuePosition& position)
{
    const TextRange data = {keyword.name.file, keyword.name.offset + keyword.name.length, 0};
    if (position.item < 0)
        return FindWord(deck, data, position.element).value_or(keyword.name);
    const bool hasStart = position.element < keyword.records.size();
    const TextRange record = RangeOf(keyword, position.element);
    if (!position.isFlat)
        return record;
    const auto start = PassSlashes(deck, hasStart ? record : data, position.slashes);
    return start ? FindWord(deck, *start, static_cast<std::size_t>(position.item)).value_or(record) : record;
}

TextRange FindSlot(
    const DeckContents& deck, const KeywordInstance& keyword, std::size_t element, std::size_t slot)
{
    const TextRange start = RangeOf(keyword, element);
    if (keyword.whole.length == 0) // its text isn't in one piece
        return start;
    const bool hasStart = element < keyword.records.size();
    const TextRange data = {keyword.name.file, keyword.name.offset + keyword.name.length, 0};
    const auto word = FindWord(deck, hasStart ? start : data, slot, true);
    const std::size_t end = keyword.whole.offset + keyword.whole.length;
    return word && word->offset < end ? *word : start;
}

std::vector<FindingReporter::Related> FindSize(
    const DeckContents& deck, const Dimensions& dimensions, const std::string& size)
{
    const auto given = dimensions.FindGiven(size);
    const std::string item = size.substr(size.find('.') + 1);
    return given ? Related(deck.keywords[given->keyword], fmt::format("{} is {} here", item, given->value))
                 : std::vector<FindingReporter::Related>();
}

std::vector<FindingReporter::Related> Related(const KeywordInstance& keyword, const std::string& what)
{
    return {{keyword.name, what}};
}

} // namespace Veld::Quor::Core::Decks

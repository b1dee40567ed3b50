#include "tools/quor/commands/ValueWords.h"

#include "quor/deck/Deck.h"
#include "quor/deck/DeckFiles.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/VisitMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/UnitTexts.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// The metadata of the value: the path goes from the keyword's data through lists and records.
const IKeywordDataMD& NodeOf(const Decks::DeckValue& value)
{
    const IKeywordDataMD* md = value.keyword.GetSyntax().GetDataMD();
    for (const std::size_t index : value.path)
        md = md->GetType() == MDType::Record
            ? static_cast<const IKeywordRecordMD&>(*md).GetItemMD(static_cast<int>(index))
            : static_cast<const IKeywordListMD&>(*md).GetItemMD();
    return *md;
}

template <class T>
std::optional<T> NumberOf(std::string_view word)
{
    if (word.starts_with('+'))
        word.remove_prefix(1);
    T number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional<T>(number) : std::nullopt;
}

std::optional<bool> BooleanOf(const std::string& word)
{
    const std::string upper = ToUpper(word);
    if (upper == "YES" || upper == "Y" || upper == "TRUE" || upper == "T")
        return true;
    if (upper == "NO" || upper == "N" || upper == "FALSE" || upper == "F")
        return false;
    return std::nullopt;
}

/// The exponent may begin with D.
std::optional<double> RealOf(std::string word)
{
    std::replace_if(
        word.begin(), word.end(), [](char c) { return c == 'D' || c == 'd'; }, 'E');
    return NumberOf<double>(word);
}

template <class T>
Decks::NewValue Checked(const std::optional<T>& found, const Decks::DeckValue& value, const std::string& word,
    const char* expected)
{
    if (!found)
        throw std::invalid_argument(
            fmt::format("{}: invalid value '{}'; expected {}", value.address.ToString(), word, expected));
    return *found;
}

/// In place of a value that isn't known: a variable, or the name of a quantity of the user. Without its count
/// and quotes; empty if the value is left to its default.
std::string WrittenWord(const Decks::Deck& deck, const Decks::DeckValue& value)
{
    if (!value.range)
        return {};
    std::string_view word = deck.GetFiles().GetText(*value.range);
    const std::size_t star = word.find('*');
    if (star != std::string_view::npos && word.find_first_not_of("0123456789") == star)
        word.remove_prefix(star + 1);
    const bool isQuoted = word.size() > 1 && (word.front() == '\'' || word.front() == '"');
    if (isQuoted)
        word = word.substr(1, word.size() - 2);
    return word.find_first_not_of(' ') == std::string_view::npos ? std::string() : std::string(word);
}

std::pair<std::uint64_t, std::uint64_t> PlaceOf(const Decks::TextRange& range)
{
    return {range.file, range.offset};
}

} // namespace

std::string WordOf(const Decks::Deck& deck, const Decks::DeckValue& value)
{
    const std::string word = value.text.empty() ? WrittenWord(deck, value) : value.text;
    return word.empty() ? defaultWord : word;
}

ValueErrors::ValueErrors(const Decks::Deck& deck)
    : deck_(deck)
{
    for (const Decks::Finding& finding : deck.GetFindings()) {
        if (finding.severity == Decks::Severity::Error)
            errors_.push_back(&finding);
    }
    std::stable_sort(errors_.begin(), errors_.end(),
        [](const auto* a, const auto* b) { return PlaceOf(a->range) < PlaceOf(b->range); });
}

const Decks::Finding* ValueErrors::Find(const Decks::DeckValue& value) const
{
    const std::string word = value.text.empty() ? WrittenWord(deck_, value) : std::string();
    if (word.empty() || word.find('$') != std::string::npos)
        return nullptr;
    const auto place = PlaceOf(*value.range);
    const auto found = std::lower_bound(errors_.begin(), errors_.end(), place,
        [](const auto* error, const auto& at) { return PlaceOf(error->range) < at; });
    const bool isOfValue = found != errors_.end() && (*found)->range.file == value.range->file
        && (*found)->range.offset < value.range->offset + value.range->length;
    return isOfValue ? *found : nullptr;
}

std::string ValueErrors::TextOf(const Decks::DeckValue& value) const
{
    if (!value.text.empty())
        return value.text;
    const std::string word = WrittenWord(deck_, value);
    return word.find('$') != std::string::npos || Find(value) ? std::string() : word;
}

std::string UnitOf(const Decks::DeckValue& value, UnitSystem::Enum system)
{
    const IKeywordDataMD& md = NodeOf(value);
    if (md.GetType() != MDType::Real)
        return {};
    const std::string* const measurement = static_cast<const IKeywordRealMD&>(md).GetMeasurement();
    return measurement ? UnitText(*measurement, system) : std::string();
}

nlohmann::ordered_json ValueErrors::JsonOf(const Decks::DeckValue& value) const
{
    const std::string text = TextOf(value);
    if (text.empty())
        return {};
    switch (NodeOf(value).GetType()) {
    case MDType::Real:
        if (const auto number = RealOf(text))
            return *number;
        break;
    case MDType::Integer:
        if (const auto number = NumberOf<int>(text))
            return *number;
        break;
    case MDType::Boolean:
        if (const auto boolean = BooleanOf(text))
            return *boolean;
        break;
    default:
        break;
    }
    return text;
}

Decks::Location LocationOf(const Decks::Deck& deck, const Decks::DeckValue& value)
{
    return value.range ? deck.GetFiles().LocationOf(*value.range) : value.keyword.GetLocation();
}

std::optional<Decks::NewValue> NewValueOf(const Decks::DeckValue& value, const std::string& word)
{
    if (word == defaultWord)
        return std::nullopt;
    switch (NodeOf(value).GetType()) {
    case MDType::Real:
        return Checked(RealOf(word), value, word, "a number");
    case MDType::Integer:
        return Checked(NumberOf<int>(word), value, word, "an integer");
    case MDType::Boolean:
        return Checked(BooleanOf(word), value, word, "YES or NO");
    default:
        return Decks::NewValue(word);
    }
}

} // namespace Veld::Quor::Tools

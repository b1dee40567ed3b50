#include "tests/trust/Mistake.h"
#include "tests/trust/ValueKinds.h"

#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordRealMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <sstream>

namespace Veld::Quor::Trust {

using namespace Core::Decks;
using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

/// What is before the last value of a repeat: `4*0.2 ` of `5*0.2`; else empty.
std::string BeforeLast(const SampleDeck& deck, const Value& value)
{
    const std::string_view word = deck.GetText(value.range);
    const std::size_t star = word.find('*');
    if (value.text.find('*') != std::string::npos || star == std::string_view::npos)
        return {};
    const int count = std::stoi(std::string(word));
    return count == 1 ? std::string() : fmt::format("{}{} ", count - 1, word.substr(star));
}

} // namespace

MakeMistake OnValue(const std::string& where, Rewrite rewrite, const std::string& places)
{
    return [where = Where(where), rewrite = std::move(rewrite), places](
               const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const std::vector<const Value*> values = FindValues(deck, where);
        for (int i = 0; i < 30 && !values.empty(); ++i) {
            const Value& value = *ChooseValue(deck, values, random);
            const std::string text = rewrite(deck, value, random);
            if (!text.empty())
                return Mistake{
                    {{value.range, BeforeLast(deck, value) + text}}, PlacesOf(deck, value, places)};
        }
        return std::nullopt;
    };
}

std::vector<TextRange> PlacesOf(const SampleDeck& deck, const Value& value, const std::string& places)
{
    std::vector<TextRange> ranges;
    std::istringstream words(places);
    for (std::string word; words >> word;) {
        if (word == "record") {
            const TextRange slash = deck.SlashAfter(value);
            ranges.push_back(
                {slash.file, value.range.offset, slash.offset + slash.length - value.range.offset});
        } else if (word == "keyword") {
            ranges.push_back(deck.GetDeck()[value.keyword].GetRange());
        } else {
            Append(word == "uses" ? deck.UsesOf(value.text) : RangesOf(deck, word), ranges);
        }
    }
    return ranges;
}

Rewrite Constant(const std::string& text)
{
    return [text](const SampleDeck&, const Value& value, Random&) {
        return value.text == text ? std::string() : text;
    };
}

Rewrite Times(double factor)
{
    return [factor](const SampleDeck&, const Value& value, Random&) {
        const double number = std::stod(value.text);
        return number == 0 ? std::string() : fmt::format("{:.6g}", number * factor);
    };
}

Rewrite Around(const std::string& before, const std::string& after)
{
    return [=](const SampleDeck&, const Value& value, Random&) { return before + value.text + after; };
}

Rewrite Within(const std::string& part, const std::string& replacement)
{
    return [=](const SampleDeck&, const Value& value, Random&) {
        std::string text = value.text;
        const std::size_t at = text.find(part);
        return at == std::string::npos || at == 0 ? std::string()
                                                  : text.replace(at, part.size(), replacement);
    };
}

Rewrite IfThere(const std::string& keyword, const Rewrite& rewrite)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        return deck.GetDeck().Has(keyword) ? rewrite(deck, value, random) : std::string();
    };
}

namespace {

/// The least and the greatest value that the metadata allow; without one if there is none.
template <class Get>
auto Limit(const Value& value, const Get& get)
{
    Core::Service::Optional<double> limit;
    if (value.md->GetType() == MDType::Integer) {
        if (const auto whole = get(static_cast<const IKeywordIntegerMD&>(*value.md)))
            limit = static_cast<double>(*whole);
    } else {
        limit = get(static_cast<const IKeywordRealMD&>(*value.md));
    }
    return limit;
}

std::string BelowLimit(const SampleDeck&, const Value& value, Random& random)
{
    const auto limit = Limit(value, [](const auto& md) { return md.GetMin(); });
    return limit ? fmt::format("{:.0f}", *limit - 1 - static_cast<double>(random.Below(5))) : std::string();
}

std::string AboveLimit(const SampleDeck&, const Value& value, Random& random)
{
    const auto limit = Limit(value, [](const auto& md) { return md.GetMax(); });
    return limit ? fmt::format("{:.0f}", *limit + 1 + static_cast<double>(random.Below(5))) : std::string();
}

std::string MisspeltChoice(const SampleDeck&, const Value& value, Random& random)
{
    const auto& md = static_cast<const IKeywordChoiceMD&>(*value.md);
    for (int i = 0; i < 20; ++i) {
        std::string word = Misspelt(value.text, random);
        if (md.Match(word).index < 0 && std::isalpha(static_cast<unsigned char>(word.front())))
            return word;
    }
    return {};
}

std::string CutName(const SampleDeck&, const Value& value, Random&)
{
    return value.text.size() < 2 ? std::string() : value.text.substr(0, 1) + " " + value.text.substr(1);
}

/// A value after the last one of its record that the metadata know.
std::optional<Mistake> AddValues(const SampleDeck& deck, Random& random)
{
    const Value* value =
        ChooseValue(deck, FindValues(deck, Where("+record @SCHEDULE @SOLUTION @RUNSPEC")), random);
    if (!value || value->path.size() > 2)
        return std::nullopt;
    const TextRange slash = deck.SlashAfter(*value);
    const Value* last = value;
    for (const Value& other : deck.GetValues()) {
        if (other.keyword == value->keyword && other.record == value->record
            && other.range.offset < slash.offset && other.range.file == slash.file)
            last = &other;
    }
    const std::size_t missing = static_cast<std::size_t>(value->record->GetSize()) - last->path.back() - 1;
    if (slash.length == 0 || last->record != value->record)
        return std::nullopt;
    const std::string defaults = missing > 0 ? std::to_string(missing) + "* " : "";
    return Mistake{{{{slash.file, slash.offset, 0}, defaults + "7 "}}};
}

/// Ends a record before a value that has no default, by a slash or by leaving out the rest.
std::optional<Mistake> CutRecord(const SampleDeck& deck, Random& random, bool isBySlash)
{
    const Value* value = ChooseValue(deck, FindValues(deck, Where("+required")), random);
    if (!value || value->path.empty() || value->path.back() == 0)
        return std::nullopt;
    const TextRange slash = deck.SlashAfter(*value);
    if (slash.length == 0 || value->record->GetTermination() != IKeywordDataMD::TerminationType::SLASH)
        return std::nullopt;
    const TextRange range{value->range.file, value->range.offset, slash.offset - value->range.offset};
    if (isBySlash)
        return Mistake{{{{range.file, range.offset, 0}, "/ "}}, {{range.file, range.offset - 1, 1}}};
    return Mistake{{{range, ""}}, {{range.file, range.offset - 1, 1}}};
}

} // namespace

void AddKindsOfValues(std::vector<Kind>& kinds)
{
    const std::vector<Kind> added{
        {"word for a number of a record", OnValue("+number +record", Constant("HIGH"), "record")},
        {"word for a number of an array", OnValue("+number +array", Constant("HIGH"))},
        {"letter O in a number", OnValue("+number", Within("0", "O"), "record")},
        {"comma in a number", OnValue("+real", Within(".", ","), "record")},
        {"two points in a number", OnValue("+real", Within(".", ".."), "record")},
        {"two numbers in one", OnValue("+real", Within(".", ".0."), "record")},
        {"fraction for a whole number", OnValue("+integer", Around("", ".5"), "record")},
        {"number below its limit", OnValue("+number", BelowLimit, "record")},
        {"number above its limit", OnValue("+number", AboveLimit, "record")},
        {"misspelt word of a choice", OnValue("+choice", MisspeltChoice, "record")},
        {"number for a word", OnValue("+choice", Constant("7.5"), "record")},
        {"default without one", OnValue("+required", Constant("1*"), "record")},
        {"default in a list of values", OnValue("+given", Constant("1*"))},
        {"repeat of no times", OnValue("+number", Around("0*", ""), "record")},
        {"blank in a repeat", OnValue("+number +array", Around("1* ", ""), "keyword")},
        {"quote not closed", OnValue("+string", Around("'", ""), "record")},
        {"quote not opened", OnValue("+string", Around("", "'"), "record")},
        {"curly quotes", OnValue("+string", Around("\xE2\x80\x98", "\xE2\x80\x99"), "record")},
        {"long dash for a minus", OnValue("+real", Around("\xE2\x80\x93", ""), "record")},
        {"hard space", OnValue("+record -TITLE -MESSAGE", Around("\xC2\xA0", ""), "record")},
        {"blank in a name", OnValue("+string +identifier", CutName, "record")},
        {"too many values in a record", AddValues},
        {"too few values in a record",
            [](const SampleDeck& deck, Random& random) { return CutRecord(deck, random, false); }},
        {"slash within a record",
            [](const SampleDeck& deck, Random& random) { return CutRecord(deck, random, true); }},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

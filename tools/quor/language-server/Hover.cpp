#include "quor/data/Access.h"
#include "quor/deck/Deck.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Descriptions.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <optional>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

Json HoverOf(const std::string& text, const Span& span)
{
    return {{"contents", {{"kind", "markdown"}, {"value", text}}}, {"range", ToJson(span)}};
}

template <class T>
std::string RangeText(const IKeywordListData& list)
{
    if (HasUnknown(list))
        return fmt::format("{} values, some of them variables without a value", list.GetSize());
    const auto values = As<T>(list);
    if (values.empty())
        return "no values";
    const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
    const double mean =
        std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
    return fmt::format(
        "{}: least {}, mean {:.6g}, greatest {}", Plural(values.size(), "value"), *least, mean, *greatest);
}

/// What an array of numbers comes to; empty for other data.
std::string ArrayText(const Decks::DeckKeyword& keyword)
{
    const IKeywordData* const data = keyword.FindData();
    if (!data || data->GetMD()->GetType() != IKeywordDataMD::MDType::List)
        return {};
    const IKeywordListData& list = AsList(*data);
    const auto* const item = AsList(*data->GetMD()).GetItemMD();
    if (item && item->GetType() == IKeywordDataMD::MDType::Real)
        return RangeText<double>(list) + "\n\n";
    if (item && item->GetType() == IKeywordDataMD::MDType::Integer)
        return RangeText<int>(list) + "\n\n";
    return {};
}

std::string DateLine(const Decks::DeckKeyword& keyword)
{
    const std::string date = Decks::DateText(keyword.GetTime());
    return date.empty() ? "" : fmt::format("holds from {}\n\n", date);
}

/// What a name is, and where it is defined.
std::string NameText(const View& view, std::uint32_t use)
{
    const NameIndex& names = view.GetState().GetNames();
    const DeckName& name = names.GetNames()[names.GetUses()[use].name];
    const std::string text =
        fmt::format("{} **{}**: {}", Escaped(view.GetState().GetNameRules().GetKinds()[name.kind]),
            Escaped(name.text), Plural(name.uses.size(), "use"));
    const auto definition = std::find_if(name.uses.begin(), name.uses.end(),
        [&names](std::uint32_t one) { return names.GetUses()[one].isDefinition; });
    if (definition == name.uses.end())
        return text + ", no definition\n\n";
    const NameUse& first = names.GetUses()[*definition];
    return fmt::format("{}, defined by {} at {}\n\n", text, view.GetDeck()[first.keyword].GetName(),
        Escaped(view.GetState().LineText(first.range)));
}

std::string ScalarText(const View& view, const Decks::DeckKeyword& keyword, const ScalarAt& scalar)
{
    const ScalarPlace& place = scalar.place;
    const UnitSystem::Enum units = view.GetState().GetUnits();
    if (!place.record)
        return DescriptionOfElement(keyword.GetSyntax(), *place.md, units)
            + (scalar.count > 1
                    ? fmt::format("- values {} to {}\n", place.index + 1, place.index + scalar.count)
                    : fmt::format("- value {}\n", place.index + 1));
    std::string text = DescriptionOf(keyword.GetSyntax(), *place.record, place.item, *place.md, units);
    if (place.isInList)
        text += fmt::format("- value {} of its list\n", place.index + 1);
    if (scalar.count > 1)
        text += fmt::format("- the word stands for {} values\n", scalar.count);
    return text;
}

std::optional<Json> HoverOfKeyword(const View& view, const Decks::DeckKeyword& keyword)
{
    const auto name = view.ToNow(keyword.GetNameRange());
    if (!name)
        return std::nullopt;
    const std::string text = ArrayText(keyword) + DateLine(keyword)
        + DescriptionOf(keyword.GetSyntax(), keyword.GetName(), view.GetState().GetUnits());
    return HoverOf(text, view.SpanOf(*name));
}

/// A keyword of the language at the start of a line, which was not read yet or is none of the deck's.
Json HoverOfWord(Session& session, const View& view, std::size_t offset)
{
    const auto [word, begin] = WordAt(view.GetText(), offset);
    const bool isAtLineStart = begin == 0 || view.GetText()[begin - 1] == '\n';
    const IKeywordSyntax* const syntax = isAtLineStart && !word.empty()
        ? session.GetTable().Lookup(ToUpper(std::string(word)), true)
        : nullptr;
    if (!syntax)
        return {};
    const UnitSystem::Enum units = view.places ? view.GetState().GetUnits() : UnitSystem::METRIC;
    return HoverOf(
        DescriptionOf(*syntax, ToUpper(std::string(word)), units), view.SpanOf({begin, word.size()}));
}

} // namespace

Json Hover(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    const std::size_t offset = view.OffsetOf(PositionIn(params.at("position")));
    const auto keyword = FindKeywordAt(view, offset);
    if (!keyword)
        return HoverOfWord(session, view, offset);
    if (IsAtName(view, *keyword, offset)) {
        if (const auto hover = HoverOfKeyword(view, *keyword))
            return *hover;
    }
    const auto scalar = FindScalarAt(view, *keyword, offset);
    if (!scalar)
        return HoverOfWord(session, view, offset);
    std::string text;
    for (const std::uint32_t use : view.GetState().GetNames().FindAt(view.file, scalar->range.offset))
        text += NameText(view, use);
    text += ScalarText(view, *keyword, *scalar);
    return HoverOf(text, view.SpanOf(*view.ToNow(scalar->range)));
}

} // namespace Veld::Quor::Tools::LanguageServer

#include "tests/trust/ValueKinds.h"

#include "quor/syntax/IKeywordSyntax.h"

#include <algorithm>

namespace Veld::Quor::Trust {

using namespace Core::Decks;

std::string Undefined(const SampleDeck& deck, const Value& value, Random& random)
{
    const bool isNumber = value.md->GetType() == Core::Keywords::IKeywordDataMD::MDType::Integer;
    if (isNumber)
        return value.text == "0" ? std::string() : std::to_string(std::stoi(value.text) + 17);
    if (value.text.find_first_of("*?<>=") != std::string::npos || value.text.empty() || value.text == "FIELD")
        return {};
    return MisspeltName(deck, value.text, random);
}

/// Whether one value has the text, and some value that refers to it.
bool IsOnlyOne(const SampleDeck& deck, const Value& value, const Where& definitions, const Where& references)
{
    const auto count = [&](const Where& where) {
        const auto values = FindValues(deck, where);
        return std::count_if(
            values.begin(), values.end(), [&](const Value* other) { return other->text == value.text; });
    };
    return count(definitions) == 1 && count(references) > 0;
}

Rewrite UndefinedName(const std::string& definitions, const std::string& references)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        return IsOnlyOne(deck, value, Where(definitions), Where(references)) ? Undefined(deck, value, random)
                                                                             : std::string();
    };
}

MakeMistake RemoveDefinition(const std::string& where, const std::string& references)
{
    return [where = Where(where), references = Where(references)](
               const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const Value* value = ChooseValue(deck, FindValues(deck, where), random);
        if (!value || !IsOnlyOne(deck, *value, where, references) || value->path.size() != 2
            || value->path.back() != 0
            || deck.GetDeck()[value->keyword].GetSyntax().GetDataMD()->GetType()
                != Core::Keywords::IKeywordDataMD::MDType::List)
            return std::nullopt;
        const TextRange slash = deck.SlashAfter(*value);
        const TextRange line = deck.LinesOf(value->range);
        return Mistake{{{{slash.file, line.offset, slash.offset + slash.length - line.offset}, ""}},
            deck.UsesOf(value->text)};
    };
}

namespace {

/// The name of a list, which begins with an asterisk.
std::string UndefinedList(const SampleDeck&, const Value& value, Random&)
{
    return value.text.size() > 1 && value.text.front() == '*' ? "'" + value.text + "X'" : std::string();
}

std::string Unmatched(const SampleDeck&, const Value& value, Random&)
{
    const bool isPattern = value.text.size() > 1 && value.text.back() == '*' && value.text.front() != '*';
    return isPattern ? "'QZ" + value.text + "'" : std::string();
}

/// Exchanges a keyword with the next one, which uses its names.
MakeMistake ExchangeWithNext(const std::string& where, const std::string& next)
{
    return [where = Where(where), next](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        std::vector<std::size_t> keywords = FindKeywords(deck, where);
        std::erase_if(keywords, [&](std::size_t at) {
            return at + 1 == deck.GetDeck().GetSize() || !deck.GetDeck()[at + 1].IsNamed(next)
                || deck.GetDeck()[at + 1].GetRange().file != deck.GetDeck()[at].GetRange().file;
        });
        if (keywords.empty())
            return std::nullopt;
        const std::size_t at = random.Choose(keywords);
        const TextRange first = deck.GetDeck()[at].GetRange();
        const TextRange second = deck.GetDeck()[at + 1].GetRange();
        return Mistake{
            {{first, std::string(deck.GetText(second))}, {second, std::string(deck.GetText(first))}}};
    };
}

/// The folder of a path alias. The inclusions that use it are places.
std::optional<Mistake> MisspellPath(const SampleDeck& deck, Random& random)
{
    const Value* path = ChooseValue(deck, FindValues(deck, Where("PATHS.PATH")), random);
    if (!path)
        return std::nullopt;
    Mistake mistake{{{path->range, "'" + MisspeltName(deck, path->text, random) + "'"}}};
    const std::string alias = "$" + FindSibling(deck, *path, "ALIAS")->text + "/";
    for (std::uint32_t file = 1; file < deck.GetDeck().GetFiles().GetSize(); ++file) {
        const TextRange inclusion = *deck.GetDeck().GetFiles().Get(file).inclusion;
        if (deck.GetText(inclusion).find(alias) != std::string_view::npos)
            mistake.places.push_back(inclusion);
    }
    return mistake;
}

} // namespace

void AddKindsOfNames(std::vector<Kind>& kinds)
{
    const std::vector<Kind> added{
        {"misspelt group where wells join it", OnValue("WELSPECS.GROUP", Undefined, "uses")},
        {"well completed before it is defined", ExchangeWithNext("WELSPECS", "COMPDAT")},
        {"pattern that matches no well", OnValue("*.WELL @SCHEDULE", Unmatched)},
        {"undefined list of wells", OnValue("*.WELL @SCHEDULE", UndefinedList)},
        {"path to no file", MisspellPath},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

#include "tests/trust/Rules.h"
#include "tests/trust/ValueKinds.h"

#include "quor/syntax/IKeywordSyntax.h"

#include <algorithm>
#include <sstream>

namespace Veld::Quor::Trust {

using namespace Core::Decks;
using namespace Core::Keywords;

namespace {

bool HasAny(const SampleDeck& deck, const std::vector<std::string>& names)
{
    return std::any_of(
        names.begin(), names.end(), [&](const std::string& name) { return deck.GetDeck().Has(name); });
}

bool HasAll(const SampleDeck& deck, const std::vector<std::string>& names)
{
    return std::all_of(
        names.begin(), names.end(), [&](const std::string& name) { return deck.GetDeck().Has(name); });
}

std::vector<std::string> Words(const std::string& text)
{
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Removes all keywords of these names; none if one of them is in several files.
std::optional<Mistake> Remove(const SampleDeck& deck, const std::vector<std::string>& names)
{
    Mistake mistake;
    for (const std::string& name : names) {
        for (const DeckKeyword keyword : deck.GetDeck().GetAll(name)) {
            if (keyword.GetRange().length == 0)
                return std::nullopt;
            mistake.edits.push_back({deck.LinesOf(keyword.GetRange()), ""});
        }
    }
    return mistake.edits.empty() ? std::nullopt : std::make_optional(mistake);
}

MakeMistake RemoveAll(const std::string& names, const std::string& places)
{
    return [=](const SampleDeck& deck, Random&) {
        auto mistake = Remove(deck, Words(names));
        if (mistake)
            Append(RangesOf(deck, places), mistake->places);
        return mistake;
    };
}

/// Of what a rule says that a deck needs.
MakeMistake RemoveNeeded(const Rule& rule)
{
    return [rule](const SampleDeck& deck, Random&) -> std::optional<Mistake> {
        const std::vector<std::string> names = rule.GetWords("anyOf");
        const auto isMade = [&](const std::string& name) { // by an operation
            return std::any_of(deck.GetValues().begin(), deck.GetValues().end(), [&](const Value& value) {
                return value.text == name && (value.item == "ARRAY" || value.item == "TARGET");
            });
        };
        if (!HasAll(deck, rule.GetWords("when")) || HasAny(deck, rule.GetWords("unless"))
            || std::any_of(names.begin(), names.end(), isMade))
            return std::nullopt;
        auto mistake = Remove(deck, names);
        if (mistake)
            Append(RangesOf(deck, rule.Get("in") + " " + rule.Get("when")), mistake->places);
        return mistake;
    };
}

/// Removes a keyword of RUNSPEC that others of the deck require.
std::optional<Mistake> RemovePrecedent(const SampleDeck& deck, Random& random)
{
    std::vector<std::size_t> keywords = FindKeywords(deck, Where("@RUNSPEC -OIL -WATER -GAS -COMPS"));
    std::vector<Mistake> mistakes;
    for (const std::size_t at : keywords) {
        const DeckKeyword removed = deck.GetDeck()[at];
        Mistake mistake{{{deck.LinesOf(removed.GetRange()), ""}}};
        for (const DeckKeyword other : deck.GetDeck()) {
            if (other.GetSyntax().HasPrecedents()
                && other.GetSyntax().GetPrecedents(other.GetSection()).count(removed.GetName()) > 0)
                mistake.places.push_back(
                    other.GetRange().length > 0 ? other.GetRange() : other.GetNameRange());
        }
        if (!mistake.places.empty())
            mistakes.push_back(std::move(mistake));
    }
    return mistakes.empty() ? std::nullopt : std::make_optional(random.Choose(mistakes));
}

/// Removes a phase of a run without components. All that needs it is a place.
std::optional<Mistake> RemovePhase(const SampleDeck& deck, Random& random)
{
    const std::string phase = random.Choose(Words("OIL WATER GAS"));
    auto mistake = deck.GetDeck().Has("COMPS") ? std::nullopt : Remove(deck, {phase});
    if (mistake) {
        for (const DeckKeyword other : deck.GetDeck())
            mistake->places.push_back(other.GetRange().length > 0 ? other.GetRange() : other.GetNameRange());
    }
    return mistake;
}

/// Another keyword after one that excludes it.
MakeMistake AddAfter(const std::string& names, const std::string& more)
{
    return [=](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const std::vector<TextRange> after = RangesOf(deck, names);
        const std::string text = random.Choose(Words(more));
        if (after.empty() || deck.GetDeck().Has(text))
            return std::nullopt;
        const TextRange line = deck.LinesOf(after.front());
        return Mistake{{{{line.file, line.offset + line.length, 0}, text + "\n"}}, {line}};
    };
}

/// A keyword that a deck has once, again, with another number.
MakeMistake Repeat(const std::string& names)
{
    return [where = Where(names)](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        std::vector<const Value*> values = FindValues(deck, where);
        std::erase_if(values,
            [](const Value* value) { return value->md->GetType() != IKeywordDataMD::MDType::Integer; });
        const Value* value = ChooseValue(deck, values, random);
        const TextRange range = value ? deck.GetDeck()[value->keyword].GetRange() : TextRange{};
        if (range.length == 0)
            return std::nullopt;
        std::string text(deck.GetText(deck.LinesOf(range)));
        const std::size_t at = value->range.offset - range.offset;
        text.replace(at, value->range.length, std::to_string(std::stoi(value->text) + 1));
        const TextRange line = deck.LinesOf(range);
        return Mistake{{{{line.file, line.offset + line.length, 0}, text}}, {range}};
    };
}

/// Whether other keywords of the deck require one of them, or it has components.
bool IsPrecedent(const SampleDeck& deck, const std::vector<std::string>& names)
{
    for (const DeckKeyword keyword : deck.GetDeck()) {
        for (const std::string& name : names) {
            if (keyword.IsNamed("COMPS")
                || (keyword.GetSyntax().HasPrecedents()
                    && keyword.GetSyntax().GetPrecedents(keyword.GetSection()).count(name) > 0))
                return true;
        }
    }
    return false;
}

} // namespace

MakeMistake RemoveRequired(const Rule& rule)
{
    return [rule,
               where = Where(WhereOf(rule, rule.Get("when").substr(0, rule.Get("when").find('=')))
                   + ConditionOf(rule))](const SampleDeck& deck, Random&) -> std::optional<Mistake> {
        const std::vector<const Value*> values = FindValues(deck, where);
        if (values.empty() || values.front()->text == "0" || IsPrecedent(deck, rule.GetWords("present")))
            return std::nullopt;
        auto mistake = Remove(deck, rule.GetWords("present"));
        if (mistake)
            Append(RangesOf(deck, "RUNSPEC DISGAS"), mistake->places);
        for (const Value* value : mistake ? values : std::vector<const Value*>())
            mistake->places.push_back(value->range);
        return mistake;
    };
}

void AddKindsOfPresence(std::vector<Kind>& kinds)
{
    std::string once;
    for (const Rule& rule : ReadRules()) {
        if (rule.tag == "need")
            kinds.push_back({"missing " + rule.Get("what")
                    + (rule.Get("when").empty() ? "" : " with " + rule.Get("when")),
                RemoveNeeded(rule)});
        else if (rule.tag == "exclusive")
            kinds.push_back(
                {"second " + rule.Get("what"), AddAfter(rule.Get("keywords"), rule.Get("keywords"))});
        else if (rule.tag == "once")
            once += rule.Get("keywords") + " ";
    }
    const std::vector<Kind> added{
        {"keyword of RUNSPEC twice with other values", Repeat(once)},
        {"missing option that others require", RemovePrecedent},
        {"missing phase", RemovePhase},
        {"missing definitions of wells", RemoveAll("WELSPECS", "SCHEDULE COMPDAT WEFAC")},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

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
        if (!HasAll(deck, rule.GetWords("when")) || HasAny(deck, rule.GetWords("unless")))
            return std::nullopt;
        auto mistake = Remove(deck, rule.GetWords("anyOf"));
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

/// Removes a phase of the run. All that needs it is a place.
std::optional<Mistake> RemovePhase(const SampleDeck& deck, Random& random)
{
    const std::string phase = random.Choose(Words("OIL WATER GAS"));
    auto mistake = Remove(deck, {phase});
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

} // namespace

void AddKindsOfPresence(std::vector<Kind>& kinds)
{
    std::string once;
    for (const Rule& rule : ReadRules(QUOR_SOURCE_DIR "/language/rules")) {
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
        {"missing compressibility of rock", RemoveAll("ROCK", "PROPS")},
        {"missing completions", RemoveAll("COMPDAT", "SCHEDULE WCONPROD WCONINJE WCONHIST WELSPECS")},
        {"missing definitions of wells", RemoveAll("WELSPECS", "SCHEDULE COMPDAT WEFAC")},
        {"missing components", RemoveAll("CNAMES", "PROPS COMPS")},
        {"missing critical properties", RemoveAll("TCRIT", "PROPS COMPS")},
        {"missing composition", RemoveAll("ZMFVD", "SOLUTION COMPS")},
        {"missing dissolved gas at the start", RemoveAll("RSVD", "SOLUTION DISGAS EQUIL")},
        {"missing WELLDIMS", RemoveAll("WELLDIMS", "RUNSPEC WELSPECS COMPDAT")},
        {"missing temperature", RemoveAll("RTEMP TEMPVD", "PROPS SOLUTION")},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

#include "tests/trust/ValueKinds.h"

#include "quor/metadata/IKeywordChoiceMD.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Trust {

using namespace Core::Decks;

MakeMistake RepeatRecord(const std::string& where, const Rewrite& rewrite)
{
    return [where = Where(where), rewrite](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const Value* value = ChooseValue(deck, FindValues(deck, where), random);
        if (!value)
            return std::nullopt;
        const TextRange slash = deck.SlashAfter(*value);
        const TextRange line = deck.LinesOf(value->range);
        if (slash.length == 0 || deck.LinesOf(slash).offset != line.offset || value->path.size() != 2)
            return std::nullopt;
        const std::string text = rewrite(deck, *value, random);
        std::string copy(deck.GetText(line));
        if (text.empty())
            return std::nullopt;
        copy.replace(value->range.offset - line.offset, value->range.length, text);
        return Mistake{{{{line.file, line.offset + line.length, 0}, copy}}, {line}};
    };
}

MakeMistake RepeatKeyword(const std::string& where, const std::string& part, const std::string& replacement)
{
    return [=](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const std::vector<std::size_t> keywords = FindKeywords(deck, Where(where));
        if (keywords.empty())
            return std::nullopt;
        const TextRange range = deck.LinesOf(deck.GetDeck()[random.Choose(keywords)].GetRange());
        std::string copy(deck.GetText(range));
        if (const std::size_t at = part.empty() ? std::string::npos : copy.find(part);
            at != std::string::npos)
            copy.replace(at, part.size(), replacement);
        return Mistake{{{{range.file, range.offset + range.length, 0}, copy}}, {range}};
    };
}

namespace {

/// Another word of a control, for which the record has no target.
Rewrite OtherControl(const std::vector<std::string>& words)
{
    return [words](const SampleDeck& deck, const Value& value, Random& random) {
        const std::string word = random.Choose(words);
        const std::string state = TextOf(FindSibling(deck, value, "STATUS"));
        return FindSibling(deck, value, word) || state == "SHUT" ? std::string() : word;
    };
}

std::string DayBeyondMonth(const SampleDeck& deck, const Value& value, Random&)
{
    const Value* month = FindSibling(deck, value, "MONTH");
    const std::string short31 = "APR JUN SEP NOV FEB";
    return month && short31.find(month->text) != std::string::npos ? "31" : std::string();
}

/// A phase that is not in the run.
std::string OtherPhase(const SampleDeck& deck, const Value& value, Random& random)
{
    const std::string phase = random.Choose(std::vector<std::string>{"OIL", "WATER", "GAS"});
    return deck.GetDeck().Has(phase) || value.text == phase ? std::string() : phase;
}

/// A group that is below another one becomes its parent.
std::optional<Mistake> MakeLoop(const SampleDeck& deck, Random& random)
{
    for (const Value* child : FindValues(deck, Where("GRUPTREE.GROUP"))) {
        const Value* parent = FindSibling(deck, *child, "PARENT");
        for (const Value* above : FindValues(deck, Where("GRUPTREE.GROUP"))) {
            const Value* top = FindSibling(deck, *above, "PARENT");
            if (parent && top && above->text == parent->text && random.Below(2) == 0)
                return Mistake{{{top->range, child->text}}, {child->range}};
        }
    }
    return std::nullopt;
}

/// A well joins a group that has groups below it.
std::string GroupOfGroups(const SampleDeck& deck, const Value&, Random& random)
{
    std::vector<const Value*> parents = FindValues(deck, Where("GRUPTREE.PARENT"));
    std::erase_if(parents, [](const Value* value) { return value->text == "FIELD"; });
    return parents.empty() ? std::string() : random.Choose(parents)->text;
}

/// Adds to a whole number.
Rewrite Plus(int more)
{
    return [more](const SampleDeck&, const Value& value, Random&) {
        return std::to_string(std::stoi(value.text) + more);
    };
}

/// Only for a date that another one follows in its keyword.
Rewrite BeforeOthers(const Rewrite& rewrite)
{
    return [rewrite](const SampleDeck& deck, const Value& value, Random& random) {
        return FindInRow(deck, value, 1) ? rewrite(deck, value, random) : std::string();
    };
}

/// The head of a well, and with it its connections, in a column of cells that take no part.
std::optional<Mistake> MoveToInactiveCells(const SampleDeck& deck, Random& random)
{
    std::vector<const Value*> cells = FindValues(deck, Where("ACTNUM"));
    std::erase_if(cells, [](const Value* cell) { return cell->text != "0"; });
    const Value* i = ChooseValue(deck, FindValues(deck, Where("WELSPECS.I")), random);
    if (!i || cells.empty())
        return std::nullopt;
    const std::size_t cell = random.Choose(cells)->path.back();
    const std::size_t nx = deck.GetSize("NX");
    const std::size_t column = cell % nx + 1;
    const std::size_t row = cell / nx % deck.GetSize("NY") + 1;
    return Mistake{
        {{i->range, std::to_string(column)}, {FindSibling(deck, *i, "J")->range, std::to_string(row)}},
        RangesOf(deck, "COMPDAT")};
}

/// A keyword that no run of the deck's simulator and mode has.
MakeMistake Insert(const std::string& after, const std::string& text, const std::string& needs)
{
    return [=](const SampleDeck& deck, Random&) -> std::optional<Mistake> {
        if (!deck.GetDeck().Has(after) || deck.GetTarget().mode == Core::Keywords::SimulatorModeType::Any
            || (!needs.empty() && !deck.GetDeck().Has(needs)))
            return std::nullopt;
        const TextRange line = deck.LinesOf(deck.GetDeck().Get(after).GetRange());
        return Mistake{{{{line.file, line.offset + line.length, 0}, text}}};
    };
}

} // namespace

void AddKindsOfSchedule(std::vector<Kind>& kinds)
{
    const Rewrite same = Around("", " ");
    const std::vector<Kind> added{
        {"unknown month", OnValue("DATES.MONTH START.MONTH", Constant("MAI"))},
        {"day that the month doesn't have", OnValue("DATES.DAY", DayBeyondMonth)},
        {"year with three digits", OnValue("DATES.YEAR", Constant("203"))},
        {"year before the start", OnValue("DATES.YEAR", Plus(-60))},
        {"year of the next century", OnValue("DATES.YEAR", BeforeOthers(Plus(100)), "DATES")},
        {"dates out of order", OnValue("DATES.YEAR +later", Plus(-3), "DATES")},
        {"start after the first date", OnValue("START.YEAR", IfThere("DATES", Plus(70)), "DATES SCHEDULE")},
        {"date twice", RepeatRecord("DATES.DAY", same), true},
        {"negative length of a step", OnValue("TSTEP", Around("-", ""))},
        {"control of a producer by another quantity",
            OnValue("WCONPROD.CONTROL", OtherControl({"WRAT", "RESV", "ORAT", "LRAT"}), "record")},
        {"control of an injector by another quantity",
            OnValue("WCONINJE.CONTROL", OtherControl({"RESV", "RATE"}), "record")},
        {"control by pressure of the head without a table",
            OnValue("WCONPROD.CONTROL WCONINJE.CONTROL", OtherControl({"THP"}), "record")},
        {"injection below the pressure of production", OnValue("WCONINJE.BHP", Times(0.05), "record")},
        {"injected phase that is not in the run", OnValue("WCONINJE.TYPE GCONINJE.PHASE", OtherPhase)},
        {"efficiency in percent", OnValue("WEFAC.FACTOR GEFAC.FACTOR", Times(100))},
        {"water cut in percent", OnValue("WECON.WCT GECON.WCT", Times(100))},
        {"quality of steam in percent", OnValue("WINJTEMP.QUALITY", Times(100))},
        {"loop of groups", MakeLoop},
        {"wells and groups below one group", OnValue("WELSPECS.GROUP", GroupOfGroups, "GRUPTREE")},
        {"well twice in WELSPECS", RepeatRecord("WELSPECS.I", Plus(1))},
        {"well twice with other controls",
            RepeatRecord("WCONPROD.ORAT WCONPROD.LRAT WCONHIST.ORAT", Times(1.5))},
        {"group with two parents", RepeatRecord("GRUPTREE.PARENT", Constant("FIELD"))},
        {"array twice", RepeatKeyword("PORO PERMX NTG TOPS DX DY", "0.2", "0.1")},
        {"keyword of another mode in PROPS", Insert("ROCK", "ZI\n 0.5 0.5 /\n", "DISGAS")},
        {"keyword of another mode in SCHEDULE", Insert("WELSPECS", "WINJTEMP\n * 0.7 250 /\n/\n", "DISGAS")},
        {"measured rate below zero", OnValue("WCONHIST.ORAT WCONHIST.WRAT WCONHIST.GRAT", Around("-", ""))},
        {"rate below zero",
            OnValue("WCONPROD.ORAT WCONPROD.LRAT WCONPROD.GRAT WCONINJE.RATE", Around("-", ""))},
        {"well in cells that are not active", MoveToInactiveCells},
        {"well opened that is misspelt",
            OnValue("WELOPEN.WELL",
                [](const SampleDeck& deck, const Value& value, Random& random) {
                    return value.text.find('*') != std::string::npos ? std::string()
                                                                     : MisspeltName(deck, value.text, random);
                })},
        {"unknown direction of a face", OnValue("FAULTS.FACE AQUANCON.FACE", Constant("W"))},
        {"unknown quantity of a target", OnValue("WELTARG.QUANTITY WTMULT.QUANTITY", Constant("OILRATE"))},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

#include "tests/trust/ValueKinds.h"

#include "quor/deck/DeckUnits.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Trust {

using namespace Core::Decks;
using namespace Core::Keywords;
using Constraint = IKeywordDataMD::ColumnConstraintType;

namespace {

/// Between this value and that of the next row, or of the row before.
Rewrite Between(std::ptrdiff_t step, double share)
{
    return [=](const SampleDeck& deck, const Value& value, Random&) {
        const Value* other = FindInRow(deck, value, step);
        if (!other || other->text == value.text)
            return std::string();
        const double from = std::stod(value.text);
        return fmt::format("{:.6g}", from + share * (std::stod(other->text) - from));
    };
}

/// The number times one factor in a deck in metric units, times another one in field units.
Rewrite InOtherUnits(double metric, double field)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        const bool isField = deck.GetDeck().Has("FIELD");
        return isField || deck.GetDeck().Has("METRIC") ? Times(isField ? field : metric)(deck, value, random)
                                                       : std::string();
    };
}

/// Only of a corner of a cell that takes part.
Rewrite IfActive(const Rewrite& rewrite)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        const std::size_t nx = deck.GetSize("NX");
        const std::size_t ny = deck.GetSize("NY");
        const std::size_t corner = value.path.back();
        const std::size_t cell =
            (corner / (8 * nx * ny) * ny + corner / (2 * nx) % (2 * ny) / 2) * nx + corner % (2 * nx) / 2;
        for (const Value* active : FindValues(deck, Where("ACTNUM"))) {
            if (active->path.back() >= cell) // the last of a repeat stands for all
                return active->text == "0" ? std::string() : rewrite(deck, value, random);
        }
        return rewrite(deck, value, random);
    };
}

/// Only of a record after the first.
Rewrite IfLater(const Rewrite& rewrite)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        return value.path.size() > 3 && value.path[1] == 0 ? std::string() : rewrite(deck, value, random);
    };
}

std::string WithoutExponent(const SampleDeck&, const Value& value, Random&)
{
    const std::size_t at = value.text.find_first_of("eE");
    return at == std::string::npos ? std::string() : value.text.substr(0, at);
}

/// Values of columns with an order.
std::vector<const Value*> FindOrdered(const SampleDeck& deck)
{
    std::vector<const Value*> values = FindValues(deck, Where("+number +record"));
    std::erase_if(values, [](const Value* value) {
        return value->path.size() < 2
            || value->record->GetColumnConstraint(static_cast<int>(value->path.back())) == Constraint::None;
    });
    return values;
}

std::optional<Mistake> ExchangeRows(const SampleDeck& deck, Random& random)
{
    const Value* value = ChooseValue(deck, FindOrdered(deck), random);
    const Value* next = value ? FindInRow(deck, *value, 1) : nullptr;
    if (!next || next->text == value->text)
        return std::nullopt;
    return Mistake{{{value->range, next->text}, {next->range, value->text}}};
}

std::optional<Mistake> RepeatRow(const SampleDeck& deck, Random& random)
{
    const Value* value = ChooseValue(deck, FindOrdered(deck), random);
    const Value* next = value ? FindInRow(deck, *value, 1) : nullptr;
    if (!next || next->text == value->text)
        return std::nullopt;
    const auto constraint = value->record->GetColumnConstraint(static_cast<int>(value->path.back()));
    if (constraint == Constraint::Increasing || constraint == Constraint::Decreasing)
        return std::nullopt;
    return Mistake{{{next->range, value->text}}, {value->range}};
}

/// Not from the last one, which may leave out its last values: it would look so.
std::optional<Mistake> RemoveFromRow(const SampleDeck& deck, Random& random)
{
    std::vector<const Value*> values = FindOrdered(deck);
    std::erase_if(values, [&](const Value* value) { return !FindInRow(deck, *value, 1); });
    const Value* value = ChooseValue(deck, values, random);
    if (!value)
        return std::nullopt;
    const TextRange line = deck.LinesOf(value->range);
    return Mistake{{{value->range, ""}}, {line, deck.LinesOf({line.file, line.offset + line.length, 1})}};
}

std::optional<Mistake> AddToRow(const SampleDeck& deck, Random& random)
{
    const Value* value = ChooseValue(deck, FindOrdered(deck), random);
    if (!value)
        return std::nullopt;
    const TextRange line = deck.LinesOf(value->range);
    return Mistake{{{value->range, value->text + " 0.5"}},
        {line, deck.LinesOf({line.file, line.offset + line.length, 1})}};
}

/// One value more or fewer in an array that has one for each cell.
std::optional<Mistake> ResizeArray(const SampleDeck& deck, Random& random, int by)
{
    std::vector<std::size_t> keywords = FindKeywords(deck, Where("@GRID @EDIT @PROPS @REGIONS @SOLUTION"));
    std::erase_if(keywords,
        [&](std::size_t keyword) { return !deck.GetDeck()[keyword].GetSyntax().GetCellPropertyInfo(); });
    if (keywords.empty())
        return std::nullopt;
    const DeckKeyword keyword = deck.GetDeck()[random.Choose(keywords)];
    std::vector<Word> words = deck.WordsOf(keyword);
    std::erase_if(words, [](const Word& word) { return word.isSlash; });
    if (words.empty())
        return std::nullopt;
    const TextRange range = random.Choose(words).range;
    const std::string word(deck.GetText(range));
    const std::size_t star = word.find('*');
    std::string text = by > 0 ? word + " " + word : "";
    if (star != std::string::npos)
        text = std::to_string(std::stoi(word) + by) + word.substr(star);
    return Mistake{{{range, text}}, {keyword.GetRange()}};
}

/// Keywords that are lists of tables, with the slashes that end those.
std::optional<Mistake> ResizeTables(const SampleDeck& deck, Random& random, bool isMore)
{
    std::vector<std::size_t> keywords = FindKeywords(deck, Where("@PROPS @SOLUTION"));
    std::erase_if(keywords, [&](std::size_t keyword) {
        const auto* md = deck.GetDeck()[keyword].GetSyntax().GetDataMD();
        return !md || md->GetType() != IKeywordDataMD::MDType::List
            || !static_cast<const IKeywordListMD*>(md)->GetSize()
            || static_cast<const IKeywordListMD*>(md)->GetItemMD()->GetType()
            != (random.Below(2) == 0 ? IKeywordDataMD::MDType::Record : IKeywordDataMD::MDType::List);
    });
    if (keywords.empty())
        return std::nullopt;
    const DeckKeyword keyword = deck.GetDeck()[random.Choose(keywords)];
    const std::vector<Word> words = deck.WordsOf(keyword);
    std::vector<TextRange> places{keyword.GetRange()};
    Append(RangesOf(deck, "TABDIMS EQLDIMS"), places);
    if (keyword.GetIndex() + 1 < deck.GetDeck().GetSize())
        places.push_back(deck.GetDeck()[keyword.GetIndex() + 1].GetNameRange());
    const TextRange last = words.back().range;
    const TextRange from = deck.LinesOf(keyword.GetNameRange());
    const TextRange data{from.file, from.offset + from.length,
        deck.LinesOf(last).offset + deck.LinesOf(last).length - from.offset - from.length};
    if (isMore)
        return Mistake{
            {{{data.file, data.offset + data.length, 0}, std::string(deck.GetText(data))}}, places};
    const auto slash =
        std::find_if(words.rbegin() + 1, words.rend(), [](const Word& word) { return word.isSlash; });
    if (slash == words.rend()
        || std::count_if(words.begin(), words.end(), [](const Word& word) { return word.isSlash; }) != 2)
        return std::nullopt;
    const TextRange line = deck.LinesOf(slash->range);
    const std::size_t begin = line.offset + line.length;
    return Mistake{{{{data.file, begin, data.offset + data.length - begin}, ""}}, places};
}

} // namespace

void AddKindsOfTables(std::vector<Kind>& kinds)
{
    const std::vector<Kind> added{
        {"rows of a table exchanged", ExchangeRows},
        {"row of a table repeated", RepeatRow},
        {"value missing in a row of a table", RemoveFromRow},
        {"value too many in a row of a table", AddToRow},
        {"one value missing in an array",
            [](const SampleDeck& deck, Random& random) { return ResizeArray(deck, random, -1); }},
        {"one value too many in an array",
            [](const SampleDeck& deck, Random& random) { return ResizeArray(deck, random, 1); }},
        {"tables twice as many as regions",
            [](const SampleDeck& deck, Random& random) { return ResizeTables(deck, random, true); }},
        {"one table missing",
            [](const SampleDeck& deck, Random& random) { return ResizeTables(deck, random, false); }},
        {"water flows at connate saturation",
            OnValue("SWOF.KRW SWFN.KRW +first", Between(1, 0.5), "keyword")},
        {"gas flows without gas", OnValue("SGOF.KRG SGFN.KRG +first", Constant("0.001"), "keyword")},
        {"oil curves differ at connate water",
            OnValue("SWOF.KROW +first", IfThere("GAS", Constant("0.96")), "keyword SGOF")},
        {"oil curves of SOF3 differ without gas", OnValue("SOF3.KROG +last", Between(-1, 0.3), "keyword")},
        {"gas and connate water above one",
            OnValue("SGOF.SG SGFN.SG +last", Constant("0.995"), "SWOF SGOF SWFN SGFN")},
        {"oil saturation not up to connate water", OnValue("SOF3.SO +last", Between(-1, 0.4), "SWFN SOF3")},
        {"relative permeability above one",
            OnValue("*.KRW *.KRG *.KROW *.KROG +last +later", Constant("1.3"))},
        {"saturation in percent", OnValue("*.SW *.SG *.SO @PROPS +later", Times(100), "keyword")},
        {"capillary pressure that rises", OnValue("SWOF.PCOW SWFN.PCW +later", Constant("9.5"))},
        {"gas-oil contact below the water contact", OnValue("EQUIL.GOC", Constant("99000"))},
        {"datum pressure in another unit",
            OnValue("EQUIL.PRESSURE", InOtherUnits(14.5038, 1 / 14.5038), "keyword METRIC FIELD")},
        {"compressibility without its exponent",
            OnValue("PVTW.CW ROCK.CR AQUCT.CT AQUFETP.CT", WithoutExponent)},
        {"density in another unit",
            OnValue("DENSITY.OIL DENSITY.WATER", InOtherUnits(1 / 16.0185, 16.0185), "METRIC FIELD")},
        {"porosity a thousand times too great", OnValue("PORO AQUCT.PORO", Times(1000))},
        {"negative permeability", OnValue("PERMX PERMY PERMZ PERMR", Times(-1))},
        {"oil volume rises above the bubble point", OnValue("PVTO.BO +later", Times(1.2), "keyword")},
        {"oil viscosity falls above the bubble point", OnValue("PVTO.VISO +later", Times(0.3), "keyword")},
        {"dissolved gas that falls with pressure",
            OnValue("PVTO.PRESSURE +first", IfLater(Times(0.01)), "keyword")},
        {"gas volume that rises with pressure", OnValue("PVDG.BG +later", Times(30), "keyword")},
        {"depth of a well ten times too great", OnValue("WELSPECS.REFDEPTH", Times(10))},
        {"depth as a height", OnValue("EQUIL.DEPTH EQUIL.OWC WELSPECS.REFDEPTH", Around("-", ""))},
        {"corner depth without its point", OnValue("ZCORN", IfActive(Times(10)))},
        {"corner depth above its neighbours", OnValue("ZCORN", IfActive(Times(0.1)))},
        {"cell top far above", OnValue("TOPS", Times(0.1), "keyword")},
        {"thickness below zero", OnValue("DZ DZV", Times(-1))},
        {"fractions that don't add up to one",
            OnValue("ZMFVD.ZMF WELLSTRE.FRACTION", Constant("0.77"), "record")},
        {"angle of an aquifer above the circle", OnValue("AQUCT.ANGLE", Constant("720"))},
        {"rock properties in another unit", OnValue("ROCK.CR", Times(1e5))},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

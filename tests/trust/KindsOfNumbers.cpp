#include "tests/trust/Rules.h"
#include "tests/trust/ValueKinds.h"

#include <algorithm>
#include <set>

namespace Veld::Quor::Trust {

using namespace Core::Decks;

namespace {

/// A number above a size of the deck.
Rewrite Beyond(const std::string& size)
{
    return [size](const SampleDeck& deck, const Value& value, Random& random) {
        const std::size_t limit = FindSibling(deck, value, "LGR") ? 0 : deck.GetSize(size);
        return limit == 0 || value.text == "0" ? std::string() : std::to_string(limit + 1 + random.Below(5));
    };
}

/// Exchanges the first and the last number of a range.
MakeMistake Exchange(const std::string& where, const std::string& last)
{
    return [where = Where(where), last](const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        const std::vector<const Value*> values = FindValues(deck, where);
        for (int i = 0; i < 30 && !values.empty(); ++i) {
            const Value& first = *ChooseValue(deck, values, random);
            const Value* other = FindSibling(deck, first, last);
            if (other && std::stoi(other->text) > std::stoi(first.text))
                return Mistake{{{first.range, other->text}, {other->range, first.text}}};
        }
        return std::nullopt;
    };
}

/// How many things a deck has, by what is counted: "WELSPECS.WELL" different names, "SWOF" elements of its
/// list, "SWOF/" most rows of an element.
std::size_t Count(const SampleDeck& deck, const std::string& what)
{
    const bool isRows = what.back() == '/';
    std::set<std::string> names;
    std::size_t count = 0;
    for (const Value* value : FindValues(deck, Where(isRows ? what.substr(0, what.size() - 1) : what))) {
        names.insert(value->text);
        if (value->path.size() > 1 || !isRows)
            count = std::max(count, value->path[isRows ? 1 : 0] + 1);
    }
    return what.find('.') != std::string::npos ? names.size() : count;
}

/// Makes a size of RUNSPEC one less than what is there. What is counted is a place for the finding too, and
/// so are `more` keywords.
MakeMistake TooSmall(
    const std::string& size, const std::vector<std::string>& counted, const std::string& more = "")
{
    return [=](const SampleDeck& deck, Random&) -> std::optional<Mistake> {
        const std::vector<const Value*> sizes = FindValues(deck, Where(size + " @RUNSPEC"));
        for (const std::string& what : counted) {
            const std::size_t count = Count(deck, what);
            if (sizes.empty() || count < 2)
                continue;
            std::vector<TextRange> places = RangesOf(deck, more);
            for (const std::string& other : counted)
                Append(RangesOf(deck, other.substr(0, other.find_first_of("./"))), places);
            return Mistake{{{sizes.front()->range, std::to_string(count - 1)}}, places};
        }
        return std::nullopt;
    };
}

void AddKindsOfRules(std::vector<Kind>& kinds)
{
    for (const Rule& rule : ReadRules(QUOR_SOURCE_DIR "/language/rules")) {
        const std::string where = WhereOf(rule, "items");
        if (rule.tag == "index") {
            kinds.push_back({"number beyond " + rule.Get("size"),
                OnValue(where + " +integer", Beyond(rule.Get("size")))});
        } else if (rule.tag == "order") {
            const std::vector<std::string> items = rule.GetWords("items");
            Rule first = rule;
            first.attributes["items"] = items.front();
            kinds.push_back({"first number above the last: " + items.front(),
                Exchange(WhereOf(first, "items") + " @SCHEDULE @GRID @EDIT @REGIONS @PROPS @SOLUTION",
                    items.back())});
        } else if (rule.tag == "region") {
            kinds.push_back({"cell of a region beyond " + rule.Get("size"),
                OnValue(rule.Get("arrays"), Beyond(rule.Get("size")))});
        }
    }
}

/// EQUALS gives a number of a region to cells.
Rewrite RegionOf(const std::string& array, const std::string& size)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        const Value* name = FindSibling(deck, value, "ARRAY");
        return name && name->text == array ? Beyond(size)(deck, value, random) : std::string();
    };
}

} // namespace

void AddKindsOfNumbers(std::vector<Kind>& kinds)
{
    AddKindsOfRules(kinds);
    const std::vector<Kind> added{
        {"block of output outside the grid", OnValue("BPR BOSAT BGSAT BWSAT BTEMP BSGAS", Beyond("NX"))},
        {"region of output beyond NTFIP", OnValue("RPR ROIP RWIP RGIP ROFT RWFT", Beyond("NTFIP"))},
        {"equilibration region beyond NTEQUL", OnValue("THPRES.FROM THPRES.TO", Beyond("NTEQUL"))},
        {"EQUALS of SATNUM beyond NTSFUN", OnValue("EQUALS.VALUE", RegionOf("SATNUM", "NTSFUN"))},
        {"EQUALS of PVTNUM beyond NTPVT", OnValue("EQUALS.VALUE", RegionOf("PVTNUM", "NTPVT"))},
        {"EQUALS of FIPNUM beyond NTFIP", OnValue("EQUALS.VALUE", RegionOf("FIPNUM", "NTFIP"))},
        {"FIPNUM beyond NTFIP", OnValue("FIPNUM FIPLAY", Beyond("NTFIP"))},
        {"cell outside its local grid", OnValue("COMPDATL.I COMPDATL.J", Constant("55"), "record")},
        {"WELLDIMS: too few wells", TooSmall("WELLDIMS.MAXWELLS", {"WELSPECS.WELL"})},
        {"WELLDIMS: too few groups", TooSmall("WELLDIMS.MAXGROUP", {"GRUPTREE.GROUP", "WELSPECS.GROUP"})},
        {"WELLDIMS: too few connections", TooSmall("WELLDIMS.MAXCONN", {"COMPDAT.K2"})},
        {"TABDIMS: too few saturation tables",
            TooSmall("TABDIMS.NTSFUN", {"SWOF", "SGOF", "SWFN", "SGFN", "SOF3"}, "EQUALS SATNUM")},
        {"TABDIMS: too few fluid tables",
            TooSmall("TABDIMS.NTPVT", {"PVTO", "PVDG", "PVTW", "DENSITY", "ROCK"}, "EQUALS PVTNUM")},
        {"TABDIMS: too few rows of saturation",
            TooSmall("TABDIMS.NSSFUN", {"SWOF/", "SGOF/", "SWFN/", "SGFN/"})},
        {"TABDIMS: too few rows of fluids", TooSmall("TABDIMS.NPPVT", {"PVDG/", "PVDO/"})},
        {"TABDIMS: too few rows of live oil", TooSmall("TABDIMS.NRPVT", {"PVTO/"})},
        {"EQLDIMS: too few regions", TooSmall("EQLDIMS.NTEQUL", {"EQUIL", "RSVD"}, "EQLNUM THPRES")},
        {"EQLDIMS: too few rows against depth", TooSmall("EQLDIMS.NDRXVD", {"RSVD/", "RVVD/"})},
        {"FAULTDIM: too few faces", TooSmall("FAULTDIM", {"FAULTS.FAULT"})},
        {"AQUDIMS: too few aquifers", TooSmall("AQUDIMS.NANAQU", {"AQUANCON.AQUIFER"})},
        {"AQUDIMS: too few connections", TooSmall("AQUDIMS.NCAMAX", {"AQUANCON"})},
        {"VFPPDIMS: too few rates", TooSmall("VFPPDIMS.NFLO", {"VFPPROD.FLO +array"})},
        {"VFPPDIMS: too few pressures", TooSmall("VFPPDIMS.NTHP", {"VFPPROD.THP +array"})},
        {"VFPPDIMS: too few water fractions", TooSmall("VFPPDIMS.NWFR", {"VFPPROD.WFR +array"})},
        {"COMPS: too few components",
            TooSmall("COMPS.NCOMPS", {"CNAMES"}, "TCRIT PCRIT VCRIT ACF MW CVTYPE")},
        {"DIMENS: too few layers",
            TooSmall("DIMENS.NZ", {"COMPDAT.K2"}, "ZCORN DX PORO ACTNUM DZ DZV TOPS EQUALS")},
        {"WSEGDIMS: too few segments", TooSmall("WSEGDIMS.NSEGMX", {"WELSEGS.LAST"})},
        {"TRACERS: too few tracers", TooSmall("TRACERS.NWTRAC", {"TRACER.TRACER"})},
    };
    kinds.insert(kinds.end(), added.begin(), added.end());
}

} // namespace Veld::Quor::Trust

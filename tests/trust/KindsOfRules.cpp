#include "tests/trust/Rules.h"
#include "tests/trust/ValueKinds.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

// Kinds that the documents of rules say: what they know of is a mistake when it is otherwise.

namespace Veld::Quor::Trust {

using namespace Core::Decks;

namespace {

/// The most that one owner has of what a size limits: different ones, or as many as a range has.
std::size_t MostMembers(const SampleDeck& deck, const Rule& rule)
{
    const std::vector<std::string> items = rule.GetWords("items");
    const std::string last = rule.Get("last");
    std::map<std::string, std::set<std::string>> members;
    const std::string where = WhereOf(rule, items.empty() ? rule.Get("of") : items.back());
    for (const Value* value : FindValues(deck, Where(where + " " + ConditionOf(rule)))) {
        std::string member =
            items.empty() ? std::to_string(value->keyword) + "/" + std::to_string(value->path.front()) : "";
        for (const std::string& item : items)
            member += TextOf(FindSibling(deck, *value, item)) + " ";
        std::set<std::string>& all = members[TextOf(FindSibling(deck, *value, rule.Get("of")))];
        const std::string end = last.empty() ? "" : TextOf(FindSibling(deck, *value, last));
        for (int i = end.empty() ? 0 : std::stoi(value->text); i <= (end.empty() ? 0 : std::stoi(end)); ++i)
            all.insert(member + std::to_string(i));
    }
    std::size_t most = 0;
    for (const auto& [owner, all] : members)
        most = owner.find('*') == std::string::npos ? std::max(most, all.size()) : most;
    return most;
}

/// The length of the longest list: of an item, or of the tables of a keyword.
std::size_t MostElements(const SampleDeck& deck, const Rule& rule)
{
    std::size_t most = 0;
    const bool isOfItem = !rule.Get("item").empty();
    for (const Value* value :
        FindValues(deck, Where(WhereOf(rule, rule.Get("item")) + (isOfItem ? "+array" : "")))) {
        if (value->path.size() > 1)
            most = std::max(most, value->path[isOfItem ? value->path.size() - 1 : 1] + 1);
    }
    return most;
}

/// Different names that something defines.
std::size_t NamesOf(const SampleDeck& deck, const Rule& names)
{
    std::set<std::string> found;
    for (const Rule& use : names.GetChildren()) {
        if (use.tag != "define" || use.Get("uncounted") == "true")
            continue;
        for (const Value* value : FindValues(deck, Where(ItemsOf(use))))
            found.insert(value->text);
    }
    for (const std::string& always : names.GetWords("always"))
        found.erase(always);
    return found.size();
}

/// Makes a size of RUNSPEC one less than what is there. What is counted is a place for the finding too.
MakeMistake TooSmall(
    const Rule& rule, const std::function<std::size_t(const SampleDeck&)>& count, const std::string& counted)
{
    const Where size(rule.Get("keyword") + "." + rule.Get("size") + " @RUNSPEC");
    return [=](const SampleDeck& deck, Random&) -> std::optional<Mistake> {
        const std::vector<const Value*> sizes = FindValues(deck, size);
        const std::size_t most = count(deck);
        if (sizes.empty() || most < 2)
            return std::nullopt;
        return Mistake{{{sizes.front()->range, std::to_string(most - 1)}}, RangesOf(deck, counted)};
    };
}

/// A number above a size of the deck.
Rewrite Beyond(const std::string& size)
{
    return [size](const SampleDeck& deck, const Value& value, Random& random) {
        const std::size_t limit = FindSibling(deck, value, "LGR") ? 0 : deck.GetSize(size);
        return limit == 0 || value.text == "0" ? std::string() : std::to_string(limit + 1 + random.Below(5));
    };
}

/// A keyword gives a number of a region to cells.
Rewrite RegionOf(const Rule& assign, const Rule& region)
{
    return [=](const SampleDeck& deck, const Value& value, Random& random) {
        const std::vector<std::string> arrays = region.GetWords("arrays");
        const std::string array = TextOf(FindSibling(deck, value, assign.Get("array")));
        return std::find(arrays.begin(), arrays.end(), array) == arrays.end()
            ? std::string()
            : Beyond(region.Get("size"))(deck, value, random);
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

/// Leaves out what a record requires.
MakeMistake WithoutRequired(const Rule& rule)
{
    const std::string item = rule.Get("when").substr(0, rule.Get("when").find('='));
    return [=, where = Where(WhereOf(rule, item) + ConditionOf(rule))](
               const SampleDeck& deck, Random& random) -> std::optional<Mistake> {
        std::vector<const Value*> values = FindValues(deck, where);
        std::erase_if(values, [&](const Value* value) {
            const std::string state = TextOf(FindSibling(deck, *value, "STATUS"));
            return value->text == "0" || state == "SHUT" || state == "STOP";
        });
        const Value* value = ChooseValue(deck, values, random);
        const Value* other = value ? FindSibling(deck, *value, rule.Get("items")) : nullptr;
        return other ? std::optional(Mistake{{{other->range, "1*"}}, PlacesOf(deck, *value, "record")})
                     : std::nullopt;
    };
}

/// A number that is plausible in no system of units.
std::string Implausible(const SampleDeck&, const Value& value, Random& random)
{
    const double number = std::stod(value.text);
    return number == 0 ? std::string() : fmt::format("{:.6g}", number * (random.Below(2) == 0 ? 1e9 : 5e9));
}

void AddNames(const Rule& rule, std::vector<Kind>& kinds)
{
    const std::string kind = rule.Get("kind");
    std::string definitions;
    std::string references;
    std::string except; // keywords that define names are not meant
    std::map<std::string, std::string> uses; // by the name of the kind
    for (const Rule& use : rule.GetChildren()) {
        const std::string what = use.Get("when").empty() ? kind : kind + ", if " + use.Get("when");
        const bool isOutput = use.Get("sections") == "SUMMARY";
        const std::string where = ItemsOf(use) + " ";
        (use.tag == "define" ? definitions : references) += use.Get("entity").empty() ? where : "";
        if (use.tag == "refer")
            uses[(isOutput
                         ? std::string(use.Get("entity").empty() ? "output" : "vector") + " of an undefined "
                         : "undefined ")
                + what] += where + ConditionOf(use)
                + (isOutput                        ? " @SUMMARY "
                        : use.Get("first").empty() ? " "
                                                   : " +head ");
        for (const std::string& keyword : use.GetWords("keywords"))
            except += use.tag == "define" ? " -" + keyword : "";
    }
    for (const auto& [name, where] : uses)
        kinds.push_back({name,
            OnValue(where.find("*.") == std::string::npos ? where : where + except, Undefined, "uses")});
    if (rule.Get("arrays") == "true" || rule.Get("vectors") == "true" || definitions.empty())
        return;
    kinds.push_back({"misspelt " + kind + " where it is defined",
        OnValue(definitions, UndefinedName(definitions, references + except), "uses")});
    kinds.push_back({"missing definition of a " + kind, RemoveDefinition(definitions, references + except)});
}

/// Numbers that none of the records that define has.
void AddMatch(const Rule& rule, std::vector<Kind>& kinds)
{
    for (const Rule& use : rule.GetChildren()) {
        const std::vector<std::string> items = use.GetWords("items");
        if (use.tag == "refer")
            kinds.push_back({"undefined " + rule.Get("what") + " in " + use.Get("keywords"),
                OnValue(WhereOf(use, items.back()), Undefined, "record")});
    }
}

void AddSizes(const Rule& rule, const std::vector<Rule>& rules, std::vector<Kind>& kinds)
{
    const std::string name = rule.Get("keyword") + ": too few " + rule.Get("kind") + rule.Get("what")
        + (rule.Get("item").empty() ? "" : " of " + rule.Get("item"));
    if (rule.tag == "members")
        kinds.push_back({name,
            TooSmall(
                rule, [rule](const SampleDeck& deck) { return MostMembers(deck, rule); },
                rule.Get("keywords"))});
    else if (rule.tag == "length")
        kinds.push_back({name,
            TooSmall(
                rule, [rule](const SampleDeck& deck) { return MostElements(deck, rule); },
                rule.Get("keywords"))});
    for (const Rule& names : rules) {
        if (rule.tag != "count" || names.tag != "names" || names.Get("kind") != rule.Get("kind"))
            continue;
        std::string definers;
        for (const Rule& use : names.GetChildren())
            definers += use.tag == "define" ? use.Get("keywords") + " " : "";
        if (!definers.empty())
            kinds.push_back({name,
                TooSmall(
                    rule, [names](const SampleDeck& deck) { return NamesOf(deck, names); }, definers)});
    }
}

void AddNumbers(const Rule& rule, const std::vector<Rule>& rules, std::vector<Kind>& kinds)
{
    const std::string where = ItemsOf(rule);
    const std::string size = rule.Get("size");
    if (rule.tag == "index") {
        kinds.push_back({"number beyond " + size + (rule.Get("entity").empty() ? "" : " in output"),
            OnValue(where + " +integer", Beyond(size))});
        if (!rule.Get("grid").empty())
            kinds.push_back({"number beyond " + size + " of a local grid",
                OnValue(where + " +integer -WELSPECL ?" + rule.Get("grid"), Constant("55"))});
    } else if (rule.tag == "order") {
        const std::vector<std::string> items = rule.GetWords("items");
        kinds.push_back({"first number above the last: " + items.front(),
            Exchange(WhereOf(rule, items.front()) + " @SCHEDULE @GRID @EDIT @REGIONS @PROPS @SOLUTION",
                items.back())});
    } else if (rule.tag == "region") {
        kinds.push_back({"cell of a region beyond " + size, OnValue(rule.Get("arrays"), Beyond(size))});
        for (const Rule& assign : rules) {
            if (assign.tag == "assign")
                kinds.push_back({"box of cells of a region beyond " + size,
                    OnValue(WhereOf(assign, assign.Get("value")), RegionOf(assign, rule))});
        }
    }
}

void AddRecords(const Rule& rule, std::vector<Kind>& kinds)
{
    if (rule.tag == "require" && !rule.Get("items").empty())
        kinds.push_back(
            {rule.Get("keywords") + " with " + rule.Get("when") + ", without " + rule.Get("items"),
                WithoutRequired(rule)});
    else if (rule.tag == "require")
        kinds.push_back(
            {"missing " + rule.Get("present") + " with " + rule.Get("when"), RemoveRequired(rule)});
    else if (rule.tag == "distinct" && rule.Get("ofStep").empty())
        kinds.push_back(
            {"record twice in " + rule.Get("keywords"), RepeatRecord(ItemsOf(rule), Around("", " "))});
    else if (rule.tag == "distinct" && rule.Get("ofOthers").empty())
        kinds.push_back(
            {"keyword twice: " + rule.Get("keywords"), RepeatKeyword(rule.Get("keywords"), "", "")});
    else if (rule.Get("alone") == "true")
        kinds.push_back({"implausible number in " + rule.Get("keywords") + " " + rule.Get("items"),
            OnValue(
                rule.Get("items").empty() ? rule.Get("keywords") : ItemsOf(rule), Implausible, "keyword")});
}

} // namespace

void AddKindsOfRules(std::vector<Kind>& kinds)
{
    const std::vector<Rule> rules = ReadRules();
    for (const Rule& rule : rules) {
        if (rule.tag == "names")
            AddNames(rule, kinds);
        else if (rule.tag == "match")
            AddMatch(rule, kinds);
        AddSizes(rule, rules, kinds);
        AddNumbers(rule, rules, kinds);
        AddRecords(rule, kinds);
    }
}

} // namespace Veld::Quor::Trust

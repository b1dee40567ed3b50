#include "quor/deck/internal/rules/RuleForms.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/rules/RoleForms.h"
#include "quor/deck/internal/rules/RuleParts.h"
#include "quor/deck/internal/rules/SizeForms.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

template <class T>
void Add(std::vector<T> more, std::vector<T>& values)
{
    values.insert(values.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

NameRule::Use ReadUse(RuleElement& element, const FindingVoice& around, RuleSet& rules)
{
    NameRule::Use use;
    use.isDefinition = element.GetTag() == "define";
    if (!use.isDefinition && element.GetTag() != "refer")
        element.Fail("unknown element", {}, "expected <define> or <refer>");
    use.where = ReadSelection(element);
    use.mayComeFirst = element.IsFlagged("early");
    use.isUncounted = use.isDefinition && element.IsFlagged("uncounted");
    use.isFirstOnly = element.IsFlagged("first");
    use.voice = ReadVoice(element, rules);
    if (use.voice.code.empty())
        use.voice.code = around.code;
    if (!use.voice.severity)
        use.voice.severity = around.severity;
    if (use.voice.text.empty())
        use.voice.text = around.text;
    element.CheckAllAsked();
    return use;
}

/// Adds to the kind if it is there.
void ReadNames(RuleElement& element, RuleSet& rules)
{
    const std::string noun = element.Get("kind");
    auto at = std::find_if(
        rules.names.begin(), rules.names.end(), [&](const NameRule& rule) { return rule.noun == noun; });
    if (at == rules.names.end()) {
        rules.names.emplace_back();
        at = rules.names.end() - 1;
        at->noun = noun;
    }
    NameRule& rule = *at;
    Add(element.FindWords("always"), rule.always);
    Add(element.FindWords("ignored"), rule.ignored);
    rule.areArrays = element.IsFlagged("arrays") || rule.areArrays;
    rule.areVectors = element.IsFlagged("vectors") || rule.areVectors;
    rule.hasPatterns = element.IsFlagged("patterns") || rule.hasPatterns;
    if (const std::string lists = element.Find("lists"); !lists.empty())
        rule.lists = lists;
    const FindingVoice voice = ReadVoice(element, rules);
    element.ForEachChild([&](RuleElement child) { rule.uses.push_back(ReadUse(child, voice, rules)); });
}

void ReadIndex(RuleElement& element, RuleSet& rules)
{
    rules.indices.push_back({ReadVoice(element, rules), ReadSelection(element), element.GetItem("size"),
        element.FindItem("grid"), element.FindKeywords("arrays")});
}

void ReadOrder(RuleElement& element, RuleSet& rules)
{
    rules.orders.push_back({ReadVoice(element, rules), ReadSelection(element)});
    if (rules.orders.back().where.items.size() != 2)
        element.Fail("attribute 'items' must have two names: the first and the last", "items");
}

void ReadRegion(RuleElement& element, RuleSet& rules)
{
    rules.regions.push_back({ReadVoice(element, rules), element.GetKeywords("arrays"),
        element.GetItem("size"), element.Get("what")});
}

void ReadAssign(RuleElement& element, RuleSet& rules)
{
    rules.assignments.push_back(
        {element.GetKeywords("keywords"), element.GetItem("array"), element.GetItem("value")});
}

void ReadNeed(RuleElement& element, RuleSet& rules)
{
    NeedRule rule = {ReadVoice(element, rules), element.GetKeywords("anyOf"),
        element.GetKeywords("in").front(), element.Get("what"), element.FindKeywords("when"),
        element.FindKeywords("unless"), element.FindItem("size"), 0};
    if (!rule.size.empty())
        rule.least = static_cast<long long>(element.GetNumber("least"));
    rules.needs.push_back(std::move(rule));
}

void ReadExclusive(RuleElement& element, RuleSet& rules)
{
    rules.exclusives.push_back(
        {ReadVoice(element, rules), element.GetKeywords("keywords"), element.Get("what")});
}

void ReadOnce(RuleElement& element, RuleSet& rules)
{
    rules.once.push_back({ReadVoice(element, rules), element.GetKeywords("keywords")});
}

void ReadCount(RuleElement& element, RuleSet& rules)
{
    rules.counts.push_back({ReadVoice(element, rules), ReadKind(element, "kind", rules), ReadLimit(element)});
}

void ReadMembers(RuleElement& element, RuleSet& rules)
{
    auto keywords = element.GetKeywords("keywords");
    auto when = ReadCondition(element, element.Find("when"), "when", keywords);
    rules.members.push_back({ReadVoice(element, rules), std::move(keywords), element.FindItem("of"),
        element.FindItems("items"), element.FindItem("last"), element.IsFlagged("oneOwner"),
        element.Get("what"), std::move(when), ReadLimit(element)});
}

void ReadLength(RuleElement& element, RuleSet& rules)
{
    rules.lengths.push_back({ReadVoice(element, rules), element.GetKeywords("keywords"),
        element.FindItem("item"), element.Get("what"), ReadLimit(element)});
}

void ReadDistinct(RuleElement& element, RuleSet& rules)
{
    auto keywords = element.GetKeywords("keywords");
    auto when = ReadCondition(element, element.Find("when"), "when", keywords);
    rules.distinct.push_back(
        {ReadVoice(element, rules), std::move(keywords), element.GetItems("items"), element.FindItem("last"),
            std::move(when), element.IsFlagged("ofStep"), element.IsFlagged("ofOthers")});
}

/// The uses of a kind of records.
void ReadMatch(RuleElement& element, RuleSet& rules)
{
    MatchRule rule = {element.Get("what"), element.FindWords("always"), {}};
    element.ForEachChild([&](RuleElement child) {
        if (child.GetTag() != "define" && child.GetTag() != "refer")
            child.Fail("unknown element", {}, "expected <define> or <refer>");
        rule.uses.push_back({ReadVoice(child, rules), child.GetKeywords("keywords"), child.GetItems("items"),
            child.FindItem("last"), child.FindItem("unless"), child.GetTag() == "define"});
        if (rule.uses.back().items.size() > 1 + mostMatchNumbers)
            child.Fail("too many items; expected a name and at most three numbers", "items");
        child.CheckAllAsked();
    });
    rules.matches.push_back(std::move(rule));
}

void ReadRequire(RuleElement& element, RuleSet& rules)
{
    RequireRule rule;
    rule.voice = ReadVoice(element, rules);
    rule.keywords = element.GetKeywords("keywords");
    rule.when = ReadCondition(element, element.Get("when"), "when", rule.keywords);
    rule.items = element.FindItems("items");
    rule.present = element.FindKeywords("present");
    if (!rule.present.empty())
        rule.with = element.FindKeywords("with");
    if (rule.items.empty() == rule.present.empty())
        element.Fail("a record requires 'items' or 'present', one of both");
    for (const std::string& word : element.FindWords("unless"))
        rule.unless.push_back(ReadCondition(element, word, "unless", rule.keywords));
    rules.requirements.push_back(std::move(rule));
}

void ReadTree(RuleElement& element, RuleSet& rules)
{
    rules.trees.push_back({ReadVoice(element, rules), ReadKind(element, "kind", rules),
        element.GetKeywords("keywords"), element.GetItem("child"), element.GetItem("parent"),
        element.FindKeywords("memberKeywords"), element.FindItem("member"), element.Find("what")});
}

void ReadOverwrite(RuleElement& element, RuleSet& rules)
{
    rules.overwrites.push_back(
        {ReadVoice(element, rules), ReadSections(element), element.FindKeywords("except")});
}

void ReadWhole(RuleElement& element, RuleSet& rules)
{
    Add(element.GetKeywords("keywords"), rules.whole);
}

void ReadLocal(RuleElement& element, RuleSet& rules)
{
    if (const std::string name = element.FindItem("name"); !name.empty())
        rules.namedGrids.push_back({element.GetKeywords("keywords"), name});
    Add(element.GetKeywords("keywords"), rules.localGrids);
}

void ReadOpen(RuleElement& element, RuleSet& rules)
{
    Add(element.GetKeywords("keywords"), rules.openers);
}

/// A kind of rule.
struct RuleForm {
    const char* tag;
    void (*read)(RuleElement& element, RuleSet& rules);
};

constexpr RuleForm ruleForms[] = {{"names", ReadNames}, {"match", ReadMatch}, {"index", ReadIndex},
    {"order", ReadOrder}, {"region", ReadRegion}, {"assign", ReadAssign}, {"need", ReadNeed},
    {"exclusive", ReadExclusive}, {"once", ReadOnce}, {"count", ReadCount}, {"members", ReadMembers},
    {"length", ReadLength}, {"distinct", ReadDistinct}, {"require", ReadRequire}, {"tree", ReadTree},
    {"overwrite", ReadOverwrite}, {"role", ReadRole}, {"plausible", ReadPlausible}, {"size", ReadSize},
    {"whole", ReadWhole}, {"local", ReadLocal}, {"open", ReadOpen}};

} // namespace

void ReadRule(RuleElement& element, RuleSet& rules)
{
    const std::string tag = element.GetTag();
    const auto* const form = std::find_if(
        std::begin(ruleForms), std::end(ruleForms), [&](const RuleForm& known) { return tag == known.tag; });
    if (form != std::end(ruleForms)) {
        form->read(element, rules);
        return element.CheckAllAsked();
    }
    std::vector<std::string> tags;
    for (const RuleForm& known : ruleForms)
        tags.emplace_back(known.tag);
    const auto near = FindNearest(tags, tag);
    element.Fail("unknown rule", {}, near.empty() ? "" : fmt::format("did you mean <{}>?", near.front()));
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/rules/RuleForms.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/FindingCodes.h"
#include "quor/deck/internal/rules/RoleForms.h"
#include "quor/deck/internal/rules/SizeForms.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Comments of decks may name it.
void NoteCode(const RuleElement& element, const std::string& code, RuleSet& rules)
{
    const auto isKnown = [&](const CodeInfo& info) { return info.name == code; };
    if (!code.empty() && std::none_of(Codes().begin(), Codes().end(), isKnown)
        && std::find(rules.ownCodes.begin(), rules.ownCodes.end(), code) == rules.ownCodes.end()) {
        constexpr std::size_t mostCodes = 100; // comments of decks know no more
        if (rules.ownCodes.size() == mostCodes)
            element.Fail(
                fmt::format("too many codes of documents of rules; expected at most {}", mostCodes), "code");
        rules.ownCodes.push_back(code);
    }
}

FindingVoice ReadVoice(RuleElement& element, RuleSet& rules)
{
    FindingVoice voice;
    voice.text = element.Find("text");
    voice.code = element.Find("code");
    if (voice.code.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-") != std::string::npos)
        element.Fail(fmt::format("attribute 'code' is '{}'; expected lower-case letters, digits and hyphens",
                         voice.code),
            "code");
    const std::string severity = element.Find("severity");
    for (const Severity known : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (severity == ToString(known))
            voice.severity = known;
    }
    if (!severity.empty() && !voice.severity)
        element.Fail(
            fmt::format("attribute 'severity' is '{}'; expected 'error', 'warning' or 'note'", severity),
            "severity");
    NoteCode(element, voice.code, rules);
    return voice;
}

std::vector<SectionType::Enum> ReadSections(RuleElement& element)
{
    std::vector<SectionType::Enum> sections;
    for (const std::string& word : element.FindWords("sections")) {
        bool isFound = false;
        sections.push_back(SectionType::FromString(word, &isFound));
        if (!isFound)
            element.Fail(fmt::format("unknown section '{}'", word), "sections");
    }
    return sections;
}

ItemSelection ReadSelection(RuleElement& element)
{
    ItemSelection selection;
    selection.keywords = element.FindKeywords("keywords");
    selection.except = element.FindKeywords("except");
    selection.items = element.FindItems("items");
    selection.unless = element.FindItem("unless");
    selection.sections = ReadSections(element);
    if (const std::string word = element.Find("entity"); !word.empty()) {
        bool isFound = false;
        selection.entity = SummaryEntity::FromString(word, &isFound);
        if (!isFound)
            element.Fail(fmt::format("unknown kind of output vector '{}'", word), "entity");
    }
    if (selection.keywords.empty() && selection.items.empty() && !selection.entity)
        element.Fail("no keywords and no items", {}, "expected 'keywords', 'items' or 'entity'");
    return selection;
}

template <class T>
void Add(std::vector<T> more, std::vector<T>& values)
{
    values.insert(values.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

/// Fails for a kind that no <names> has.
std::string ReadKind(RuleElement& element, const char* attribute, const RuleSet& rules)
{
    std::set<std::string> kinds;
    for (const NameRule& rule : rules.names)
        kinds.insert(rule.noun);
    std::string kind = element.Get(attribute);
    element.Check("kind of names", kind, kinds, attribute);
    return kind;
}

SizeLimit ReadLimit(RuleElement& element)
{
    const std::string item = element.GetItem("size");
    const std::string keyword = element.GetKeywords("keyword").front();
    return {item, keyword, keyword + '.' + item};
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
    rule.hasPatterns = element.IsFlagged("patterns") || rule.hasPatterns;
    if (const std::string lists = element.Find("lists"); !lists.empty())
        rule.lists = lists;
    const FindingVoice voice = ReadVoice(element, rules);
    element.ForEachChild([&](RuleElement child) { rule.uses.push_back(ReadUse(child, voice, rules)); });
}

void ReadIndex(RuleElement& element, RuleSet& rules)
{
    rules.indices.push_back({ReadVoice(element, rules), ReadSelection(element), element.GetItem("size")});
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
    rules.needs.push_back(
        {ReadVoice(element, rules), element.GetKeywords("anyOf"), element.GetKeywords("in").front(),
            element.Get("what"), element.FindKeywords("when"), element.FindKeywords("unless")});
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
    rules.members.push_back({ReadVoice(element, rules), element.GetKeywords("keywords"),
        element.FindItem("of"), element.FindItems("items"), element.FindItem("last"),
        element.IsFlagged("oneOwner"), element.Get("what"), ReadLimit(element)});
}

void ReadLength(RuleElement& element, RuleSet& rules)
{
    rules.lengths.push_back({ReadVoice(element, rules), element.GetKeywords("keywords"),
        element.FindItem("item"), element.Get("what"), ReadLimit(element)});
}

void ReadDistinct(RuleElement& element, RuleSet& rules)
{
    rules.distinct.push_back({ReadVoice(element, rules), element.GetKeywords("keywords"),
        element.GetItems("items"), element.FindItem("last")});
}

/// "ITEM" or "ITEM=WORD"
RequireRule::Condition ReadCondition(const std::string& text)
{
    const std::size_t equals = text.find('=');
    return {text.substr(0, equals), equals == std::string::npos ? "" : text.substr(equals + 1)};
}

void ReadRequire(RuleElement& element, RuleSet& rules)
{
    RequireRule rule;
    rule.voice = ReadVoice(element, rules);
    rule.keywords = element.GetKeywords("keywords");
    rule.when = ReadCondition(element.Get("when"));
    element.CheckItem(rule.when.item, "when");
    rule.items = element.FindItems("items");
    rule.present = element.FindKeywords("present");
    if (rule.items.empty() == rule.present.empty())
        element.Fail("a record requires 'items' or 'present', one of both");
    for (const std::string& word : element.FindWords("unless")) {
        rule.unless.push_back(ReadCondition(word));
        element.CheckItem(rule.unless.back().item, "unless");
    }
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

constexpr RuleForm ruleForms[] = {{"names", ReadNames}, {"index", ReadIndex}, {"order", ReadOrder},
    {"region", ReadRegion}, {"assign", ReadAssign}, {"need", ReadNeed}, {"exclusive", ReadExclusive},
    {"once", ReadOnce}, {"count", ReadCount}, {"members", ReadMembers}, {"length", ReadLength},
    {"distinct", ReadDistinct}, {"require", ReadRequire}, {"tree", ReadTree}, {"overwrite", ReadOverwrite},
    {"role", ReadRole}, {"plausible", ReadPlausible}, {"size", ReadSize}, {"whole", ReadWhole},
    {"local", ReadLocal}, {"open", ReadOpen}};

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

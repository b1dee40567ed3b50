#include "quor/lint/internal/NameRules.h"

#include "quor/lint/internal/PrecedentCycles.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

namespace Veld::Quor::Core::Lint {

namespace Decks = Core::Decks;
namespace {

constexpr std::size_t longestName = 8;
constexpr std::size_t longestAlias = 16; // which decks may write out

bool IsWildcard(std::string_view name)
{
    return name.ends_with('*');
}

std::string_view PrefixOf(std::string_view wildcard)
{
    return wildcard.substr(0, wildcard.size() - 1);
}

/// "main.xml:12"
std::string LocationText(const Definition& definition)
{
    const Decks::Location location =
        definition.reporter.GetDocument().LocationOf(definition.keyword->span.offset);
    return fmt::format("{}:{}", location.file, location.line);
}

/// A name by which a keyword is found: its own, or an alias.
struct Name {
    const std::string* text;
    Span span;
    const Definition* definition;
    Cells cells;
    bool isAlias;
};

Cells CellsOf(const Element& alias, const Definition& definition)
{
    ValidityElements own;
    for (const Element& child : alias.children)
        own.Note(child);
    if (own.IsEmpty())
        return definition.cells;
    ValidityElements ofKeyword;
    for (const Element& child : definition.keyword->children)
        ofKeyword.Note(child);
    return KeywordValidity(own.Or(ofKeyword)).cells;
}

std::vector<Name> ListNames(const std::vector<Definition>& definitions)
{
    std::vector<Name> names;
    const auto add = [&](const Element& element, const Definition& definition, const Cells& cells) {
        const Attribute* const name = element.Find("name");
        if (name && !name->value.empty())
            names.push_back(
                {&name->value, name->valueSpan, &definition, cells, &element != definition.keyword});
    };
    for (const Definition& definition : definitions) {
        add(*definition.keyword, definition, definition.cells);
        ForEachAlias(*definition.keyword,
            [&](const Element& alias) { add(alias, definition, CellsOf(alias, definition)); });
    }
    return names;
}

/// Findings begin with the keyword's own name.
std::string Subject(const Name& name)
{
    return name.isAlias ? fmt::format("name {}", Quoted(*name.text)) : "the name";
}

void CheckNameText(const Name& name)
{
    const std::string& text = *name.text;
    const Reporter& reporter = name.definition->reporter;
    const std::size_t longest = name.isAlias ? longestAlias : longestName;
    if (text.size() > longest)
        reporter.Report(Code::NameLength, name.span,
            fmt::format("{} has {} characters (expected at most {})", Subject(name), text.size(), longest));
    if (text.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string::npos)
        reporter.Report(Code::LowerCase, name.span,
            fmt::format("{} never matches because names of keywords are in upper case", Subject(name)),
            "write it in upper case");
    const std::size_t asterisk = text.find('*');
    if (asterisk < text.size() - 1)
        reporter.Report(Code::NameText, name.span,
            fmt::format("text after '*' in {} is ignored", Subject(name)),
            fmt::format("write {}", Quoted(text.substr(0, asterisk + 1))));
    if (text.find_first_of(" \t\r\n") != std::string::npos)
        reporter.Report(Code::NameText, name.span,
            fmt::format("{} contains a blank; a keyword in a deck has none", Subject(name)),
            "remove the blank");
}

/// " by keyword 'B' at x.xml:3"; without a name that is the text that is reported.
std::string ByKeyword(const Definition& other, const std::string& text)
{
    const std::string& name = other.keyword->Get("name");
    return fmt::format("{} at {}", name == text ? "" : " by keyword " + Quoted(name), LocationText(other));
}

/// Compares each name with the earlier ones of the same text.
void CheckTwice(const std::vector<Name>& names)
{
    struct Earlier {
        const Name* first;
        Cells cells;
    };
    std::unordered_map<std::string_view, Earlier> earlier;
    for (const Name& name : names) {
        const auto [at, isNew] = earlier.try_emplace(*name.text, Earlier{&name, name.cells});
        if (isNew)
            continue;
        if ((at->second.cells & name.cells).any())
            name.definition->reporter.Report(Code::DefinedTwice, name.span,
                fmt::format("{} is already defined for one of its sections{}", Subject(name),
                    ByKeyword(*at->second.first->definition, *name.text)),
                "use different sections, or remove one of them");
        at->second.cells |= name.cells;
    }
}

/// The key of a definition is its id, or its name if it has no id.
void CheckKeys(const std::vector<Definition>& definitions)
{
    std::unordered_map<std::string, const Definition*> earlier;
    for (const Definition& definition : definitions) {
        const Attribute* const id = definition.keyword->Find("id");
        const Attribute* const name = definition.keyword->Find("name");
        const Attribute* const key = id ? id : name;
        if (!key || key->value.empty())
            continue;
        const auto [at, isNew] = earlier.try_emplace(key->value, &definition);
        if (isNew)
            continue;
        const std::string other = ByKeyword(*at->second, key->value);
        if (id)
            definition.reporter.Report(Code::KeyTwice, key->valueSpan,
                fmt::format("id {} is already used{}", Quoted(key->value), other), "use a different id");
        else
            definition.reporter.Report(Code::KeyTwice, key->valueSpan,
                fmt::format("the name is already used{}; expected an id", other), "add attribute 'id'");
    }
}

/// Of two wildcards the longer one matches first, even where it isn't valid.
void CheckWildcards(const std::vector<Name>& names)
{
    std::vector<const Name*> wildcards;
    for (const Name& name : names) {
        if (IsWildcard(*name.text))
            wildcards.push_back(&name);
    }
    std::sort(wildcards.begin(), wildcards.end(),
        [](const Name* a, const Name* b) { return PrefixOf(*a->text) < PrefixOf(*b->text); });
    std::vector<const Name*> wider; // each matches all names that the next one matches
    for (const Name* const name : wildcards) {
        while (!wider.empty() && !name->text->starts_with(PrefixOf(*wider.back()->text)))
            wider.pop_back();
        const auto at = std::find_if(wider.rbegin(), wider.rend(), [&](const Name* other) {
            return *other->text != *name->text && (other->cells & name->cells).any();
        });
        if (at != wider.rend())
            name->definition->reporter.Report(Code::WildcardOverlap, name->span,
                fmt::format("wildcard {} hides part of wildcard {} at {}", Quoted(*name->text),
                    Quoted(*(*at)->text), LocationText(*(*at)->definition)),
                "use different sections or different prefixes");
        if (wider.empty() || *wider.back()->text != *name->text)
            wider.push_back(name);
    }
}

void CheckReferences(
    const Definition& definition, const char* tag, const std::function<bool(const std::string&)>& isKnown)
{
    const bool isPrecedent = tag == std::string_view("precedent");
    const Element* parent = nullptr;
    for (const Element& child : definition.keyword->children) {
        if (child.tag == (isPrecedent ? "precedents" : "scope"))
            parent = &child; // the last one counts
    }
    if (!parent)
        return;
    ForEachBelow(*parent, tag, [&](const Element& reference) {
        const Attribute* const name = reference.Find("name");
        if (name && !name->value.empty() && !isKnown(name->value))
            definition.reporter.Report(Code::UnknownKeyword, name->valueSpan,
                isPrecedent ? fmt::format("unknown precedent {}", Quoted(name->value))
                            : fmt::format("unknown end keyword {}", Quoted(name->value)),
                "correct the name, or define the keyword");
    });
}

} // namespace

void NameSet::Add(const std::string& name)
{
    if (!IsWildcard(name)) {
        names_.insert(name);
        return;
    }
    prefixes_.emplace(PrefixOf(name));
    longest_ = std::max(longest_, name.size() - 1);
}

void NameSet::AddAll(const Element& keyword)
{
    Add(keyword.Get("name"));
    ForEachAlias(keyword, [&](const Element& alias) { Add(alias.Get("name")); });
}

bool NameSet::Has(std::string_view name) const
{
    if (names_.contains(std::string(name)))
        return true;
    for (std::size_t length = 0; !prefixes_.empty() && length <= std::min(longest_, name.size()); ++length) {
        if (prefixes_.contains(std::string(name.substr(0, length))))
            return true;
    }
    return false;
}

void CheckNames(const std::vector<Definition>& definitions,
    const std::function<bool(const std::string&)>& isKnownElsewhere)
{
    NameSet known;
    for (const Definition& definition : definitions)
        known.AddAll(*definition.keyword);
    const auto isKnown = [&](const std::string& name) { return known.Has(name) || isKnownElsewhere(name); };
    const std::vector<Name> names = ListNames(definitions);
    std::for_each(names.begin(), names.end(), CheckNameText);
    CheckTwice(names);
    CheckKeys(definitions);
    CheckWildcards(names);
    for (const Definition& definition : definitions) {
        CheckReferences(definition, "precedent", isKnown);
        CheckReferences(definition, "endKeyword", isKnown);
    }
    CheckCycles(definitions);
}

} // namespace Veld::Quor::Core::Lint

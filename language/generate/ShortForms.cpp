#include "language/generate/ShortForms.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

namespace {

using Names = std::vector<std::string_view>;

const Names scalars{"real", "integer", "string", "choice", "boolean", "line"};
const Names itemAttributes{"name", "optional", "identifier", "columnConstraint"};
const Names itemChildren{"validity", "unsupportedBy", "skippableOnRead", "skippableOnWrite"};
/// The elements of a keyword that come after those of its attributes.
const Names lastOfKeyword{"isGeneric", "scope", "cell", "data"};

bool Has(const Names& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The texts between the separators, without empty ones.
std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        if (!part.empty())
            parts.push_back(part);
    }
    return parts;
}

Element ListOf(const char* tag, const char* childTag, const std::string& names)
{
    Element list = MakeElement(tag);
    for (const std::string& name : Split(names, ' '))
        list.Add(MakeElement(childTag, {{"name", name}}));
    return list;
}

/// A word of a choice: "WATER|WAT" has another word for the same, "SHUT|(CLOSED)" one that isn't offered.
Element ValueOf(const std::string& word)
{
    const std::vector<std::string> names = Split(word, '|');
    Element value = MakeElement("value", {{"string", names.front()}});
    if (names.size() == 1)
        return value;
    Element& aliases = value.Add(MakeElement("aliases"));
    for (auto name = names.begin() + 1; name != names.end(); ++name) {
        const bool isHidden = name->size() > 2 && name->front() == '(' && name->back() == ')';
        const std::string text = isHidden ? name->substr(1, name->size() - 2) : *name;
        Element& alias = aliases.Add(MakeElement("alias", {{"name", text}}));
        if (isHidden)
            alias.Add(MakeElement("isHiddenAlias"));
    }
    return value;
}

Element ValuesOf(const std::string& words)
{
    Element values = MakeElement("values");
    for (const std::string& word : Split(words, ' '))
        values.Add(ValueOf(word));
    return values;
}

Element DefaultOf(const std::string& value)
{
    if (value == "calculated" || value == "no default")
        return MakeElement("default", {{"type", value}});
    return MakeElement("default", {{"type", "specified"}, {"val", value}});
}

/// An attribute of a scalar that stands for an element. They are made in this order.
struct Part {
    const char* attribute;
    Element (*make)(const std::string& value);
};

const std::array<Part, 7> parts{{
    {"words", ValuesOf},
    {"min",
        [](const std::string& value) {
            return MakeElement("min", {{"val", value}});
        }},
    {"max",
        [](const std::string& value) {
            return MakeElement("max", {{"val", value}});
        }},
    {"default", DefaultOf},
    {"quantity",
        [](const std::string& value) {
            return MakeElement("quantity", {{"name", value}});
        }},
    {"caseSensitive", [](const std::string&) { return MakeElement("caseSensitive"); }},
    {"lengthLimit", [](const std::string& value) { return MakeElement("lengthLimit", {}, value); }},
}};

/// The text of the element, as its first child.
void ExpandText(Element& element)
{
    if (element.text.empty())
        return;
    element.children.insert(
        element.children.begin(), MakeElement("description", {}, std::exchange(element.text, {})));
}

Element ItemWith(Element scalar)
{
    Element item = MakeElement("item");
    item.place = scalar.place;
    for (const std::string_view name : itemAttributes) {
        if (scalar.Find(name))
            item.attributes.push_back({std::string(name), scalar.Take(name)});
    }
    const auto rest = std::stable_partition(scalar.children.begin(), scalar.children.end(),
        [](const Element& child) { return !Has(itemChildren, child.tag); });
    std::vector<Element> own(std::make_move_iterator(rest), std::make_move_iterator(scalar.children.end()));
    scalar.children.erase(rest, scalar.children.end());
    item.Add(std::move(scalar));
    std::move(own.begin(), own.end(), std::back_inserter(item.children));
    return item;
}

void ExpandScalar(Element& scalar, const Element& parent)
{
    ExpandText(scalar);
    for (const Part& part : parts) {
        if (scalar.Find(part.attribute))
            scalar.Add(part.make(scalar.Take(part.attribute)));
    }
    if (!scalar.Find("name"))
        return;
    if (parent.tag != "record" && parent.tag != "records")
        Fail(scalar.place,
            "<" + scalar.tag + " name=\"" + *scalar.Find("name") + "\"> is an item, and <" + parent.tag
                + "> has none; remove the name or put it into a record");
    scalar = ItemWith(std::move(scalar));
}

void ExpandKeyword(Element& keyword)
{
    std::vector<Element> made;
    if (keyword.Find("sections"))
        made.push_back(ListOf("validSections", "section", keyword.Take("sections")));
    if (keyword.Find("precedents"))
        made.push_back(ListOf("precedents", "precedent", keyword.Take("precedents")));
    const auto at = std::find_if(keyword.children.begin(), keyword.children.end(),
        [](const Element& child) { return Has(lastOfKeyword, child.tag); });
    keyword.children.insert(at, made.begin(), made.end());
}

void ExpandRecords(Element& records)
{
    Element list = MakeElement("list",
        {{"termination", "SLASH"}, {"writeStartingOnNewLine", "true"},
            {"writeTerminationOnNewLine", "true"}});
    Element& record = list.Add(MakeElement("record", {{"termination", "SLASH"}}));
    record.children = std::move(records.children);
    records = std::move(list);
}

} // namespace

void ExpandShortForm(Element& element, const Element& parent)
{
    if (element.tag == "keyword")
        ExpandKeyword(element);
    else if (element.tag == "records")
        ExpandRecords(element);
    else if (Has(scalars, element.tag))
        ExpandScalar(element, parent);
}

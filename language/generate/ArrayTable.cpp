#include "language/generate/ArrayTable.h"

#include "language/generate/TableLine.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace {

constexpr const char* columns = "name sections type range quantity default mode needs cells words | value";

struct Named {
    const char* name;
};

/// Which cells have how many values.
struct Cells {
    const char* name;
    std::vector<Attribute> attributes; // of the element <cell>
    const char* size = "NX*NY*NZ";
};

const std::vector<Named> sections{{"GRID"}, {"EDIT"}, {"PROPS"}, {"REGIONS"}, {"SOLUTION"}, {"SCHEDULE"}};
const std::vector<Named> types{{"real"}, {"integer"}};
const std::vector<Cells> cells{
    {"-", {}},
    {"matrix", {{"dualPorosityMatrixOnly", "true"}}},
    {"layers", {{"copyLayerAboveByDefault", "true"}}},
    {"components", {{"components", "true"}}, "NX*NY*NZ*NCOMPS"},
};

bool IsGiven(const Word& word)
{
    return word.text != "-";
}

Element Placed(Element element, const Word& word)
{
    element.place = word.place;
    return element;
}

/// Puts the words between commas into an attribute, with blanks between them.
void AddList(Element& element, const char* attribute, const Word& word)
{
    std::string list = word.text;
    std::replace(list.begin(), list.end(), ',', ' ');
    element.attributes.push_back({attribute, list});
}

void AddNames(Element& keyword, const Word& word)
{
    std::vector<Word> names = CommaSeparated(word);
    for (const Word& name : names) {
        if (name.text.empty() || !std::isupper(static_cast<unsigned char>(name.text.front())))
            Fail(name.place, "expected the name of a keyword, or names with commas between them");
    }
    keyword.attributes.push_back({"name", names.front().text});
    names.erase(names.begin());
    if (names.empty())
        return;
    Element& aliases = keyword.Add(MakeElement("aliases"));
    for (const Word& name : names)
        aliases.Add(MakeElement("alias", {{"name", name.text}}));
}

void AddSections(Element& keyword, const Word& word)
{
    for (const Word& section : CommaSeparated(word))
        FindByName(sections, section, "section");
    AddList(keyword, "sections", word);
}

void AddRange(Element& value, const Word& word)
{
    if (!IsGiven(word))
        return;
    const std::size_t dots = word.text.find("..");
    if (dots == std::string::npos || word.text.size() == 2)
        Fail(word.place, "expected a range such as 0..1 or 0.., or -");
    if (dots > 0)
        value.attributes.push_back({"min", word.text.substr(0, dots)});
    if (dots + 2 < word.text.size())
        value.attributes.push_back({"max", word.text.substr(dots + 2)});
}

/// The description of the array, and that of one value.
std::pair<std::string, std::string> CutWords(const Word& words)
{
    const std::string separator = " | ";
    const std::size_t at = words.text.find(separator);
    if (at == std::string::npos)
        Fail(words.place, "expected a sentence on the array and one on a value, with ' | ' between them");
    return {words.text.substr(0, at), words.text.substr(at + separator.size())};
}

Element DataOf(Element value, const char* size)
{
    // Any cell may be left out, since those that aren't active need no value.
    Element list =
        MakeElement("list", {{"size", size}, {"termination", "SLASH"}, {"itemsDefaultable", "true"}});
    list.Add(MakeElement("description", {}, "One value for each cell, in the order of the grid."));
    list.Add(std::move(value));
    Element data = MakeElement("data");
    data.Add(std::move(list));
    return data;
}

Element ReadValue(TableLine& line)
{
    const Word type = line.Next("type");
    Element value = Placed(MakeElement(FindByName(types, type, "type").name), type);
    AddRange(value, line.Next("range"));
    for (const char* attribute : {"quantity", "default"}) {
        if (const Word word = line.Next(attribute); IsGiven(word))
            value.attributes.push_back({attribute, word.text});
    }
    return value;
}

Element ReadArray(TableLine line)
{
    const Word name = line.Next("name");
    Element keyword = Placed(MakeElement("keyword"), name);
    AddNames(keyword, name);
    AddSections(keyword, line.Next("sections"));
    Element value = ReadValue(line);
    if (const Word mode = line.Next("mode"); IsGiven(mode))
        keyword.Add(Placed(MakeElement("use", {{"piece", mode.text}}), mode));
    if (const Word needs = line.Next("needs"); IsGiven(needs))
        AddList(keyword, "precedents", needs);
    const Cells& which = FindByName(cells, line.Next("cells"), "kind of cells");
    keyword.Add(MakeElement("cell", which.attributes));
    const auto [words, valueWords] = CutWords(line.Rest("words | value"));
    keyword.children.insert(keyword.children.begin(), MakeElement("description", {}, words));
    value.text = valueWords;
    keyword.Add(DataOf(std::move(value), which.size));
    return keyword;
}

} // namespace

Element ReadArrayTable(const std::string& path)
{
    Element root = MakeElement("pieces");
    ForEachLine(path, columns, [&](const TableLine& line) {
        if (line.IsHeading()) {
            const Word name = line.Heading();
            root.Add(Placed(MakeElement("piece", {{"name", name.text}}), name));
            return;
        }
        Element keyword = ReadArray(line);
        if (root.children.empty())
            Fail(keyword.place,
                "the array belongs to no group; put it below a line such as [name of a group]");
        root.children.back().Add(std::move(keyword));
    });
    return root;
}

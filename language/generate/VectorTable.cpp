#include "language/generate/VectorTable.h"

#include "language/generate/TableLine.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <string_view>

namespace {

constexpr std::size_t longestName = 8;
constexpr std::size_t familyBegins = 5; // in a name that ends with three characters of a family of regions
constexpr const char* columns = "stem phase flow function option mode entities words";

struct Category {
    const char* name;
    std::vector<std::string> values;
};

const std::array<Category, 4> categories{{
    {"phase", {"Oil", "Water", "Gas", "Liquid", "Volume"}},
    {"flow", {"Production", "Injection"}},
    {"function", {"Rate", "Total", "Historical"}},
    {"option", {"API", "Aqui", "Flow"}},
}};

/// An end of a stem that makes the name a wildcard, and the clause that describes it.
struct Ending {
    std::string_view text;
    std::string_view clause;
};

constexpr std::array<Ending, 3> endings{{
    {"<component>", "; the keyword ends with the number of the component"},
    {"<tracer>", "; the keyword ends with the name of the tracer"},
    {"<quantity>", "; the name is that of its definition"},
}};
constexpr std::string_view familyClause = "; the keyword ends with three characters that name the family";

struct Entity {
    const char* name; // in the tables; an underline at its end stands for further families of regions
    const char* prefix;
    const char* category;
    const char* words; // what stands for {}; empty: nothing can
    DataForm data;

    bool IsOfFamilies() const { return std::string_view(name).ends_with('_'); }
};

constexpr DataItem Name(const char* name, const char* description, DataItem::Role role = DataItem::Identifier)
{
    return {name, "string", 0, role, description};
}

constexpr DataItem Number(const char* name, const char* description, DataItem::Role role, int min = 1)
{
    return {name, "integer", min, role, description};
}

DataForm ListOf(const char* description, DataItem item)
{
    return {description, {item}};
}

DataForm RecordsOf(std::vector<DataItem> items)
{
    return {nullptr, std::move(items)};
}

constexpr DataItem well = Name("WELL", "Name of the well.");
constexpr DataItem localGrid = Name("LGR", "Name of the local grid.");
constexpr DataItem completionI = Number("I", "I index; all completions when left out.", DataItem::Optional);
constexpr DataItem completionJ = Number("J", "J index; all completions when left out.", DataItem::Optional);
constexpr DataItem completionK = Number("K", "K index; all completions when left out.", DataItem::Optional);
constexpr DataItem blockI = Number("I", "I index of the block.", DataItem::Identifier);
constexpr DataItem blockJ = Number("J", "J index of the block.", DataItem::Identifier);
constexpr DataItem blockK = Number("K", "K index of the block.", DataItem::Identifier);

const DataForm noData{nullptr, {}};
const DataForm groups = ListOf("The groups; all when the list is empty.", Name("", "Name of a group."));
const DataForm wells = ListOf("The wells; all when the list is empty.", Name("", "Name of a well."));
const DataForm regions =
    ListOf("The regions; all when the list is empty.", Number("", "Number of a region.", DataItem::Required));
const DataForm aquifers = ListOf(
    "The aquifers; all when the list is empty.", Number("", "Number of an aquifer.", DataItem::Required));
const DataForm regionPairs =
    RecordsOf({Number("FROM", "Number of the region that it leaves.", DataItem::Required, 0),
        Number("TO", "Number of the region that it enters.", DataItem::Required, 0)});

const std::vector<Entity> entities{
    {"General", "", "General", "", noData},
    {"F", "F", "Field", "the field", noData},
    {"G", "G", "Group", "each group", groups},
    {"W", "W", "Well", "each well", wells},
    {"C", "C", "Completion", "each completion", RecordsOf({well, completionI, completionJ, completionK})},
    {"S", "S", "Segment", "each segment",
        RecordsOf(
            {well, Number("SEGMENT", "Number of the segment; all when left out.", DataItem::Optional)})},
    {"B", "B", "Block", "each block", RecordsOf({blockI, blockJ, blockK})},
    {"R", "R", "Region", "each region", regions},
    {"R_", "R", "Region", "each region of a further family", regions},
    {"RF", "R", "Region Flow", "from one region to another", regionPairs},
    {"RF_", "R", "Region Flow", "from one region of a further family to another", regionPairs},
    {"A", "A", "Aquifer", "each aquifer", aquifers},
    {"LW", "LW", "LGR Well", "each well in a local grid",
        RecordsOf({localGrid,
            Name("WELL", "Name of the well; all of the grid when left out.", DataItem::Optional)})},
    {"LC", "LC", "LGR Completion", "each completion in a local grid",
        RecordsOf({localGrid, well, completionI, completionJ, completionK})},
    {"LB", "LB", "LGR Block", "each block of a local grid", RecordsOf({localGrid, blockI, blockJ, blockK})},
};

struct Row {
    Word stem;
    std::string_view clause; // of the wildcard; empty: the name is none
    std::vector<std::pair<const char*, std::string>> categories;
    Word mode;
    std::vector<std::pair<const Entity*, Word>> entities;
    Word words;
};

/// Collects the vectors of all rows.
class Tables {
public:
    void Add(const Row& row);
    std::vector<Vector> Take() { return std::move(vectors_); }

private:
    std::vector<Vector> vectors_;
    std::map<std::string, std::string> places_; // by name
};

void ReadStem(Word word, Row& row)
{
    std::string& stem = word.text;
    for (const Ending& ending : endings) {
        if (stem.ends_with(ending.text)) {
            row.clause = ending.clause;
            stem.resize(stem.size() - ending.text.size());
        }
    }
    const auto isPlain = [](unsigned char c) {
        return std::isupper(c) || std::isdigit(c) || c == '+' || c == '-' || c == '_';
    };
    if (stem.empty() || !std::all_of(stem.begin(), stem.end(), isPlain))
        Fail(word.place,
            "a stem has capitals, digits, +, - and _; it can end with <component>, <tracer> or <quantity>");
    row.stem = std::move(word);
}

void ReadCategory(const Category& category, const Word& word, Row& row)
{
    if (word.text == "-")
        return;
    if (std::find(category.values.begin(), category.values.end(), word.text) != category.values.end()) {
        row.categories.emplace_back(category.name, word.text);
        return;
    }
    std::string known = " -";
    for (const std::string& value : category.values)
        known += " " + value;
    FailUnknown(word, category.name, known);
}

void ReadEntities(const Word& word, Row& row)
{
    for (const Word& name : CommaSeparated(word))
        row.entities.emplace_back(&FindByName(entities, name, "entity"), name);
}

void CheckWords(const Row& row)
{
    const std::string& words = row.words.text;
    if (!std::isupper(static_cast<unsigned char>(words.front())) || words.back() != '.')
        Fail(row.words.place, "the words must be a sentence, from a capital to a full stop");
    const bool hasEntity = words.find("{}") != std::string::npos;
    for (const auto& [entity, place] : row.entities) {
        if (hasEntity && std::string_view(entity->words).empty())
            Fail(place.place,
                "nothing of entity " + std::string(entity->name) + " can stand for the {} of the words");
    }
    if (!hasEntity && row.entities.size() > 1)
        Fail(row.words.place, "the words must have {} where the entity stands, since the line has several");
}

Row ReadRow(TableLine line)
{
    Row row;
    ReadStem(line.Next("stem"), row);
    for (const Category& category : categories)
        ReadCategory(category, line.Next(category.name), row);
    row.mode = line.Next("mode");
    ReadEntities(line.Next("entities"), row);
    row.words = line.Rest("words");
    CheckWords(row);
    return row;
}

std::string NameOf(const Row& row, const Entity& entity, const Word& place)
{
    std::string name = entity.prefix + row.stem.text;
    if (entity.IsOfFamilies()) {
        if (!row.clause.empty() || name.size() > familyBegins)
            Fail(place.place,
                name + " leaves no room for a family; " + entity.name
                    + " needs a stem that is no wildcard and has at most "
                    + std::to_string(familyBegins - std::string_view(entity.prefix).size()) + " characters");
        name.resize(familyBegins, '_');
    }
    if (entity.IsOfFamilies() || !row.clause.empty())
        name += '*';
    if (name.size() > longestName)
        Fail(row.stem.place,
            "the name " + name + " has " + std::to_string(name.size())
                + " characters; shorten the stem, since a name has at most " + std::to_string(longestName));
    return name;
}

std::string DescriptionOf(const Row& row, const Entity& entity)
{
    std::string text = row.words.text;
    for (std::size_t at = 0; (at = text.find("{}", at)) != std::string::npos;)
        text.replace(at, 2, entity.words);
    text.insert(text.size() - 1, entity.IsOfFamilies() ? familyClause : row.clause);
    return text;
}

void Tables::Add(const Row& row)
{
    for (const auto& [entity, place] : row.entities) {
        Vector vector{NameOf(row, *entity, place), DescriptionOf(row, *entity), row.categories, row.mode,
            &entity->data};
        vector.categories.insert(vector.categories.begin(), {"entity", entity->category});
        const auto [first, isNew] = places_.emplace(vector.name, place.place.Text());
        if (!isNew)
            Fail(place.place, vector.name + " is made twice, first at " + first->second + "; remove one");
        vectors_.push_back(std::move(vector));
    }
}

} // namespace

std::vector<Vector> ReadVectorTables(const std::vector<std::string>& paths)
{
    Tables tables;
    for (const std::string& path : paths)
        ForEachLine(path, columns, [&](const TableLine& line) { tables.Add(ReadRow(line)); });
    return tables.Take();
}

#include "tools/quor/tree/TreeText.h"

#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/ModeWords.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Words = std::vector<std::string>;

std::string Join(const Words& words, const char* separator = ", ")
{
    return fmt::format("{}", fmt::join(words, separator));
}

std::string ToText(const Value& value, MDType::Enum type)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "YES" : "NO";
    if (const auto* integer = std::get_if<int>(&value))
        return fmt::format("{}", *integer);
    if (const auto* real = std::get_if<double>(&value))
        return fmt::format("{}", *real);
    if (const auto* text = std::get_if<std::string>(&value))
        return type == MDType::Choice ? *text : fmt::format("'{}'", *text);
    return "an unknown choice";
}

std::string ToText(const Default& value, MDType::Enum type)
{
    switch (value.type) {
    case Default::Type::None:
        return "none";
    case Default::Type::Calculated:
        return "calculated";
    case Default::Type::Specified:
        break;
    }
    return ToText(value.value, type);
}

std::string PluralOf(const Node& node)
{
    if (!node.list)
        return std::string(TypeWord(node.type)) + 's';
    return node.children.empty() ? "lists" : "lists of " + PluralOf(node.children.front());
}

/// "list of reals" and the like.
std::string ShapeText(const Node& node)
{
    if (node.list && !node.children.empty())
        return "list of " + PluralOf(node.children.front());
    if (node.type == MDType::Raw)
        return "raw text";
    return node.type == MDType::Map ? "map of integers" : TypeWord(node.type);
}

struct DefaultTexts {
    std::string main; ///< of all simulators of the keyword alike, or of the keyword as a whole
    std::string others; ///< of the simulators that differ; empty if there are none
};

DefaultTexts ToTexts(const Defaults& defaults, MDType::Enum type)
{
    std::vector<SimulatorDefault> own;
    for (const SimulatorDefault& row : defaults.simulators) {
        if (row.isOfKeyword)
            own.push_back(row);
    }
    const bool isOne = !own.empty()
        && std::all_of(own.begin(), own.end(),
            [&own](const SimulatorDefault& row) { return row.value == own.front().value; });
    const Default& main = isOne ? own.front().value : defaults.keyword;
    Words others;
    for (const SimulatorDefault& row : own) {
        if (!(row.value == main))
            others.push_back(
                fmt::format("{} {}", SimulatorType::ToString(row.simulator), ToText(row.value, type)));
    }
    return {ToText(main, type), Join(others)};
}

std::string LimitsText(const ScalarValue& scalar, MDType::Enum type)
{
    if (scalar.string)
        return fmt::format("<= {} chars", scalar.string->greatestLength);
    if (scalar.min && scalar.max)
        return fmt::format("{} to {}", ToText(*scalar.min, type), ToText(*scalar.max, type));
    if (scalar.min)
        return ">= " + ToText(*scalar.min, type);
    return scalar.max ? "<= " + ToText(*scalar.max, type) : "";
}

std::string AliasesText(const Choice& choice, bool areHidden, const char* label)
{
    Words names;
    for (const auto& [name, isHidden] : choice.aliases) {
        if (isHidden == areHidden)
            names.push_back(name);
    }
    return names.empty() ? "" : label + Join(names);
}

std::string ChoicesText(const ScalarValue& scalar, const ModeTable& keyword)
{
    Words texts;
    for (const Choice& choice : scalar.choices) {
        Words notes;
        for (std::string note :
            {AliasesText(choice, false, "alias "), AliasesText(choice, true, "hidden alias "),
                RestrictionsText(choice.valid, choice.unsupported, keyword)}) {
            if (!note.empty())
                notes.push_back(std::move(note));
        }
        const std::string text =
            choice.text.find_first_not_of(' ') == std::string::npos ? "(blank)" : choice.text;
        texts.push_back(notes.empty() ? text : fmt::format("{} ({})", text, Join(notes, "; ")));
    }
    return Join(texts);
}

std::string EndText(const Node& node)
{
    using Termination = IKeywordDataMD::TerminationType;
    switch (node.ending->type) {
    case Termination::NONE:
        if (node.type == MDType::Record)
            return "ends with its last item";
        return node.list && node.list->size ? "ends by its size" : "has no end mark";
    case Termination::SLASH:
        return "ends with a slash";
    case Termination::EOL:
        return "ends with the line";
    case Termination::CUSTOMIZED:
        break;
    }
    if (!node.ending->words.empty())
        return "ends with " + Join(node.ending->words, " or ");
    return node.ending->hasOwnWords ? "ends with a word of its own" : "ends as its reader knows";
}

/// What is to be said of a record, list, map or raw text beside its content.
Words FactsOf(const Node& node)
{
    Words facts;
    if (const auto& list = node.list) {
        if (list->size)
            facts.push_back("size " + *list->size);
        if (list->minSize)
            facts.push_back("at least " + *list->minSize);
        if (list->maxSize)
            facts.push_back("at most " + *list->maxSize);
    }
    if (node.ending)
        facts.push_back(EndText(node));
    if (node.list && node.list->mayBeDefaulted)
        facts.push_back("elements may be defaulted");
    if (node.list && node.list->repeatsPrevious)
        facts.push_back("empty elements repeat the one before");
    if (node.rawEnd)
        facts.push_back(node.rawEnd->empty() ? "has no end mark" : "ends with " + *node.rawEnd);
    return facts;
}

/// What the type of a scalar brings with it.
Words MarksOf(const ScalarValue& scalar)
{
    Words marks;
    if (const auto& rules = scalar.string) {
        if (rules->isCaseSensitive)
            marks.push_back("case-sensitive");
        if (rules->mayHoldComma)
            marks.push_back("may contain comma");
    }
    return marks;
}

const char* ColumnText(IKeywordDataMD::ColumnConstraintType::Enum constraint)
{
    using Constraint = IKeywordDataMD::ColumnConstraintType;
    switch (constraint) {
    case Constraint::StrictlyIncreasing:
        return "strictly increasing";
    case Constraint::StrictlyDecreasing:
        return "strictly decreasing";
    case Constraint::Increasing:
        return "increasing";
    case Constraint::Decreasing:
        return "decreasing";
    case Constraint::None:
        break;
    }
    return nullptr;
}

Words MarksOf(const Location& location)
{
    Words marks;
    if (location.isIdentifier)
        marks.push_back("identifier");
    if (location.isOptional)
        marks.push_back("optional");
    if (const char* column = ColumnText(location.column))
        marks.push_back(column);
    if (location.isSkippableOnRead && location.isSkippableOnWrite)
        marks.push_back("skippable");
    else if (location.isSkippableOnRead)
        marks.push_back("skippable on read");
    else if (location.isSkippableOnWrite)
        marks.push_back("skippable on write");
    return marks;
}

void Append(Words& words, Words&& more)
{
    words.insert(words.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

/// Of a list the item, if that is a scalar, and of a scalar itself: what one line can tell along with `node`.
const Node* FindScalarNode(const Node& node)
{
    if (node.list && !node.children.empty() && node.children.front().scalar)
        return &node.children.front();
    return node.scalar ? &node : nullptr;
}

class TreePrinter {
public:
    TreePrinter(const KeywordTree& tree, std::size_t width)
        : keyword_(IsNone(tree.valid) ? AllModes() : tree.valid) // else nothing could be said of items
        , width_(width)
    {
    }

    /// A node that has no row in a table: a line of its own, and what is in it below.
    std::string Print(const Node& node, const std::string& head, std::size_t indent) const;

private:
    std::string PrintContent(const Node& node, std::size_t indent) const;
    std::string PrintItems(const Node& record, std::size_t indent) const;
    std::string PrintItemContent(const Node& item, std::size_t indent) const;
    std::string PrintScalarDetails(const Node& node, std::size_t indent) const;
    std::string PrintAssignments(const Node& map, std::size_t indent) const;
    Columns::Row ItemRow(const Node& item, std::size_t numberWidth) const;
    Columns::Row AssignmentRow(const Node& assignment) const;

    /// Nothing for an empty text.
    std::string Detail(const char* label, const std::string& text, std::size_t indent) const
    {
        return text.empty() ? "" : Wrap(std::string(indent, ' ') + label, text, indent + 2, width_);
    }

    ModeTable keyword_;
    std::size_t width_;
};

std::string TreePrinter::Print(const Node& node, const std::string& head, std::size_t indent) const
{
    Words facts = {ShapeText(node)};
    Append(facts, FactsOf(node));
    if (node.scalar) {
        if (node.scalar->measurement)
            facts.push_back(*node.scalar->measurement);
        facts.push_back("default " + ToTexts(node.scalar->defaults, node.type).main);
        if (const std::string limits = LimitsText(*node.scalar, node.type); !limits.empty())
            facts.push_back(limits);
        Append(facts, MarksOf(*node.scalar));
    }
    return Wrap(std::string(indent, ' ') + head, Join(facts), indent + 4, width_)
        + Detail("", node.description, indent + 2) + PrintScalarDetails(node, indent + 2)
        + PrintContent(node, indent + 2);
}

std::string TreePrinter::PrintContent(const Node& node, std::size_t indent) const
{
    if (node.type == MDType::Record)
        return PrintItems(node, indent);
    if (node.type == MDType::Map)
        return PrintAssignments(node, indent);
    std::string text;
    for (const Node& child : node.children)
        text += Print(child, "each: ", indent);
    return text;
}

std::string TreePrinter::PrintItems(const Node& record, std::size_t indent) const
{
    if (record.children.empty())
        return std::string(indent, ' ') + "no items\n";
    constexpr std::size_t nameColumn = 1;
    const std::size_t numberWidth = fmt::format("{}", record.children.size()).size();
    Columns columns({std::string(numberWidth - 1, ' ') + '#', "item", "type", "measurement", "default",
        "limits", "marks"});
    for (const Node& item : record.children)
        columns.Add(ItemRow(item, numberWidth));
    std::string text = columns.GetHead(indent);
    for (std::size_t i = 0; i < record.children.size(); ++i) {
        text += columns.GetRow(i, indent, width_);
        text += PrintItemContent(record.children[i], indent + columns.GetOffset(nameColumn) + 2);
    }
    return text;
}

Columns::Row TreePrinter::ItemRow(const Node& item, std::size_t numberWidth) const
{
    Words marks = MarksOf(*item.location);
    Append(marks, FactsOf(item));
    Columns::Row row = {
        fmt::format("{:>{}}", item.number, numberWidth), item.name, ShapeText(item), "", "", ""};
    if (const Node* node = FindScalarNode(item)) {
        const ScalarValue& scalar = *node->scalar;
        row[3] = scalar.measurement.value_or("");
        row[4] = ToTexts(scalar.defaults, node->type).main;
        row[5] = LimitsText(scalar, node->type);
        Append(marks, MarksOf(scalar));
    }
    row.push_back(Join(marks));
    return row;
}

/// What stands below the row of an item.
std::string TreePrinter::PrintItemContent(const Node& item, std::size_t indent) const
{
    std::string text = Detail("", item.description, indent);
    const Node* const scalar = FindScalarNode(item);
    if (scalar && scalar != &item)
        text += Detail("each: ", scalar->description, indent);
    if (scalar)
        text += PrintScalarDetails(*scalar, indent);
    text += Detail("", RestrictionsText(item.location->valid, item.location->unsupported, keyword_), indent);
    return scalar ? text : text + PrintContent(item, indent);
}

std::string TreePrinter::PrintScalarDetails(const Node& node, std::size_t indent) const
{
    if (!node.scalar)
        return "";
    return Detail("choices: ", ChoicesText(*node.scalar, keyword_), indent)
        + Detail("default by simulator: ", ToTexts(node.scalar->defaults, node.type).others, indent);
}

std::string TreePrinter::PrintAssignments(const Node& map, std::size_t indent) const
{
    if (map.children.empty())
        return std::string(indent, ' ') + "no keys\n";
    Columns columns({"key", "default", "limits", "marks", "description"});
    for (const Node& assignment : map.children)
        columns.Add(AssignmentRow(assignment));
    std::string text = columns.GetHead(indent);
    for (std::size_t i = 0; i < map.children.size(); ++i) {
        text += columns.GetRow(i, indent, width_);
        text += PrintScalarDetails(map.children[i], indent + 2);
    }
    return text;
}

Columns::Row TreePrinter::AssignmentRow(const Node& assignment) const
{
    const KeyRules& key = *assignment.key;
    const ScalarValue& scalar = *assignment.scalar;
    Words marks;
    if (key.isWildcard)
        marks.push_back("wildcard");
    if (std::string valid = ValidText(key.valid, keyword_); !valid.empty())
        marks.push_back(std::move(valid));
    return {Join(key.keys), ToTexts(scalar.defaults, assignment.type).main,
        LimitsText(scalar, assignment.type), Join(marks), assignment.description};
}

} // namespace

std::string TreeText(const KeywordTree& tree, std::size_t width)
{
    constexpr std::size_t indent = 2;
    if (!tree.data)
        return std::string(indent, ' ') + "data: none\n";
    return TreePrinter(tree, width).Print(*tree.data, "data: ", indent);
}

} // namespace Veld::Quor::Tools

#include "tools/quor/tree/TreeText.h"

#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/ModeWords.h"
#include "tools/quor/tree/NodeTexts.h"
#include "tools/quor/tree/ScalarTexts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <fmt/format.h>

#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Words = std::vector<std::string>;

void Append(Words& words, Words&& more)
{
    words.insert(words.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

class TreePrinter {
public:
    TreePrinter(const IKeywordSyntax& syntax, std::size_t width, std::optional<UnitSystem::Enum> units)
        : syntax_(syntax)
        , keyword_(ModesOf(syntax))
        , width_(width)
        , units_(units)
    {
    }

    /// A node that has no row in a table: a line of its own, and what is in it below.
    std::string Print(const IKeywordDataMD& md, const std::string& head, std::size_t indent) const;

private:
    std::string PrintContent(const IKeywordDataMD& md, std::size_t indent) const;
    std::string PrintItems(const IKeywordRecordMD& record, std::size_t indent) const;
    std::string PrintItemContent(
        const IKeywordRecordMD& record, int index, const ScalarTexts& texts, std::size_t indent) const;
    std::string PrintDetails(const ScalarTexts& texts, std::size_t indent) const;
    std::string PrintAssignments(const IKeywordMapMD& map, std::size_t indent) const;
    Columns::Row ItemRow(
        const IKeywordRecordMD& record, int index, const ScalarTexts& texts, std::size_t numberWidth) const;
    Columns::Row AssignmentRow(const IKeywordAssignmentMD& assignment, const ScalarTexts& texts) const;

    /// Of a list of scalars, those of its items; empty ones for other containers.
    ScalarTexts TextsIn(const IKeywordDataMD& md) const
    {
        const IKeywordDataMD* const scalar = FindScalar(md);
        return scalar ? TextsOf(*scalar, keyword_, units_) : ScalarTexts();
    }

    const std::string& MeasureText(const ScalarTexts& texts) const
    {
        return units_ ? texts.unit : texts.measurement;
    }

    /// Nothing for an empty text.
    std::string Detail(const char* label, const std::string& text, std::size_t indent) const
    {
        return text.empty() ? "" : Wrap(std::string(indent, ' ') + label, text, indent + 2, width_);
    }

    const IKeywordSyntax& syntax_;
    ModeTable keyword_; // where the keyword is valid
    std::size_t width_;
    std::optional<UnitSystem::Enum> units_; // in which units are printed, in place of measurements
};

std::string TreePrinter::Print(const IKeywordDataMD& md, const std::string& head, std::size_t indent) const
{
    Words facts = {ShapeText(md)};
    Append(facts, FactsOf(md, syntax_));
    ScalarTexts texts;
    if (KeywordUtils::IsItemMDType(&md)) {
        texts = TextsOf(md, keyword_, units_);
        if (!MeasureText(texts).empty())
            facts.push_back(MeasureText(texts));
        facts.push_back("default " + texts.defaultText);
        if (!texts.limits.empty())
            facts.push_back(texts.limits);
        Append(facts, Words(texts.marks));
    }
    return Wrap(std::string(indent, ' ') + head, Join(facts), indent + 4, width_)
        + Detail("", md.GetDescription(), indent + 2) + PrintDetails(texts, indent + 2)
        + PrintContent(md, indent + 2);
}

std::string TreePrinter::PrintContent(const IKeywordDataMD& md, std::size_t indent) const
{
    return VisitMD(md,
        Overloaded{[&](const IKeywordRecordMD& record) { return PrintItems(record, indent); },
            [&](const IKeywordMapMD& map) { return PrintAssignments(map, indent); },
            [&](const IKeywordListMD& list) {
                const IKeywordDataMD* const item = list.GetItemMD();
                return item ? Print(*item, "each: ", indent) : std::string();
            },
            [](const IKeywordDataMD&) { return std::string(); }});
}

std::string TreePrinter::PrintItems(const IKeywordRecordMD& record, std::size_t indent) const
{
    if (record.GetSize() == 0)
        return std::string(indent, ' ') + "no items\n";
    constexpr std::size_t nameColumn = 1;
    const std::size_t numberWidth = fmt::format("{}", record.GetSize()).size();
    Columns columns({std::string(numberWidth - 1, ' ') + '#', "item", "type", units_ ? "unit" : "measurement",
        "default", "limits", "marks"});
    std::vector<ScalarTexts> texts;
    for (int i = 0; i < record.GetSize(); ++i) {
        texts.push_back(TextsIn(*record.GetItemMD(i)));
        columns.Add(ItemRow(record, i, texts.back(), numberWidth));
    }
    std::string text = columns.GetHead(indent);
    for (int i = 0; i < record.GetSize(); ++i) {
        const auto row = static_cast<std::size_t>(i);
        text += columns.GetRow(row, indent, width_);
        text += PrintItemContent(record, i, texts[row], indent + columns.GetOffset(nameColumn) + 2);
    }
    return text;
}

Columns::Row TreePrinter::ItemRow(
    const IKeywordRecordMD& record, int index, const ScalarTexts& texts, std::size_t numberWidth) const
{
    const IKeywordDataMD& md = *record.GetItemMD(index);
    Words marks = MarksOf(record, index);
    Append(marks, FactsOf(md, syntax_));
    Append(marks, Words(texts.marks));
    return {fmt::format("{:>{}}", md.GetItemNumber(), numberWidth), md.GetName(), ShapeText(md),
        MeasureText(texts), texts.defaultText, texts.limits, Join(marks)};
}

/// What is below the row of an item.
std::string TreePrinter::PrintItemContent(
    const IKeywordRecordMD& record, int index, const ScalarTexts& texts, std::size_t indent) const
{
    const IKeywordDataMD& md = *record.GetItemMD(index);
    std::string text = Detail("", md.GetDescription(), indent);
    const IKeywordDataMD* const scalar = FindScalar(md);
    if (scalar && scalar != &md)
        text += Detail("each: ", scalar->GetDescription(), indent);
    text += PrintDetails(texts, indent);
    text += Detail("",
        RestrictionsText(
            ModesOf(record.GetValidity(index)), ModesOf(record.GetUnsupportedBy(index)), keyword_),
        indent);
    return scalar ? text : text + PrintContent(md, indent);
}

std::string TreePrinter::PrintDetails(const ScalarTexts& texts, std::size_t indent) const
{
    return Detail("choices: ", texts.choices, indent)
        + Detail("default by simulator: ", texts.otherDefaults, indent);
}

std::string TreePrinter::PrintAssignments(const IKeywordMapMD& map, std::size_t indent) const
{
    const int size = map.GetSize() + map.GetWildcardSize();
    if (size == 0)
        return std::string(indent, ' ') + "no keys\n";
    const auto at = [&map](int i) -> const IKeywordAssignmentMD& {
        return i < map.GetSize() ? *map.GetItemMD(i) : *map.GetWildcardItemMD(i - map.GetSize());
    };
    Columns columns({"key", "default", "limits", "marks", "description"});
    std::vector<ScalarTexts> texts;
    for (int i = 0; i < size; ++i) {
        texts.push_back(TextsOf(at(i), keyword_, units_));
        columns.Add(AssignmentRow(at(i), texts.back()));
    }
    std::string text = columns.GetHead(indent);
    for (int i = 0; i < size; ++i) {
        const auto row = static_cast<std::size_t>(i);
        text += columns.GetRow(row, indent, width_);
        text += PrintDetails(texts[row], indent + 2);
    }
    return text;
}

Columns::Row TreePrinter::AssignmentRow(
    const IKeywordAssignmentMD& assignment, const ScalarTexts& texts) const
{
    Words marks;
    if (assignment.IsWildcard())
        marks.push_back("wildcard");
    if (std::string valid = ValidText(ModesOf(assignment), keyword_); !valid.empty())
        marks.push_back(std::move(valid));
    return {Join(assignment.GetKeys()), texts.defaultText, texts.limits, Join(marks),
        assignment.GetDescription()};
}

} // namespace

std::string TreeText(const IKeywordSyntax& syntax, std::size_t width, std::optional<UnitSystem::Enum> units)
{
    constexpr std::size_t indent = 2;
    const IKeywordDataMD* const md = syntax.GetDataMD();
    if (!md)
        return std::string(indent, ' ') + "data: none\n";
    return TreePrinter(syntax, width, units).Print(*md, "data: ", indent)
        + (units ? "" : UnitsTable(syntax, indent, width));
}

} // namespace Veld::Quor::Tools

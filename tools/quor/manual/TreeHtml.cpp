#include "tools/quor/manual/TreeHtml.h"

#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/manual/Html.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/ModeWords.h"
#include "tools/quor/tree/NodeTexts.h"
#include "tools/quor/tree/ScalarTexts.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <set>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// What is said of a scalar in each system of units, METRIC first.
using TextsBySystem = std::vector<ScalarTexts>;

class TreeHtmlPrinter {
public:
    TreeHtmlPrinter(const IKeywordSyntax& syntax, const Entry& entry, const Catalog& catalog)
        : syntax_(syntax)
        , entry_(entry)
        , catalog_(catalog)
        , keyword_(ModesOf(syntax))
    {
    }

    std::string Print(const IKeywordDataMD& md, const char* head);

private:
    std::string PrintContent(const IKeywordDataMD& md);
    std::string PrintItems(const IKeywordRecordMD& record);
    std::string PrintItem(const IKeywordRecordMD& record, int index);
    std::string PrintMeaning(const IKeywordRecordMD& record, int index, const TextsBySystem& texts);
    std::string PrintAssignments(const IKeywordMapMD& map);
    std::string PrintAssignment(const IKeywordAssignmentMD& assignment);
    std::string PrintDetails(const TextsBySystem& texts) const;

    /// Of a list of scalars, those of its items; empty ones for other containers.
    TextsBySystem TextsIn(const IKeywordDataMD& md) const
    {
        const IKeywordDataMD* const scalar = FindScalar(md);
        TextsBySystem texts;
        for (const auto& system : UnitSystem::EnumInfos())
            texts.push_back(scalar ? TextsOf(*scalar, keyword_, system.value) : ScalarTexts());
        return texts;
    }
    std::string LinkedText(const char* tag, std::string_view text) const
    {
        return Element(tag, catalog_.LinkWords(entry_, text));
    }
    std::string IdOf(const std::string& item);

    const IKeywordSyntax& syntax_;
    const Entry& entry_;
    const Catalog& catalog_;
    ModeTable keyword_; // where the keyword is valid
    std::set<std::string> ids_;
};

/// A text that depends on the system of units: the page shows that of one.
std::string BySystem(const TextsBySystem& texts, std::string ScalarTexts::*member)
{
    std::string all;
    bool isOne = true;
    for (const ScalarTexts& text : texts) {
        all += (all.empty() ? "" : "|") + EscapeHtml(text.*member);
        isOne = isOne && text.*member == texts.front().*member;
    }
    const std::string first = EscapeHtml(texts.front().*member);
    return isOne ? first : fmt::format(R"(<span data-systems="{}">{}</span>)", all, first);
}

std::string UnitCell(const TextsBySystem& texts)
{
    const std::string& measurement = texts.front().measurement;
    if (measurement.empty())
        return "";
    const std::string unit = BySystem(texts, &ScalarTexts::unit);
    return fmt::format(R"(<a href="@/measurements.html#{}" title="{}">{}</a>)", Slug(measurement),
        EscapeHtml(measurement), unit.empty() ? EscapeHtml(measurement) : unit);
}

/// None on a page with the items of several keywords.
std::string TreeHtmlPrinter::IdOf(const std::string& item)
{
    if (entry_.IsVector() || entry_.syntaxes.size() > 1)
        return "";
    return ids_.insert(item).second ? fmt::format(R"( id="item-{}")", Slug(item)) : "";
}

std::string TreeHtmlPrinter::PrintDetails(const TextsBySystem& texts) const
{
    std::string details;
    if (!texts.front().choices.empty())
        details += Element("p", "<b>Choices:</b> " + EscapeHtml(texts.front().choices));
    if (!texts.front().otherDefaults.empty())
        details +=
            Element("p", "<b>Default by simulator:</b> " + BySystem(texts, &ScalarTexts::otherDefaults));
    return details;
}

std::string TreeHtmlPrinter::Print(const IKeywordDataMD& md, const char* head)
{
    std::vector<std::string> facts = {EscapeHtml(ShapeText(md))};
    for (const std::string& fact : FactsOf(md, syntax_))
        facts.push_back(catalog_.LinkWords(entry_, fact));
    TextsBySystem texts;
    if (KeywordUtils::IsItemMDType(&md)) {
        texts = TextsIn(md);
        if (const std::string unit = UnitCell(texts); !unit.empty())
            facts.push_back(unit);
        facts.push_back("default " + BySystem(texts, &ScalarTexts::defaultText));
        if (!texts.front().limits.empty())
            facts.push_back(EscapeHtml(texts.front().limits));
        for (const std::string& mark : texts.front().marks)
            facts.push_back(EscapeHtml(mark));
    }
    return "<div class=\"node\">" + Element("p", head + Join(facts)) + LinkedText("p", md.GetDescription())
        + (texts.empty() ? "" : PrintDetails(texts)) + PrintContent(md) + "</div>\n";
}

std::string TreeHtmlPrinter::PrintContent(const IKeywordDataMD& md)
{
    return VisitMD(md,
        Overloaded{[&](const IKeywordRecordMD& record) { return PrintItems(record); },
            [&](const IKeywordMapMD& map) { return PrintAssignments(map); },
            [&](const IKeywordListMD& list) {
                const IKeywordDataMD* const item = list.GetItemMD();
                return item ? Print(*item, "<b>Each:</b> ") : std::string();
            },
            [](const IKeywordDataMD&) { return std::string(); }});
}

std::string TreeHtmlPrinter::PrintItems(const IKeywordRecordMD& record)
{
    std::string rows;
    for (int i = 0; i < record.GetSize(); ++i)
        rows += PrintItem(record, i);
    if (rows.empty())
        return Element("p", "No items.");
    return "<div class=\"wide\"><table class=\"items\"><thead><tr><th scope=\"col\">#</th><th "
           "scope=\"col\">Item"
           "</th><th scope=\"col\">Type</th><th scope=\"col\">Unit</th><th scope=\"col\">Default</th><th "
           "scope=\"col\">Limits</th><th scope=\"col\">Meaning</th></tr></thead><tbody>\n"
        + rows + "</tbody></table></div>\n";
}

std::string TreeHtmlPrinter::PrintItem(const IKeywordRecordMD& record, int index)
{
    const IKeywordDataMD& md = *record.GetItemMD(index);
    const TextsBySystem texts = TextsIn(md);
    std::string row = fmt::format("<tr{}><td class=\"number\">{}</td><th scope=\"row\"><code>{}</code></th>"
                                  "<td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}</td></tr>\n",
        IdOf(md.GetName()), md.GetItemNumber(), EscapeHtml(md.GetName()), EscapeHtml(ShapeText(md)),
        UnitCell(texts), BySystem(texts, &ScalarTexts::defaultText), EscapeHtml(texts.front().limits),
        PrintMeaning(record, index, texts));
    if (!FindScalar(md)) {
        if (const std::string content = PrintContent(md); !content.empty())
            row += "<tr class=\"inner\"><td></td><td colspan=\"6\">" + content + "</td></tr>\n";
    }
    return row;
}

std::string TreeHtmlPrinter::PrintMeaning(
    const IKeywordRecordMD& record, int index, const TextsBySystem& texts)
{
    const IKeywordDataMD& md = *record.GetItemMD(index);
    std::string meaning = LinkedText("p", md.GetDescription());
    const IKeywordDataMD* const scalar = FindScalar(md);
    if (scalar && scalar != &md && !scalar->GetDescription().empty())
        meaning += Element("p", "Each: " + catalog_.LinkWords(entry_, scalar->GetDescription()));
    meaning += PrintDetails(texts);
    std::vector<std::string> marks = MarksOf(record, index);
    for (const std::string& fact : FactsOf(md, syntax_))
        marks.push_back(fact);
    for (const std::string& mark : texts.front().marks)
        marks.push_back(mark);
    const std::string restrictions = RestrictionsText(
        ModesOf(record.GetValidity(index)), ModesOf(record.GetUnsupportedBy(index)), keyword_);
    if (!restrictions.empty())
        meaning += "<p class=\"restriction\">" + EscapeHtml(restrictions) + "</p>";
    return marks.empty() ? meaning : meaning + "<p class=\"marks\">" + EscapeHtml(Join(marks)) + "</p>";
}

std::string TreeHtmlPrinter::PrintAssignments(const IKeywordMapMD& map)
{
    std::string rows;
    for (int i = 0; i < map.GetSize(); ++i)
        rows += PrintAssignment(*map.GetItemMD(i));
    for (int i = 0; i < map.GetWildcardSize(); ++i)
        rows += PrintAssignment(*map.GetWildcardItemMD(i));
    if (rows.empty())
        return Element("p", "No keys.");
    return "<div class=\"wide\"><table class=\"items\"><thead><tr><th scope=\"col\">Key</th><th "
           "scope=\"col\">"
           "Default</th><th scope=\"col\">Limits</th><th scope=\"col\">Meaning</th></tr></thead><tbody>\n"
        + rows + "</tbody></table></div>\n";
}

std::string TreeHtmlPrinter::PrintAssignment(const IKeywordAssignmentMD& assignment)
{
    const ScalarTexts texts = TextsOf(assignment, keyword_, UnitSystem::METRIC);
    const std::string keys = Join(assignment.GetKeys());
    const std::string valid = ValidText(ModesOf(assignment), keyword_);
    std::string meaning = LinkedText("p", assignment.GetDescription()) + PrintDetails({texts});
    if (!valid.empty())
        meaning += "<p class=\"restriction\">" + EscapeHtml(valid) + "</p>";
    return fmt::format(
        "<tr{}><th scope=\"row\"><code>{}</code></th><td>{}</td><td>{}</td><td>{}{}</td></tr>\n", IdOf(keys),
        EscapeHtml(keys), EscapeHtml(texts.defaultText), EscapeHtml(texts.limits), meaning,
        assignment.IsWildcard() ? "<p class=\"marks\">wildcard</p>" : "");
}

} // namespace

std::string TreeHtml(const IKeywordSyntax& syntax, const Entry& entry, const Catalog& catalog)
{
    const IKeywordDataMD* const md = syntax.GetDataMD();
    return md ? TreeHtmlPrinter(syntax, entry, catalog).Print(*md, "<b>Data:</b> ")
              : Element("p", "The keyword has no data.");
}

} // namespace Veld::Quor::Tools

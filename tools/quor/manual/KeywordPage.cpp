#include "tools/quor/manual/KeywordPage.h"

#include "tools/quor/manual/ExampleText.h"
#include "tools/quor/manual/TreeHtml.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/KeywordFacts.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"
#include "tools/quor/tree/ValidityTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

std::string Fact(const char* label, const std::string& html)
{
    return html.empty() ? html : fmt::format("<dt>{}</dt><dd>{}</dd>\n", label, html);
}

std::string LinksTo(const std::set<std::string>& names, const Catalog& catalog)
{
    std::vector<std::string> links;
    for (const std::string& name : names) {
        const Entry* const entry = catalog.Find(name);
        links.push_back(entry ? Link(entry->address, name) : EscapeHtml(name));
    }
    return Join(links);
}

std::string FactsHtml(const IKeywordSyntax& syntax, const Entry& entry, const Catalog& catalog)
{
    const std::string documentation = syntax.GetDocumentationName();
    const char* const role = FindRoleText(syntax.GetDeckRole());
    return Element("dl",
        Fact("Other names", EscapeHtml(AliasList(syntax)))
            + Fact("Documented as", documentation == entry.name ? "" : EscapeHtml(documentation))
            + Fact("Marks", EscapeHtml(Join(MarksOf(syntax)))) + Fact("In the deck", role ? role : "")
            + Fact("Comes after", LinksTo(PrecedentsOf(syntax), catalog))
            + Fact("Scope", catalog.LinkWords(entry, ScopeText(syntax)))
            + Fact("Output vector", EscapeHtml(SummaryText(syntax)))
            + Fact("Cell property", EscapeHtml(CellText(syntax))));
}

std::string UnitsHtml(const IKeywordSyntax& syntax)
{
    std::string rows;
    for (const std::string& measurement : MeasurementsOf(syntax)) {
        Columns::Row units;
        AppendUnits(measurement, units);
        rows +=
            "<tr><th scope=\"row\">" + Link("measurements.html#" + Slug(measurement), measurement) + "</th>";
        for (const std::string& unit : units)
            rows += "<td>" + EscapeHtml(unit) + "</td>";
        rows += "</tr>\n";
    }
    if (rows.empty())
        return rows;
    Columns::Row systems;
    AppendSystems(systems);
    std::string head = "<th scope=\"col\">Measurement</th>";
    for (const std::string& system : systems)
        head += "<th scope=\"col\">" + system + "</th>";
    return Heading("units", "Units") + "<div class=\"wide\"><table><thead><tr>" + head
        + "</tr></thead><tbody>\n" + rows + "</tbody></table></div>\n";
}

std::string RulesHtml(const Entry& entry, const Catalog& catalog)
{
    std::string items;
    std::set<std::string> seen;
    for (const Core::Decks::KeywordRule& rule : entry.rules) {
        if (!seen.insert(rule.text).second)
            continue;
        const bool isOfNames = rule.kind == "defines" || rule.kind == "refers-to";
        items += Element("li",
            catalog.LinkWords(entry, rule.text)
                + (isOfNames ? " ("
                            + Link("names/" + Slug(rule.what) + ".html", "all keywords with such names") + ")"
                             : ""));
    }
    return items.empty() ? items : Heading("rules", "Rules") + "<ul>\n" + items + "</ul>\n";
}

std::string ReferencesHtml(const Entry& entry, const Catalog& catalog)
{
    const std::string facts = Fact("Refers to", LinksTo(entry.refersTo, catalog))
        + Fact("Referred to by", LinksTo(entry.referredFrom, catalog));
    return facts.empty() ? facts : Heading("references", "References") + Element("dl", facts);
}

std::string RelatedHtml(const Entry& entry, const RelatedVectors& vectors)
{
    const std::vector<const Entry*> related = vectors.Find(entry);
    std::string rows;
    for (const Entry* vector : related)
        rows += "<tr><th scope=\"row\">" + Link(vector->address, vector->name) + "</th><td>"
            + EscapeHtml(vector->GetFirst().GetDescription()) + "</td></tr>\n";
    if (rows.empty())
        return rows;
    const std::string table = "<table class=\"list\"><tbody>\n" + rows + "</tbody></table>\n";
    constexpr std::size_t few = 12;
    return Heading("vectors", "Related output vectors")
        + (related.size() <= few
                ? table
                : fmt::format("<details><summary>{} vectors</summary>{}</details>\n", related.size(), table));
}

std::string SyntaxHtml(const IKeywordSyntax& syntax, const Entry& entry, const Catalog& catalog)
{
    return "<p class=\"lead\">" + catalog.LinkWords(entry, syntax.GetDescription()) + "</p>\n"
        + FactsHtml(syntax, entry, catalog) + Heading("form", "Form") + "<pre tabindex=\"0\"><code>"
        + EscapeHtml(KeywordExample(syntax))
        + "</code></pre>\n<p class=\"note\">An example made of defaults and allowed values: it shows the "
          "form.</p>\n"
        + Heading("items", "Items") + TreeHtml(syntax, entry, catalog) + UnitsHtml(syntax)
        + Heading("valid", "Where it is valid") + ValidityHtml(syntax);
}

std::string SectionLink(SectionType::Enum section)
{
    const std::string& name = SectionType::ToString(section);
    return Link("section/" + Slug(name) + ".html", name);
}

std::string CrumbsOf(const Entry& entry, const Catalog& catalog)
{
    std::vector<std::string> links;
    if (const auto sections = entry.GetFirst().GetValidSections(); !sections.empty())
        links.push_back(SectionLink(sections.front()));
    if (const Subject* const subject = catalog.FindSubject(entry))
        links.push_back(Link(subject->address, subject->title));
    return Crumbs(links, entry.name);
}

bool IsUsed(const std::vector<ValidityRow>& rows, std::size_t section)
{
    return std::any_of(
        rows.begin(), rows.end(), [&](const ValidityRow& row) { return !row.cells.at(section).empty(); });
}

std::string ValidityLine(const std::vector<ValidityRow>& rows, const ValidityRow& row)
{
    const std::string& name = SimulatorType::ToString(row.simulator);
    std::string line = "<tr><th scope=\"row\">" + Link("simulator/" + Slug(name) + ".html", name) + "</th>";
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (IsUsed(rows, i))
            line += row.cells.at(i).empty() ? "<td class=\"no\">–</td>"
                                            : "<td class=\"yes\">" + row.cells.at(i) + "</td>";
    }
    return line + "</tr>\n";
}

} // namespace

std::string ValidityHtml(const IKeywordSyntax& syntax)
{
    const std::vector<ValidityRow> rows = ValidityRows(syntax, syntax.GetName());
    if (std::all_of(rows.begin(), rows.end(), [](const ValidityRow& row) { return row.IsEmpty(); }))
        return Element("p", "Nowhere.");
    if (std::all_of(rows.begin(), rows.end(), [](const ValidityRow& row) { return row.IsFull(); }))
        return Element("p", "Everywhere: in all sections, simulators and modes.");
    std::string head = "<th scope=\"col\">Simulator</th>";
    std::string body;
    for (std::size_t i = 0; i < SectionType::Count; ++i) {
        if (IsUsed(rows, i))
            head += "<th scope=\"col\">" + SectionLink(static_cast<SectionType::Enum>(i)) + "</th>";
    }
    for (const ValidityRow& row : rows)
        body += ValidityLine(rows, row);
    return "<div class=\"wide\"><table class=\"valid\"><thead><tr>" + head + "</tr></thead><tbody>\n" + body
        + "</tbody></table></div>\n<p class=\"note\">Modes: " + ModeLegend() + ".</p>\n";
}

ManualPage KeywordPage(const Entry& entry, const Catalog& catalog, const RelatedVectors& vectors)
{
    std::string body = CrumbsOf(entry, catalog) + Element("h1", EscapeHtml(entry.name));
    for (const IKeywordSyntax* syntax : entry.syntaxes) {
        if (entry.syntaxes.size() == 1)
            body += SyntaxHtml(*syntax, entry, catalog);
        else
            body += "<section><h2>In the section " + SectionLink(syntax->GetFirstValidSection())
                + "</h2>\n<p class=\"lead\">" + catalog.LinkWords(entry, syntax->GetDescription()) + "</p>\n"
                + FactsHtml(*syntax, entry, catalog) + "<pre tabindex=\"0\"><code>"
                + EscapeHtml(KeywordExample(*syntax)) + "</code></pre>\n" + TreeHtml(*syntax, entry, catalog)
                + ValidityHtml(*syntax) + "</section>\n";
    }
    body += RulesHtml(entry, catalog) + ReferencesHtml(entry, catalog) + RelatedHtml(entry, vectors);
    return {entry.address, entry.name, body};
}

} // namespace Veld::Quor::Tools

#include "tools/quor/manual/IndexPages.h"

#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using Entries = std::vector<const Entry*>;

bool IsInSection(const Entry& entry, SectionType::Enum section)
{
    return std::any_of(entry.syntaxes.begin(), entry.syntaxes.end(), [&](const IKeywordSyntax* syntax) {
        const auto sections = syntax->GetValidSections();
        return std::find(sections.begin(), sections.end(), section) != sections.end();
    });
}

/// Those of pages of their own, and by entity how many vectors.
struct SectionContents {
    Entries entries;
    std::map<std::string, std::size_t> vectors;
};

SectionContents ContentsOf(SectionType::Enum section, const Catalog& catalog)
{
    SectionContents contents;
    for (const Entry& entry : catalog.GetEntries()) {
        if (!IsInSection(entry, section))
            continue;
        if (entry.IsVector())
            ++contents.vectors[entry.entity];
        else
            contents.entries.push_back(&entry);
    }
    return contents;
}

std::string VectorLinks(const std::map<std::string, std::size_t>& vectors)
{
    std::string items;
    for (const auto& [entity, count] : vectors)
        items += Element("li",
            Link(fmt::format("vectors/{}.html", Slug(entity)), entity + " vectors")
                + fmt::format(" ({})", count));
    return items.empty() ? items : "<ul class=\"columns\">\n" + items + "</ul>\n";
}

/// The keywords of a section by subject; those of none at the end.
ManualPage SectionPage(SectionType::Enum section, const Catalog& catalog)
{
    const std::string& name = SectionType::ToString(section);
    const SectionContents contents = ContentsOf(section, catalog);
    std::map<const Subject*, Entries> bySubject;
    for (const Entry* entry : contents.entries)
        bySubject[catalog.FindSubject(*entry)].push_back(entry);
    std::string body;
    const auto add = [&](const Subject* subject, const std::string& head) {
        const auto found = bySubject.find(subject);
        if (found != bySubject.end())
            body += Element("h2", head) + EntryTable(found->second);
    };
    for (const bool isOwn : {true, false}) {
        for (const Subject& subject : catalog.GetSubjects()) {
            if ((subject.section == name) == isOwn)
                add(&subject, Link(subject.address, subject.title));
        }
    }
    add(nullptr, "Others");
    if (!contents.vectors.empty())
        body += Heading("vectors", "Output vectors") + VectorLinks(contents.vectors);
    const Entry* const own = catalog.Find(name);
    return {fmt::format("section/{}.html", Slug(name)), "Section " + name,
        Crumbs({}, name) + Element("h1", "Section " + name)
            + (own ? "<p class=\"lead\">" + catalog.LinkWords(*own, own->GetFirst().GetDescription())
                        + "</p>\n"
                   : "")
            + body};
}

ManualPage SubjectPage(const Subject& subject)
{
    std::vector<std::string> above;
    bool isSection = false;
    SectionType::FromString(subject.section, &isSection);
    if (isSection)
        above.push_back(Link("section/" + Slug(subject.section) + ".html", subject.section));
    return {subject.address, subject.title + " (" + subject.section + ")",
        Crumbs(above, subject.title) + Element("h1", EscapeHtml(subject.title)) + "<p class=\"lead\">"
            + EscapeHtml(subject.about) + "</p>\n" + EntryTable(subject.entries)};
}

/// Output vectors, of which there are many, by entity alone.
std::string KindTable(const Entries& entries)
{
    Entries own;
    std::map<std::string, std::size_t> vectors;
    for (const Entry* entry : entries) {
        if (entry->IsVector())
            ++vectors[entry->entity];
        else
            own.push_back(entry);
    }
    return EntryTable(own) + VectorLinks(vectors);
}

ManualPage NamePage(const std::string& noun, const NameKind& kind)
{
    const std::string title = "Names: " + noun;
    return {fmt::format("names/{}.html", Slug(noun)), title,
        Crumbs({}, title) + Element("h1", EscapeHtml(title)) + Heading("define", "Keywords that define them")
            + KindTable(kind.defining) + Heading("refer", "Keywords that refer to them")
            + KindTable(kind.referring)};
}

ManualPage MeasurementPage(const Catalog& catalog)
{
    std::map<std::string, Entries> byMeasurement;
    for (const Entry& entry : catalog.GetEntries()) {
        std::set<std::string> measurements;
        for (const IKeywordSyntax* syntax : entry.syntaxes) {
            for (const std::string& measurement : MeasurementsOf(*syntax))
                measurements.insert(measurement);
        }
        for (const std::string& measurement : measurements)
            byMeasurement[measurement].push_back(&entry);
    }
    Columns::Row systems;
    AppendSystems(systems);
    std::string head;
    for (const std::string& system : systems)
        head += "<th scope=\"col\">" + system + "</th>";
    std::string rows;
    for (const auto& [measurement, entries] : byMeasurement) {
        Columns::Row units;
        AppendUnits(measurement, units);
        rows += fmt::format(
            "<tr id=\"{}\"><th scope=\"row\">{}</th>", Slug(measurement), EscapeHtml(measurement));
        for (const std::string& unit : units)
            rows += "<td>" + EscapeHtml(unit) + "</td>";
        std::string links;
        for (const Entry* entry : entries)
            links += Link(entry->address, entry->name) + ' ';
        rows += fmt::format("<td><details><summary>{}</summary>{}</details></td></tr>\n",
            Plural(entries.size(), "keyword"), links);
    }
    return {"measurements.html", "Measurements and units",
        Crumbs({}, "Measurements") + Element("h1", "Measurements and units")
            + "<div class=\"wide\"><table class=\"list\"><thead><tr><th scope=\"col\">Measurement</th>" + head
            + "<th scope=\"col\">Used by</th></tr></thead><tbody>\n" + rows + "</tbody></table></div>\n"};
}

ManualPage AllPage(const Catalog& catalog)
{
    std::map<char, std::string> byLetter;
    for (const Entry& entry : catalog.GetEntries())
        byLetter[entry.name.front()] += Link(entry.address, entry.name) + ' ';
    std::string letters;
    std::string body;
    for (const auto& [letter, links] : byLetter) {
        letters += fmt::format("<a href=\"#{0}\">{0}</a> ", letter);
        body += fmt::format("<h2 id=\"{0}\">{0}</h2>\n<p class=\"names\">{1}</p>\n", letter, links);
    }
    return {"all.html", "All keywords",
        Crumbs({}, "All keywords") + Element("h1", "All keywords") + "<p class=\"letters\">" + letters
            + "</p>\n" + body};
}

std::string FrontSections(const Catalog& catalog)
{
    std::string cards;
    for (int i = 0; i < SectionType::Count; ++i) {
        const auto section = static_cast<SectionType::Enum>(i);
        const std::string& name = SectionType::ToString(section);
        const SectionContents contents = ContentsOf(section, catalog);
        std::size_t count = contents.entries.size();
        for (const auto& [entity, vectors] : contents.vectors)
            count += vectors;
        if (count == 0)
            continue;
        std::string subjects;
        for (const Subject& subject : catalog.GetSubjects()) {
            if (subject.section == name)
                subjects += Element("li", Link(subject.address, subject.title));
        }
        cards += fmt::format("<section class=\"card\"><h3>{} <small>{}</small></h3><ul>{}</ul></section>\n",
            Link("section/" + Slug(name) + ".html", name), Plural(count, "keyword"), subjects);
    }
    return Heading("sections", "By section and subject") + "<div class=\"cards\">\n" + cards + "</div>\n";
}

ManualPage FrontPage(const Catalog& catalog)
{
    std::string simulators;
    for (const auto& simulator : SimulatorType::EnumInfos())
        simulators += Element("li", Link("simulator/" + Slug(simulator.text) + ".html", simulator.text));
    std::string names;
    for (const auto& [noun, kind] : catalog.GetNameKinds())
        names += Element("li", Link("names/" + Slug(noun) + ".html", noun));
    std::map<std::string, std::size_t> vectors;
    for (const Entry& entry : catalog.GetEntries()) {
        if (entry.IsVector())
            ++vectors[entry.entity];
    }
    const auto list = [](const char* id, const char* head, const std::string& items) {
        return items.empty() ? items : Heading(id, head) + "<ul class=\"columns\">\n" + items + "</ul>\n";
    };
    return {"index.html", "Keyword manual",
        Element("h1", "Keyword manual")
            + fmt::format(
                "<p class=\"lead\">{} keywords of reservoir simulator decks: what they are for, what they "
                "carry, where they are valid. Type a name or words into the search field, or press "
                "<kbd>/</kbd>"
                ".</p>\n<p>{} · {} · {}</p>\n",
                catalog.GetEntries().size(), Link("all.html", "All keywords"),
                Link("measurements.html", "Measurements and units"), Link("codes.html", "Finding codes"))
            + FrontSections(catalog) + list("simulators", "By simulator", simulators)
            + list("names", "By what is named", names)
            + (vectors.empty() ? "" : Heading("vectors", "Output vectors") + VectorLinks(vectors))};
}

} // namespace

std::string EntryTable(const Entries& entries)
{
    std::string rows;
    for (const Entry* entry : entries)
        rows += "<tr><th scope=\"row\">" + Link(entry->address, entry->name) + "</th><td>"
            + EscapeHtml(entry->GetFirst().GetDescription()) + "</td></tr>\n";
    return rows.empty() ? Element("p", "None.")
                        : "<table class=\"list\"><tbody>\n" + rows + "</tbody></table>\n";
}

std::vector<ManualPage> IndexPages(const Catalog& catalog)
{
    std::vector<ManualPage> pages = {FrontPage(catalog), AllPage(catalog), MeasurementPage(catalog)};
    for (int i = 0; i < SectionType::Count; ++i)
        pages.push_back(SectionPage(static_cast<SectionType::Enum>(i), catalog));
    for (const Subject& subject : catalog.GetSubjects())
        pages.push_back(SubjectPage(subject));
    for (const auto& simulator : SimulatorType::EnumInfos())
        pages.push_back(SimulatorPage(simulator.value, catalog));
    for (const auto& [noun, kind] : catalog.GetNameKinds())
        pages.push_back(NamePage(noun, kind));
    return pages;
}

} // namespace Veld::Quor::Tools

#include "quor/syntax/ISummaryMnemonicInfo.h"
#include "quor/syntax/SummaryCategories.h"
#include "tools/quor/manual/KeywordPage.h"
#include "tools/quor/manual/TreeHtml.h"
#include "tools/quor/tree/ModeTable.h"
#include "tools/quor/tree/ModeWords.h"

#include <fmt/format.h>

#include <cstddef>
#include <map>
#include <utility>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// The forms of data that the vectors of a page have, each once: HTML to number.
using Forms = std::map<std::string, std::size_t>;

std::string VectorRow(const Entry& entry, std::size_t form, const ModeTable& all, const Catalog& catalog)
{
    std::string texts;
    for (const IKeywordSyntax* syntax : entry.syntaxes)
        texts += Element("p", catalog.LinkWords(entry, syntax->GetDescription()));
    const IKeywordSyntax& syntax = entry.GetFirst();
    if (const std::string restriction = ValidText(ModesOf(syntax), all); !restriction.empty())
        texts += "<p class=\"restriction\">" + EscapeHtml(restriction) + "</p>";
    const ISummaryMnemonicInfo& info = *syntax.GetSummaryMnemonicInfo();
    const auto phase = info.GetPhase();
    const auto function = info.GetFunction();
    return fmt::format(
        "<tr id=\"{}\"><th scope=\"row\"><code>{}</code></th><td>{}</td><td>{}</td><td>{}</td><td><a "
        "href=\"#form-{}\">Form {}</a></td></tr>\n",
        Slug(entry.name), EscapeHtml(entry.name), texts, phase ? SummaryPhase::ToString(*phase) : "",
        function ? SummaryFunction::ToString(*function) : "", form, form);
}

ManualPage VectorPage(
    const std::string& entity, const std::vector<const Entry*>& entries, const Catalog& catalog)
{
    ModeTable all{};
    const IKeywordSyntax* widest = nullptr;
    for (const Entry* entry : entries) {
        const ModeTable own = ModesOf(entry->GetFirst());
        for (std::size_t i = 0; i < all.size(); ++i)
            all.at(i) = static_cast<std::uint8_t>(all.at(i) | own.at(i));
        widest = !widest || own == all ? &entry->GetFirst() : widest;
    }
    Forms forms;
    std::string rows;
    std::string formTexts;
    for (const Entry* entry : entries) {
        const std::string html = TreeHtml(entry->GetFirst(), *entry, catalog);
        const auto [form, isNew] = forms.emplace(html, forms.size() + 1);
        if (isNew)
            formTexts +=
                fmt::format("<section id=\"form-{0}\"><h3>Form {0}</h3>{1}</section>\n", form->second, html);
        rows += VectorRow(*entry, form->second, all, catalog);
    }
    const std::string title = entity + " vectors";
    return {fmt::format("vectors/{}.html", Slug(entity)), title,
        Crumbs({Link("section/SUMMARY.html", "SUMMARY")}, title) + Element("h1", title)
            + fmt::format(
                "<p class=\"lead\">The {} output vectors of this kind, which the section SUMMARY asks for."
                "</p>\n",
                entries.size())
            + "<div class=\"wide\"><table class=\"list\"><thead><tr><th scope=\"col\">Vector</th><th "
              "scope=\"col\">"
              "Meaning</th><th scope=\"col\">Phase</th><th scope=\"col\">Kind</th><th "
              "scope=\"col\">Form</th></tr>"
              "</thead><tbody>\n"
            + rows + "</tbody></table></div>\n" + Heading("forms", "Forms") + formTexts
            + Heading("valid", "Where they are valid") + "<p>Unless the row of a vector says otherwise:</p>"
            + ValidityHtml(*widest)};
}

} // namespace

std::vector<ManualPage> VectorPages(const Catalog& catalog)
{
    std::map<std::string, std::vector<const Entry*>> byEntity;
    for (const Entry& entry : catalog.GetEntries()) {
        if (entry.IsVector())
            byEntity[entry.entity].push_back(&entry);
    }
    std::vector<ManualPage> pages;
    for (const auto& [entity, entries] : byEntity)
        pages.push_back(VectorPage(entity, entries, catalog));
    return pages;
}

} // namespace Veld::Quor::Tools

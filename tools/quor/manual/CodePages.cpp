#include "tools/quor/findings/FindingCodes.h"
#include "tools/quor/manual/IndexPages.h"

#include <fmt/format.h>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

std::string Example(const char* head, const char* text)
{
    return *text == '\0'
        ? ""
        : Element("h2", head) + "<pre tabindex=\"0\"><code>" + EscapeHtml(text) + "</code></pre>\n";
}

std::string CodeSection(const FindingCode& code)
{
    const Decks::CodeInfo& info = *code.info;
    std::string html = fmt::format("<p><b class=\"{0}\">{0}</b> of <code>quor {1}</code>{2}</p>\n",
        Decks::ToString(info.severity), code.command, info.isStrict ? ", with <code>--strict</code>" : "");
    html += "<p class=\"lead\">" + EscapeHtml(info.meaning) + "</p>\n";
    html += Element("p", "<b>To fix:</b> " + EscapeHtml(info.remedy));
    if (*info.source != '\0')
        html += Element("p", "<b>Source:</b> " + EscapeHtml(info.source));
    if (*code.seeAlso != '\0')
        html += Element("p", "<b>See also:</b> " + EscapeHtml(code.seeAlso));
    return html + Example("Wrong", info.wrong) + Example("Right", info.right);
}

std::string CodeAddress(const std::string& name)
{
    return "code/" + Slug(name) + ".html";
}

} // namespace

std::vector<ManualPage> CodePages()
{
    std::string rows;
    for (const FindingCode& code : AllFindingCodes())
        rows +=
            fmt::format("<tr><th scope=\"row\">{}</th><td>{}</td><td class=\"{}\">{}</td><td>{}</td></tr>\n",
                Link(CodeAddress(code.info->name), code.info->name), code.command,
                Decks::ToString(code.info->severity), Decks::ToString(code.info->severity),
                EscapeHtml(code.info->meaning));
    std::vector<ManualPage> pages = {{"codes.html", "Finding codes",
        Crumbs({}, "Finding codes") + Element("h1", "Finding codes")
            + "<div class=\"wide\"><table class=\"list\"><thead><tr><th scope=\"col\">Code</th><th "
              "scope=\"col\">Command"
              "</th><th scope=\"col\">Severity</th><th scope=\"col\">Meaning</th></tr></thead><tbody>\n"
            + rows + "</tbody></table></div>\n"}};
    for (const std::string& name : FindingCodeNames()) {
        std::string body =
            Crumbs({Link("codes.html", "Finding codes")}, name) + Element("h1", EscapeHtml(name));
        for (const FindingCode& code : FindFindingCodes(name))
            body += CodeSection(code);
        pages.push_back({CodeAddress(name), name, body});
    }
    return pages;
}

} // namespace Veld::Quor::Tools

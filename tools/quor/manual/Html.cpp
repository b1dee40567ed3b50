#include "tools/quor/manual/Html.h"

#include "tools/quor/Version.h"
#include "tools/quor/assets/Assets.h"
#include "tools/quor/commands/LoadedLanguage.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <utility>

namespace Veld::Quor::Tools {

namespace {

/// `text` with `by` in place of each `what`.
std::string Replace(std::string text, std::string_view what, std::string_view by)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

} // namespace

std::string EscapeHtml(std::string_view text)
{
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

std::string Slug(std::string_view name)
{
    std::string slug;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || c == '-' || c == '_')
            slug += c;
        else
            slug += fmt::format("~{:02X}", byte);
    }
    return slug;
}

std::string Link(std::string_view address, std::string_view text)
{
    return fmt::format(R"(<a href="@/{}">{}</a>)", address, EscapeHtml(text));
}

std::string Element(const char* tag, const std::string& content)
{
    return content.empty() ? content : fmt::format("<{0}>{1}</{0}>\n", tag, content);
}

std::string Heading(const char* id, const char* text)
{
    return fmt::format("<h2 id=\"{0}\">{1} <a class=\"anchor\" href=\"#{0}\" aria-label=\"Link to {1}\">"
                       "#</a></h2>\n",
        id, text);
}

std::string Crumbs(const std::vector<std::string>& links, const std::string& here)
{
    std::string text =
        "<nav class=\"crumbs\" aria-label=\"Breadcrumb\"><ol><li>" + Link("index.html", "Manual");
    for (const std::string& link : links)
        text += "</li><li>" + link;
    return text + "</li><li aria-current=\"page\">" + EscapeHtml(here) + "</li></ol></nav>\n";
}

std::string PageFile(const ManualPage& page)
{
    static const std::string frame = Asset("manual/page.html");
    static const std::string origin = fmt::format("quor {}, {}", GetVersion(), LoadedLanguage::GetOrigin());
    std::string root;
    for (auto depth = std::count(page.path.begin(), page.path.end(), '/'); depth > 0; --depth)
        root += "../";
    std::string file = Replace(frame, "{{title}}", EscapeHtml(page.title));
    file = Replace(std::move(file), "{{origin}}", EscapeHtml(origin));
    file = Replace(std::move(file), "{{body}}", page.body);
    return Replace(std::move(file), "\"@/", '"' + root);
}

} // namespace Veld::Quor::Tools

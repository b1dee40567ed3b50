#include "quor/deck/Finding.h"
#include "tools/quor/language-server/Diagnostics.h"
#include "tools/quor/language-server/Methods.h"

#include <fmt/format.h>

#include <cctype>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

bool IsAfter(const Position& a, const Position& b)
{
    return std::tie(a.line, a.character) > std::tie(b.line, b.character);
}

bool Meet(const Span& a, const Span& b)
{
    return !IsAfter(a.begin, b.end) && !IsAfter(b.begin, a.end);
}

/// "Add a slash after the last value"
std::string TitleOf(const Decks::Finding& finding)
{
    std::string title = finding.hint.empty() ? fmt::format("fix: {}", finding.message) : finding.hint;
    title.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(title.front())));
    return title;
}

Json FixOf(const View& view, const Decks::Finding& finding, const Json& diagnostic)
{
    return {{"title", TitleOf(finding)}, {"kind", "quickfix"}, {"isPreferred", true},
        {"diagnostics", Json::array({diagnostic})}, {"edit", view.places->EditOf(finding.fix)}};
}

/// A comment on a line before the finding hides it.
Json SuppressionOf(const View& view, const Decks::Finding& finding, const Span& span, const Json& diagnostic)
{
    const Span start{{span.begin.line, 0}, {span.begin.line, 0}};
    const Json edit = {{"range", ToJson(start)}, {"newText", fmt::format("-- quor: off {}\n", finding.code)}};
    return {{"title", fmt::format("Hide '{}' on this line with a comment", finding.code)},
        {"kind", "quickfix"}, {"diagnostics", Json::array({diagnostic})},
        {"edit", {{"changes", {{view.document->GetUri(), Json::array({edit})}}}}}};
}

bool IsSameBytes(const Decks::TextEdit& a, const Decks::TextEdit& b)
{
    return a.range.file == b.range.file && a.range.offset < b.range.offset + b.range.length
        && b.range.offset < a.range.offset + a.range.length;
}

/// The fixes of the document that don't overlap; one file alone, so that nothing unseen changes.
std::vector<Decks::TextEdit> AllFixes(const View& view)
{
    std::vector<Decks::TextEdit> all;
    std::set<std::pair<std::size_t, std::string>> insertions;
    for (const Decks::Finding& finding : view.GetDeck().GetFindings()) {
        const auto isOther = [&](const Decks::TextEdit& edit) {
            return edit.range.file != view.file
                || std::any_of(all.begin(), all.end(),
                    [&](const Decks::TextEdit& other) { return IsSameBytes(edit, other); })
                || (edit.range.length == 0 && !insertions.insert({edit.range.offset, edit.text}).second);
        };
        if (std::none_of(finding.fix.begin(), finding.fix.end(), isOther))
            all.insert(all.end(), finding.fix.begin(), finding.fix.end());
    }
    return all;
}

/// Whether the client wants actions of the kind, or of any.
bool IsWanted(const Json& params, const std::string& kind)
{
    const Json& only = MemberAt(params, {"context", "only"});
    if (!only.is_array())
        return true;
    return std::any_of(only.begin(), only.end(), [&kind](const Json& one) {
        return one.is_string() && (kind + '.').starts_with(one.get<std::string>() + '.');
    });
}

} // namespace

/// The quick fixes of the findings in a range, and one for all of the document.
Json CodeActions(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    const Span wanted = SpanIn(params.at("range"));
    Json actions = Json::array();
    if (!view.places || view.GetState().IsFragment())
        return actions;
    for (const Decks::Finding& finding : view.GetDeck().GetFindings()) {
        const auto span = finding.range.file == view.file ? view.places->SpanOf(finding.range) : std::nullopt;
        if (!span || !Meet(*span, wanted) || !IsWanted(params, "quickfix"))
            continue;
        const Json diagnostic = DiagnosticOf(*view.places, finding, session.GetExplanations());
        if (!finding.fix.empty())
            actions.push_back(FixOf(view, finding, diagnostic));
        actions.push_back(SuppressionOf(view, finding, *span, diagnostic));
    }
    const auto all = IsWanted(params, "source.fixAll.quor") ? AllFixes(view) : std::vector<Decks::TextEdit>();
    if (!all.empty())
        actions.push_back({{"title", "Fix all findings of this file that have a certain fix"},
            {"kind", "source.fixAll.quor"}, {"edit", view.places->EditOf(all)}});
    return actions;
}

} // namespace Veld::Quor::Tools::LanguageServer

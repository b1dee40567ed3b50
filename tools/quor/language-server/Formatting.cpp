#include "quor/deck/DeckFormatter.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Methods.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

/// Lines of a document, from the first up to and with the last.
struct LineSpan {
    std::size_t first = 0;
    std::size_t last = std::numeric_limits<std::size_t>::max();
};

/// With their ends.
std::vector<std::string_view> SplitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

Json LinesEdit(std::size_t first, std::size_t end, const std::string& text)
{
    return {{"range", ToJson(Span{{first, 0}, {end, 0}})}, {"newText", text}};
}

/// What makes `after` of `before` within the lines that may change: runs of lines where both have as many,
/// else the lines between those that both begin and end with, if they may change.
Json EditsOf(std::string_view before, std::string_view after, const LineSpan& may)
{
    const auto old = SplitLines(before);
    const auto now = SplitLines(after);
    Json edits = Json::array();
    if (old.size() == now.size()) {
        for (std::size_t line = may.first; line < old.size() && line <= may.last; ++line) {
            if (old[line] != now[line])
                edits.push_back(LinesEdit(line, line + 1, std::string(now[line])));
        }
        return edits;
    }
    const std::size_t most = std::min(old.size(), now.size());
    std::size_t head = 0;
    while (head < most && old[head] == now[head])
        ++head;
    std::size_t tail = 0;
    while (tail < most - head && old[old.size() - 1 - tail] == now[now.size() - 1 - tail])
        ++tail;
    if (head < may.first || old.size() - tail > (may.last < old.size() ? may.last + 1 : old.size()))
        return edits;
    std::string text;
    for (std::size_t line = head; line < now.size() - tail; ++line)
        text += now[line];
    edits.push_back(LinesEdit(head, old.size() - tail, text));
    return edits;
}

Json Format(const View& view, const LineSpan& may)
{
    if (!view.places || view.GetState().IsFragment())
        return Json::array();
    if (!view.shift.IsNone())
        throw RequestError(ErrorCode::RequestFailed, "the text was changed meanwhile; try again");
    const bool isNormalized = view.GetState().GetProject().settings.isNormalized.value_or(false);
    Decks::DeckFormatter formatter(view.GetDeck(), Decks::FormatOptions().SetNormalized(isNormalized));
    const std::string_view before = view.GetText().substr(view.mark);
    return EditsOf(before, formatter.FormatFile(view.file), may);
}

} // namespace

Json Formatting(Session& session, const Json& params)
{
    return Format(session.ViewOf(UriIn(params)), {});
}

Json RangeFormatting(Session& session, const Json& params)
{
    const Span span = SpanIn(params.at("range"));
    const bool endsBefore = span.end.character == 0 && span.end.line > span.begin.line;
    return Format(session.ViewOf(UriIn(params)), {span.begin.line, span.end.line - (endsBefore ? 1 : 0)});
}

/// The keyword in which a slash was written.
Json OnTypeFormatting(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    const std::size_t offset = view.OffsetOf(PositionIn(params.at("position")));
    const auto keyword = FindKeywordAt(view, offset);
    const auto range = keyword ? view.ToNow(keyword->GetRange()) : std::nullopt;
    if (!range || !range->Touches(offset))
        return Json::array();
    const TextLines& lines = view.document->GetLines();
    return Format(view, {lines.LineOf(range->offset), lines.LineOf(offset)});
}

} // namespace Veld::Quor::Tools::LanguageServer

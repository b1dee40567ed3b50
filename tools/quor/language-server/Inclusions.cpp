#include "tools/quor/language-server/Inclusions.h"

#include "tools/quor/language-server/Methods.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

/// The path in the text of an inclusion, which ends with the line that has it.
std::optional<ByteRange> FindPath(std::string_view text)
{
    const std::size_t lineStart = std::min(text.rfind('\n'), text.size() - 1) + 1;
    const bool isOneLine = lineStart >= text.size();
    const std::size_t blank = isOneLine ? text.find_first_of(" \t") : lineStart;
    const std::size_t begin = text.find_first_not_of(" \t\r\n", std::min(blank, text.size()));
    if (begin == std::string_view::npos)
        return std::nullopt;
    const bool isQuoted = text[begin] == '\'' || text[begin] == '"';
    const std::size_t first = isQuoted ? begin + 1 : begin;
    const std::size_t end = isQuoted ? text.find(text[begin], first) : text.find_first_of(" \t\r\n", first);
    return ByteRange{first, std::min(end, text.size()) - first};
}

} // namespace

std::vector<InclusionAt> InclusionsOf(const View& view)
{
    std::vector<InclusionAt> all;
    const Decks::DeckFiles& files = view.GetDeck().GetFiles();
    for (std::uint32_t file = 1; file < files.GetSize(); ++file) {
        const auto& inclusion = files.Get(file).inclusion;
        if (!inclusion || inclusion->file != view.file)
            continue;
        const auto path = FindPath(files.GetText(*inclusion));
        const auto now =
            path ? view.ToNow({view.file, inclusion->offset + path->offset, path->length}) : std::nullopt;
        if (now)
            all.push_back({*now, file});
    }
    return all;
}

Json DocumentLinks(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    Json links = Json::array();
    if (!view.places)
        return links;
    for (const InclusionAt& inclusion : InclusionsOf(view))
        links.push_back(
            {{"range", ToJson(view.SpanOf(inclusion.path))}, {"target", view.places->UriOf(inclusion.file)}});
    return links;
}

} // namespace Veld::Quor::Tools::LanguageServer

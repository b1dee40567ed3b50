#include "tools/quor/language-server/TextContext.h"

#include "quor/metadata/IKeywordListMD.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

constexpr std::size_t mostLinesBack = 2000;

/// Whether the rest of a line after `before` is no data.
bool IsOver(std::string_view before)
{
    char quote = '\0'; // that is open
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (quote != '\0')
            quote = before[i] == quote ? '\0' : quote;
        else if (before[i] == '\'' || before[i] == '"')
            quote = before[i];
        else if (before.substr(i, 2) == "--")
            return true;
    }
    const auto words = Decks::FindWords(before);
    return !words.empty() && words.back().isSlash;
}

/// The keyword that begins a line, alone on it.
const IKeywordSyntax* FindLineKeyword(Session& session, std::string_view line, SectionType::Enum section)
{
    const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
    const std::string word(line.substr(0, end));
    const auto rest = Decks::FindWords(line.substr(end));
    if (word.empty() || word.front() < 'A' || word.front() > 'Z' || !rest.empty())
        return nullptr;
    if (section != SectionType::None)
        return session.GetTable().Lookup(word, section, true);
    return session.GetTable().Lookup(word, true);
}

/// The last keyword that begins a line from `first` on and before `last`; with `textOnly` one that the reader
/// of decks takes as a part of the text.
struct LineKeyword {
    const IKeywordSyntax* syntax;
    std::size_t line;
};
std::optional<LineKeyword> FindWritten(Session& session, const View& view, std::size_t first,
    std::size_t last, SectionType::Enum section, bool textOnly)
{
    const TextLines& lines = view.document->GetLines();
    first = std::max(first, last > mostLinesBack ? last - mostLinesBack : 0);
    for (std::size_t line = last; line-- > first;) {
        const auto text = lines.LineAt(view.GetText(), line);
        const IKeywordSyntax* const syntax = FindLineKeyword(session, text, section);
        if (syntax && (!textOnly || syntax->GetDeckRole() == KeywordDeckRole::Include))
            return LineKeyword{syntax, line};
    }
    return std::nullopt;
}

/// A list of numbers, in which nothing but numbers can be written; it may be long.
bool IsArray(const IKeywordDataMD& md)
{
    const IKeywordDataMD* const item = md.GetType() == IKeywordDataMD::MDType::List
        ? static_cast<const IKeywordListMD&>(md).GetItemMD()
        : nullptr;
    return item
        && (item->GetType() == IKeywordDataMD::MDType::Real
            || item->GetType() == IKeywordDataMD::MDType::Integer);
}

} // namespace

TextContext FindContext(Session& session, const View& view, std::size_t offset)
{
    const TextLines& lines = view.document->GetLines();
    const std::size_t line = lines.LineOf(offset);
    TextContext context;
    context.lineOffset = lines.StartOf(view.GetText(), line);
    context.isComment = IsOver(view.GetText().substr(context.lineOffset, offset - context.lineOffset));
    std::size_t first = 0; // line after the keyword that was read
    const auto read = FindKeywordAt(view, offset);
    const auto name = read ? view.ToNow(read->GetNameRange()) : std::nullopt;
    if (read)
        context.section = read->GetSection();
    if (name && name->GetEnd() <= offset) {
        context.syntax = &read->GetSyntax();
        context.spelling = read->GetName();
        context.dataOffset = name->GetEnd();
        first = lines.LineOf(name->offset) + 1;
    }
    const bool isRead = view.places && view.shift.IsNone() && !view.GetState().IsFragment();
    if (const auto written = FindWritten(session, view, first, line, context.section, isRead)) {
        context.syntax = written->syntax;
        const auto text = lines.LineAt(view.GetText(), written->line);
        context.spelling = std::string(text.substr(0, text.find_first_of(" \t")));
        context.dataOffset = lines.StartOf(view.GetText(), written->line) + context.spelling.size();
    }
    const IKeywordDataMD* const data = context.syntax ? context.syntax->GetDataMD() : nullptr;
    if (data && !IsArray(*data))
        context.cursor =
            FindDataCursor(*data, view.GetText().substr(context.dataOffset, offset - context.dataOffset));
    return context;
}

std::string InQuotes(const std::string& text, char quote)
{
    for (const char kind : {quote, quote == '"' ? '\'' : '"'}) {
        if (text.find(kind) == std::string::npos)
            return kind + text + kind;
    }
    return {};
}

} // namespace Veld::Quor::Tools::LanguageServer

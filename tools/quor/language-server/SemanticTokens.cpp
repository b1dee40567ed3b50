#include "quor/deck/ValueAddress.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Methods.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

constexpr std::size_t mostLines = 5000; // of a document that is coloured whole; beyond: keywords alone
constexpr std::size_t longestLine = 2000; // in which a comment is looked for

/// In the order of `SemanticTokenTypes`.
enum class TokenType { Section, Keyword, Choice, Name, Text, Comment };

struct ColouredWord {
    ByteRange range;
    TokenType type;
    bool isDefinition = false;
};

/// The bytes at which a comment begins; the end of the line if there is none.
std::size_t FindComment(std::string_view line)
{
    char quote = '\0';
    for (std::size_t i = 0; i < std::min(line.size(), longestLine); ++i) {
        if (quote != '\0')
            quote = line[i] == quote ? '\0' : quote;
        else if (line[i] == '\'' || line[i] == '"')
            quote = line[i];
        else if (line.substr(i, 2) == "--")
            return i;
    }
    return line.size();
}

/// Collects the words of a part of a document that are no plain numbers.
class Colours {
public:
    Colours(const View& view, ByteRange part)
        : view_(view)
        , part_(part)
    {
    }

    void AddKeywords(bool withData);
    void AddInclusions();
    void AddComments();
    Json Encode();

private:
    void AddData(const Decks::DeckKeyword& keyword);
    void AddScalar(
        const Decks::TextRange& range, const ScalarPlace& place, const std::vector<NamedItem>& names);
    void Add(const Decks::TextRange& range, TokenType type, bool isDefinition = false)
    {
        const auto now = view_.ToNow(range);
        if (now && now->length > 0 && now->offset < part_.GetEnd() && now->GetEnd() > part_.offset)
            words_.push_back({*now, type, isDefinition});
    }

    const View& view_;
    ByteRange part_;
    std::vector<ColouredWord> words_;
};

void Colours::AddKeywords(bool withData)
{
    const auto& keywords = view_.GetState().GetKeywordsIn(view_.file);
    const auto begin = view_.ToThen(part_.offset);
    const auto end = view_.ToThen(part_.GetEnd());
    if (!end)
        return;
    const auto before = begin ? view_.GetState().FindKeywordBefore(view_.file, *begin) : std::nullopt;
    auto first = before ? std::find(keywords.begin(), keywords.end(), *before) : keywords.begin();
    for (; first != keywords.end(); ++first) {
        const Decks::DeckKeyword keyword = view_.GetDeck()[*first];
        if (keyword.GetNameRange().offset >= *end)
            return;
        const bool isSection = keyword.GetSyntax().GetDeckRole() == KeywordDeckRole::Section;
        Add(keyword.GetNameRange(), isSection ? TokenType::Section : TokenType::Keyword);
        if (withData)
            AddData(keyword);
    }
}

/// The keywords that include files.
void Colours::AddInclusions()
{
    const Decks::DeckFiles& files = view_.GetDeck().GetFiles();
    for (std::uint32_t file = 1; file < files.GetSize(); ++file) {
        const auto& inclusion = files.Get(file).inclusion;
        if (!inclusion || inclusion->file != view_.file)
            continue;
        const std::string_view text = files.GetText(*inclusion);
        Add({view_.file, inclusion->offset, std::min(text.find_first_of(" \t\r\n"), text.size())},
            TokenType::Keyword);
    }
}

void Colours::AddData(const Decks::DeckKeyword& keyword)
{
    const auto* const ranges = FindValueRanges(view_.GetDeck(), keyword);
    if (!ranges)
        return;
    const std::vector<NamedItem>& names = view_.GetState().GetNameRules().Get(keyword.GetSyntax());
    ForEachScalar(*keyword.FindData(), false, [&](const ScalarPlace& place) {
        const Decks::TextRange& range = (*ranges)[place.slot];
        const bool isRepeated = place.slot > 0 && (*ranges)[place.slot - 1].offset == range.offset;
        if (range.length > 0 && !isRepeated)
            AddScalar(range, place, names);
    });
}

void Colours::AddScalar(
    const Decks::TextRange& range, const ScalarPlace& place, const std::vector<NamedItem>& names)
{
    const auto named = std::find_if(names.begin(), names.end(), [&place](const NamedItem& item) {
        return item.item == (place.record ? *place.name : std::string());
    });
    if (named != names.end())
        Add(range, TokenType::Name, named->isDefinition);
    else if (place.md->GetType() == IKeywordDataMD::MDType::Choice)
        Add(range, TokenType::Choice);
    else if (place.md->GetType() == IKeywordDataMD::MDType::String)
        Add(range, TokenType::Text);
}

void Colours::AddComments()
{
    const TextLines& lines = view_.document->GetLines();
    const std::size_t last = lines.LineOf(part_.GetEnd());
    for (std::size_t line = lines.LineOf(part_.offset); line <= last; ++line) {
        const std::string_view text = lines.LineAt(view_.GetText(), line);
        const std::size_t comment = FindComment(text);
        if (comment < text.size())
            words_.push_back({{lines.StartOf(view_.GetText(), line) + comment, text.size() - comment},
                TokenType::Comment});
    }
}

/// Each from the one before, as the protocol wants it. Of two at one place the first holds.
Json Colours::Encode()
{
    std::stable_sort(words_.begin(), words_.end(),
        [](const ColouredWord& a, const ColouredWord& b) { return a.range.offset < b.range.offset; });
    Json data = Json::array();
    Position before;
    std::size_t end = 0;
    for (const ColouredWord& word : words_) {
        if (word.range.offset < end)
            continue;
        end = word.range.GetEnd();
        const Span span = view_.SpanOf(word.range);
        if (span.begin.line != span.end.line)
            continue;
        const bool isSameLine = span.begin.line == before.line;
        for (const std::size_t number :
            {span.begin.line - before.line, span.begin.character - (isSameLine ? before.character : 0),
                span.end.character - span.begin.character, static_cast<std::size_t>(word.type),
                std::size_t(word.isDefinition ? 1 : 0)})
            data.push_back(number);
        before = span.begin;
    }
    return {{"data", std::move(data)}};
}

} // namespace

Json SemanticTokenLegend()
{
    return {{"tokenTypes", {"namespace", "keyword", "enumMember", "variable", "string", "comment"}},
        {"tokenModifiers", Json::array({"definition"})}};
}

Json SemanticTokens(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    Colours colours(view, {0, view.GetText().size()});
    const bool isSmall = view.document->GetLines().GetCount() <= mostLines;
    if (view.places) {
        colours.AddKeywords(isSmall);
        colours.AddInclusions();
    }
    if (isSmall)
        colours.AddComments();
    return colours.Encode();
}

Json SemanticTokensInRange(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    const Span span = SpanIn(params.at("range"));
    const std::size_t begin = view.OffsetOf(span.begin);
    Colours colours(view, {begin, std::max(view.OffsetOf(span.end), begin) - begin});
    if (view.places) {
        colours.AddKeywords(true);
        colours.AddInclusions();
    }
    colours.AddComments();
    return colours.Encode();
}

} // namespace Veld::Quor::Tools::LanguageServer

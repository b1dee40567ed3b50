#include "tools/quor/language-server/Places.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

/// Which version of the document was read; none if it was the file, and that has another text.
std::optional<TextVersion> Places::VersionRead(std::uint32_t file, const Document& document) const
{
    if (const auto known = read_.find(file);
        known != read_.end() && known->second.opening == document.GetVersion().opening)
        return known->second;
    const auto read = state_->GetVersions().find(state_->KeyOf(file));
    if (read != state_->GetVersions().end() && read->second.opening == document.GetVersion().opening)
        return read_[file] = read->second;
    const Decks::SourceText& text = *state_->GetDeck().GetFiles().Get(file).text;
    const std::string_view now = document.GetText();
    const std::size_t mark = text.GetMark().size();
    if (now.size() == mark + text.GetText().size() && now.substr(mark) == text.GetText())
        return read_[file] = document.GetVersion();
    return std::nullopt;
}

const Shift& Places::ShiftOf(std::uint32_t file) const
{
    static const Shift none = Shift(std::vector<ByteEdit>());
    const Document* const document = FindDocument(file);
    if (!document)
        return none;
    const auto [entry, isNew] = shifts_.try_emplace(file);
    CachedShift& cached = entry->second;
    if (isNew || cached.version != document->GetVersion()) {
        const auto read = VersionRead(file, *document);
        cached = {document->GetVersion(), read ? document->ShiftFrom(*read) : Shift()};
    }
    return cached.shift;
}

/// Of bytes in the document, or in the file if there is none.
Span Places::SpanNow(std::uint32_t file, const ByteRange& range) const
{
    if (const Document* const document = FindDocument(file))
        return document->GetLines().SpanOf(document->GetText(), range.offset, range.length);
    const std::string_view text = state_->GetDeck().GetFiles().GetText(file);
    auto lines = lines_.find(file);
    if (lines == lines_.end())
        lines = lines_.emplace(file, TextLines(text)).first;
    return lines->second.SpanOf(text, range.offset, range.length);
}

std::optional<Span> Places::SpanOf(const Decks::TextRange& range) const
{
    const bool isOpen = FindDocument(range.file) != nullptr;
    const std::size_t mark = isOpen ? state_->GetDeck().GetFiles().Get(range.file).text->GetMark().size() : 0;
    const auto now = ShiftOf(range.file).ToNow({range.offset + mark, range.length});
    return now ? std::optional(SpanNow(range.file, *now)) : std::nullopt;
}

std::optional<Span> Places::SpanAround(const Decks::TextRange& range) const
{
    const bool isOpen = FindDocument(range.file) != nullptr;
    const std::size_t mark = isOpen ? state_->GetDeck().GetFiles().Get(range.file).text->GetMark().size() : 0;
    const auto now = ShiftOf(range.file).ToNowAround({range.offset + mark, range.length});
    return now ? std::optional(SpanNow(range.file, *now)) : std::nullopt;
}

std::string Places::UriOf(std::uint32_t file) const
{
    if (const Document* const document = FindDocument(file))
        return document->GetUri();
    std::error_code error;
    const std::string& name = state_->GetDeck().GetFiles().Get(file).name;
    const auto path = std::filesystem::absolute(name, error);
    return UriOfPath(error ? name : path.lexically_normal().string());
}

Json Places::LocationOf(const Decks::TextRange& range) const
{
    const auto span = SpanOf(range);
    return span ? Json{{"uri", UriOf(range.file)}, {"range", ToJson(*span)}} : Json();
}

Json Places::EditOf(const std::vector<Decks::TextEdit>& edits) const
{
    std::map<std::string, Json> byUri;
    for (const Decks::TextEdit& edit : edits) {
        const auto span = SpanOf(edit.range);
        if (!span)
            throw RequestError(ErrorCode::RequestFailed, "the text was changed meanwhile; try again");
        const Json change = {{"range", ToJson(*span)}, {"newText", edit.text}};
        Json& changes = byUri.try_emplace(UriOf(edit.range.file), Json::array()).first->second;
        if (std::find(changes.begin(), changes.end(), change)
            == changes.end()) // a file may be included twice
            changes.push_back(change);
    }
    return {{"changes", byUri}};
}

std::optional<std::size_t> View::ToThen(std::size_t offset) const
{
    const auto then = places ? shift.ToThen(offset) : std::nullopt;
    return then && *then >= mark ? std::optional(*then - mark) : std::nullopt;
}

std::optional<ByteRange> View::ToNow(const Decks::TextRange& range) const
{
    return range.file == file ? shift.ToNow({range.offset + mark, range.length}) : std::nullopt;
}

std::optional<ByteRange> View::ToNowAround(const Decks::TextRange& range) const
{
    return range.file == file ? shift.ToNowAround({range.offset + mark, range.length}) : std::nullopt;
}

} // namespace Veld::Quor::Tools::LanguageServer

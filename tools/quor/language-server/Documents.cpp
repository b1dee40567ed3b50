#include "tools/quor/language-server/Documents.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

std::string KeyOfPath(const std::string& path)
{
    std::error_code error;
    const auto key = std::filesystem::weakly_canonical(path, error);
    return error ? path : key.string();
}

Document::Document(std::string uri, std::string text, std::size_t opening)
    : uri_(std::move(uri))
    , key_(KeyOfPath(PathOfUri(uri_)))
    , text_(std::move(text))
    , lines_(text_)
    , opening_(opening)
{
    if (key_.empty())
        key_ = uri_; // a text without a file
}

std::shared_ptr<const Core::Decks::SourceText> Document::GetSource() const
{
    if (!source_)
        source_ = Core::Decks::SourceText::FromMemory(text_);
    return source_;
}

void Document::Change(const Json& change)
{
    const auto text = change.at("text").get<std::string>();
    const Json& range = MemberOf(change, "range");
    if (range.is_null()) {
        ReplaceAll(text);
        return;
    }
    const Span span = SpanIn(range);
    const std::size_t begin = lines_.OffsetOf(text_, span.begin);
    const std::size_t end = std::max(begin, lines_.OffsetOf(text_, span.end));
    Replace(begin, end - begin, text);
}

void Document::Replace(std::size_t offset, std::size_t length, const std::string& text)
{
    text_.replace(offset, length, text);
    lines_.Change(text_, offset, length, text.size());
    edits_.push_back({offset, length, text.size()});
    source_.reset();
}

/// As a change of what differs, so that the rest stays known.
void Document::ReplaceAll(const std::string& text)
{
    const std::size_t most = std::min(text.size(), text_.size());
    std::size_t before = 0;
    while (before < most && text[before] == text_[before])
        ++before;
    std::size_t after = 0;
    while (after < most - before && text[text.size() - 1 - after] == text_[text_.size() - 1 - after])
        ++after;
    if (before + after < std::max(text.size(), text_.size()))
        Replace(before, text_.size() - before - after, text.substr(before, text.size() - before - after));
}

Shift Document::ShiftFrom(const TextVersion& version) const
{
    return Shift({edits_.begin() + static_cast<std::ptrdiff_t>(version.edits), edits_.end()});
}

Document& Documents::Open(const std::string& uri, std::string text)
{
    Close(uri);
    Document document(uri, std::move(text), ++openings_);
    uriByKey_[document.GetKey()] = uri;
    return all_.insert_or_assign(uri, std::move(document)).first->second;
}

void Documents::Close(const std::string& uri)
{
    const auto document = all_.find(uri);
    if (document == all_.end())
        return;
    uriByKey_.erase(document->second.GetKey());
    all_.erase(document);
}

Document* Documents::Find(const std::string& uri)
{
    const auto document = all_.find(uri);
    return document == all_.end() ? nullptr : &document->second;
}

Document& Documents::Get(const std::string& uri)
{
    Document* const document = Find(uri);
    if (!document)
        throw RequestError(ErrorCode::InvalidParams, fmt::format("the document '{}' is not open", uri));
    return *document;
}

const Document* Documents::FindKey(const std::string& key) const
{
    const auto uri = uriByKey_.find(key);
    return uri == uriByKey_.end() ? nullptr : &all_.at(uri->second);
}

} // namespace Veld::Quor::Tools::LanguageServer

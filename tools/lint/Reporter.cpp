#include "tools/lint/Reporter.h"

#include "tools/deck/NearestNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Tools::Lint {

namespace {

constexpr std::size_t longestExcerpt = 160;
constexpr std::size_t longestQuote = 60;

std::string Fold(std::string text)
{
    for (char& c : text)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return text;
}

std::string Shorten(const std::string& text)
{
    return text.size() <= longestQuote ? text : text.substr(0, longestQuote) + "...";
}

} // namespace

Reporter Reporter::InKeyword(const Element& keyword) const
{
    Reporter inner = *this;
    const std::string& name = keyword.Get("name");
    inner.subject_ = IsBlank(name) ? "keyword without a name" : Shorten(name);
    return inner;
}

Reporter Reporter::In(const char* what, const std::string& name) const
{
    Reporter inner = *this;
    inner.subject_ += fmt::format(", {} {}", what, IsBlank(name) ? "without a name" : Shorten(name));
    return inner;
}

void Reporter::Tell(Code code, const Span& span, const std::string& message, const std::string& hint) const
{
    const CodeInfo& info = InfoOf(code);
    if (findings_->Admit(info.severity))
        Keep(info, document_->PlaceOf(span.offset), span.length, message, hint);
}

void Reporter::TellAt(Code code, const Deck::Place& place, const std::string& message) const
{
    const CodeInfo& info = InfoOf(code);
    if (findings_->Admit(info.severity))
        Keep(info, place, 0, message, {});
}

void Reporter::Keep(const CodeInfo& info, const Deck::Place& place, std::size_t length,
    const std::string& message, const std::string& hint) const
{
    Deck::Finding finding;
    finding.code = info.name;
    finding.severity = info.severity;
    finding.place = place;
    finding.length = length;
    finding.message = subject_.empty() ? message : fmt::format("{}: {}", subject_, message);
    finding.hint = hint;
    const std::string_view line = document_->GetLine(place.line);
    const std::size_t offset = std::min(place.column - 1, line.size());
    const std::size_t start = offset + length <= longestExcerpt ? 0 : offset;
    finding.excerpt = line.substr(start, longestExcerpt);
    finding.excerptColumn = start + 1;
    findings_->Keep(std::move(finding));
}

std::string Quoted(const std::string& text)
{
    return fmt::format("\"{}\"", Shorten(text));
}

std::string Tagged(const std::string& tag)
{
    return fmt::format("<{}>", Shorten(tag));
}

std::string HintOfNearest(const std::string& text, const std::vector<std::string>& known)
{
    if (text.size() > longestQuote)
        return {};
    const std::string folded = Fold(text);
    const std::size_t limit = std::min<std::size_t>(2, text.size() / 3 + 1);
    const std::string* nearest = nullptr;
    std::size_t least = limit + 1;
    for (const std::string& word : known) {
        const std::size_t distance = Deck::EditDistance(folded, Fold(word), limit);
        if (distance < least) {
            least = distance;
            nearest = &word;
        }
    }
    return nearest ? fmt::format("write {}", *nearest) : std::string();
}

std::string Listed(const std::vector<std::string>& words, const char* conjunction)
{
    std::string all;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0)
            all += i + 1 < words.size() ? ", " : fmt::format(" {} ", conjunction);
        all += words[i];
    }
    return all;
}

} // namespace Veld::Quor::Tools::Lint

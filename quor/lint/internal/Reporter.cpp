#include "quor/lint/internal/Reporter.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <utility>

namespace Veld::Quor::Core::Lint {

using Decks::CodeInfo;
using Decks::Shorten;

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

void Reporter::Report(Code code, const Span& span, const std::string& message, const std::string& hint) const
{
    const CodeInfo& info = InfoOf(code);
    if (findings_.Admit(info.severity))
        Keep(info, document_->LocationOf(span.offset), span.length, message, hint);
}

void Reporter::ReportAt(Code code, const Decks::Location& location, const std::string& message) const
{
    const CodeInfo& info = InfoOf(code);
    if (findings_.Admit(info.severity))
        Keep(info, location, 0, message, {});
}

void Reporter::Keep(const CodeInfo& info, const Decks::Location& location, std::size_t length,
    const std::string& message, const std::string& hint) const
{
    Decks::Finding finding;
    finding.code = info.name;
    finding.severity = info.severity;
    finding.location = location;
    finding.length = length;
    finding.message = subject_.empty() ? message : fmt::format("{}: {}", subject_, message);
    finding.hint = hint;
    findings_.Keep(std::move(finding), document_->GetLine(location.line));
}

std::string Quoted(const std::string& text)
{
    return fmt::format("'{}'", Shorten(text));
}

std::string Tagged(const std::string& tag)
{
    return fmt::format("<{}>", Shorten(tag));
}

std::string HintOfNearest(const std::string& text, const std::vector<std::string>& known)
{
    const std::vector<std::string> nearest = Decks::FindNearest(known, text);
    return nearest.empty() ? std::string() : fmt::format("did you mean '{}'?", nearest.front());
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

} // namespace Veld::Quor::Core::Lint

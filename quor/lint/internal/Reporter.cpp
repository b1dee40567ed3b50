#include "quor/lint/internal/Reporter.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <utility>

namespace Veld::Quor::Core::Lint {

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
    Add(code, span.length, message, hint, [&] { return document_->LocationOf(span.offset); });
}

void Reporter::ReportAt(Code code, const Decks::Location& location, const std::string& message) const
{
    Add(code, 0, message, {}, [&] { return location; });
}

/// The location takes long to find, and is not needed if the finding isn't kept.
template <class LocationOf>
void Reporter::Add(Code code, std::size_t length, const std::string& message, const std::string& hint,
    LocationOf locationOf) const
{
    const Decks::CodeInfo& info = InfoOf(code);
    Decks::Finding finding;
    finding.message = subject_.empty() ? message : fmt::format("{}: {}", subject_, message);
    if (!findings_.Admit(info.severity, document_->GetName(), info.name, finding.message))
        return;
    finding.code = info.name;
    finding.severity = info.severity;
    finding.location = locationOf();
    finding.length = length;
    finding.hint = hint;
    const std::size_t line = finding.location.line;
    findings_.Keep(std::move(finding), document_->GetLine(line));
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

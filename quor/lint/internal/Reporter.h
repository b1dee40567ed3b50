#pragma once

#include "quor/deck/internal/check/FindingCollector.h"
#include "quor/lint/Codes.h"
#include "quor/lint/Document.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// Makes findings for locations in a document. The message starts with the keyword and the item there.
class Reporter {
public:
    /// Both must outlive the reporter and its copies.
    Reporter(Core::Decks::Findings& findings, const Document& document)
        : findings_(findings)
        , document_(&document)
    {
    }

    Reporter InKeyword(const Element& keyword) const;
    /// Inside a keyword: an item, a choice, an assignment.
    Reporter In(const char* what, const std::string& name) const;

    void Report(Code code, const Span& span, const std::string& message, const std::string& hint = {}) const;
    /// The same for a location without a span.
    void ReportAt(Code code, const Core::Decks::Location& location, const std::string& message) const;

    /// Whether findings are only counted, so that their texts are not needed.
    bool IsFull() const { return findings_.IsFull(); }
    const Document& GetDocument() const { return *document_; }

private:
    template <class LocationOf>
    void Add(Code code, std::size_t length, const std::string& message, const std::string& hint,
        LocationOf locationOf) const;

    Core::Decks::FindingCollector findings_;
    const Document* document_;
    std::string subject_;
};

/// `text` in single quotes, shortened if it is very long.
std::string Quoted(const std::string& text);
/// `<tag>`
std::string Tagged(const std::string& tag);
/// "did you mean '...'?" with the nearest word of `known`; empty if none is near.
std::string HintOfNearest(const std::string& text, const std::vector<std::string>& known);
/// "a, b or c", or with another word before the last
std::string Listed(const std::vector<std::string>& words, const char* conjunction = "or");

} // namespace Veld::Quor::Core::Lint

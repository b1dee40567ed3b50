#pragma once

#include "quor/lint/Lint.h"
#include "tests/support/Documents.h"

#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tests {

/// The elements of a row as a document has them. What is no keyword is the content of keyword K, and a tag
/// that ends with ~> has a description behind it, so that its absence isn't reported.
inline std::string Expanded(const std::string& row)
{
    const bool isContent = !row.starts_with("<keyword") && !row.starts_with("<!--");
    std::string text = isContent ? "<keyword name='K'~>" + row + "</keyword>" : row;
    const std::regex keyword("(<keyword[^<>]*)~>");
    if (std::regex_search(text, keyword))
        text = std::regex_replace(text, std::regex("</keyword>"), "\n</keyword>\n");
    text = std::regex_replace(text, keyword, "$1><description>d</description>\n");
    return std::regex_replace(text, std::regex("~>"), ">\n<description>d</description>");
}

/// What lint reports about a document below its root: a line for each finding, as a user sees it, with its
/// hint. `without`: a code that is left out.
inline std::string FindingsOf(const std::string& body, const std::string& without = {})
{
    std::vector<Core::Lint::Document> documents;
    documents.push_back(
        Core::Lint::Document::ReadText(body.starts_with("<rules") ? body : Document(body), "x.xml"));
    const Core::Lint::LintReport report = LintDocuments(documents, 100);
    std::string lines;
    for (const auto& finding : report.findings.GetKept()) {
        if (finding.code == without)
            continue;
        lines += finding.location.file + ":" + std::to_string(finding.location.line) + ":"
            + std::to_string(finding.location.column) + ": " + ToString(finding.severity) + ": "
            + finding.message + " [" + finding.code + "]";
        lines += finding.hint.empty() ? "\n" : " | " + finding.hint + "\n";
    }
    lines.erase(lines.find_last_not_of('\n') + 1);
    return lines;
}

} // namespace Veld::Quor::Tests

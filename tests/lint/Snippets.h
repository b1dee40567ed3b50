#pragma once

#include "quor/lint/Lint.h"
#include "tests/support/Documents.h"

#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tests {

// Parts of syntax documents, around what a case is about.

inline std::string Keyword(const std::string& attributes, const std::string& content)
{
    return "<keyword " + attributes + "><description>d</description>\n" + content + "\n</keyword>\n";
}

inline std::string K(const std::string& content)
{
    return Keyword("name='K'", content);
}

inline std::string Data(const std::string& content)
{
    return K("<data>" + content + "</data>");
}

inline std::string Item(const std::string& content, const std::string& attributes = {})
{
    return Data("<record><item name='I' " + attributes + ">" + content + "</item></record>");
}

inline std::string Described(
    const std::string& tag, const std::string& content = {}, const std::string& attributes = {})
{
    return "<" + tag + " " + attributes + ">\n<description>d</description>" + content + "</" + tag + ">";
}

inline std::string Scalar(const std::string& tag, const std::string& content)
{
    return Item(Described(tag, content));
}

inline std::string Choice(
    const std::string& defaultText, const std::string& values = "<value string='OIL'/><value string='GAS'/>")
{
    return Scalar("choice", defaultText + "<values>" + values + "</values>");
}

inline std::string Simulators(const std::string& attributes)
{
    return "<validSimulators><simulator " + attributes + "/></validSimulators>";
}

inline std::string Section(const std::string& name)
{
    return "<validSections><section name='" + name + "'/></validSections>";
}

inline std::string Assignment(const std::string& attributes, const std::string& mark = {})
{
    return Data("<map>" + mark
        + Described("assignment", "<validity>\n<simulator name='Carrow'/>\n</validity>", attributes)
        + "</map>");
}

inline std::string Category(const std::string& name, const std::string& value)
{
    return "<summaryMnemonic><category name='" + name + "' val='" + value + "'/></summaryMnemonic>";
}

inline std::string Precedent(const std::string& name)
{
    return "<precedents><precedent name='" + name + "'/></precedents>";
}

/// What lint reports about a document below its root: a line for each finding, as a user sees it, with its
/// hint.
inline std::string FindingsOf(const std::string& body)
{
    std::vector<Core::Lint::Document> documents;
    documents.push_back(Core::Lint::Document::ReadText(Document(body), "x.xml"));
    const Core::Lint::LintReport report = LintDocuments(documents, 100);
    std::string lines;
    for (const auto& finding : report.findings.GetKept()) {
        lines += finding.location.file + ":" + std::to_string(finding.location.line) + ":"
            + std::to_string(finding.location.column) + ": " + ToString(finding.severity) + ": "
            + finding.message + " [" + finding.code + "]";
        lines += finding.hint.empty() ? "\n" : " | " + finding.hint + "\n";
    }
    lines.erase(lines.find_last_not_of('\n') + 1);
    return lines;
}

} // namespace Veld::Quor::Tests

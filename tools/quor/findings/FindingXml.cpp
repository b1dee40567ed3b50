#include "tools/quor/findings/FindingXml.h"

#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <string_view>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Finding;
using Decks::Severity;

namespace {

/// As an attribute in double quotes, or as a text.
std::string EscapeXml(const std::string& text)
{
    std::string escaped;
    for (const char c : ValidText(MakePrintable(text))) {
        constexpr std::string_view marks = "&<>\"\t";
        constexpr const char* references[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&#9;"};
        const std::size_t mark = marks.find(c);
        escaped += mark == std::string_view::npos ? std::string(1, c) : references[mark];
    }
    return escaped;
}

std::string TestName(const Finding& finding)
{
    return fmt::format("{}:{}: {}", finding.location.file, finding.location.line, finding.code);
}

std::string Test(const std::string& deck, const Finding& finding, bool isFailure)
{
    const std::string message = EscapeXml(WithMore(finding));
    const std::string line = EscapeXml(ToString(finding));
    const std::string content = isFailure ? fmt::format(R"(<failure type="{}" message="{}">{}</failure>)",
                                    ToString(finding.severity), message, line)
                                          : fmt::format("<system-out>{}</system-out>", line);
    return fmt::format("    <testcase classname=\"{}\" name=\"{}\">{}</testcase>\n", EscapeXml(deck),
        EscapeXml(TestName(finding)), content);
}

std::string Suite(const std::string& deck, std::size_t tests, std::size_t failures, std::size_t errors,
    const std::string& content)
{
    return fmt::format(
        "  <testsuite name=\"{}\" tests=\"{}\" failures=\"{}\" errors=\"{}\">\n{}  </testsuite>\n",
        EscapeXml(deck), tests, failures, errors, content);
}

} // namespace

std::string JUnitSuite(const std::string& deck, const Decks::Findings& findings, bool failsOnWarnings)
{
    std::string tests;
    std::size_t failures = 0;
    for (const Finding& finding : findings) {
        const bool isFailure =
            finding.severity == Severity::Error || (failsOnWarnings && finding.severity == Severity::Warning);
        failures += isFailure ? 1U : 0U;
        tests += Test(deck, finding, isFailure);
    }
    if (!tests.empty())
        return Suite(deck, findings.GetKept().size(), failures, 0, tests);
    return Suite(deck, 1, 0, 0,
        fmt::format("    <testcase classname=\"{}\" name=\"no findings\"/>\n", EscapeXml(deck)));
}

std::string JUnitFailure(const std::string& deck, const std::string& message)
{
    return Suite(deck, 1, 0, 1,
        fmt::format(
            "    <testcase classname=\"{0}\" name=\"not checked\"><error message=\"{1}\"/></testcase>\n",
            EscapeXml(deck), EscapeXml(message)));
}

std::string JUnitReport(const std::string& suites)
{
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"quor\">\n{}</testsuites>\n", suites);
}

} // namespace Veld::Quor::Tools

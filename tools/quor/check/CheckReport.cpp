#include "tools/quor/check/CheckReport.h"

#include "quor/deck/FindingCodes.h"
#include "tools/quor/findings/FindingJson.h"
#include "tools/quor/findings/FindingLines.h"
#include "tools/quor/findings/FindingSarif.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/findings/FindingXml.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using nlohmann::ordered_json;

namespace {

std::string TextPart(const CheckedDeck& deck, bool isQuiet)
{
    const std::string findings = FindingsText(deck.findings);
    return isQuiet ? findings
                   : fmt::format("{}{}: {} in {}, {}: {}\n", findings,
                       MakePrintable(std::filesystem::path(deck.name).filename().string()),
                       Plural(deck.keywords, "keyword"), Plural(deck.sections, "section"),
                       Plural(deck.files, "file"), CountsText(deck.findings));
}

/// What is known of the deck itself.
ordered_json DeckJson(const CheckedDeck& deck)
{
    return {{"deck", deck.name}, {"keywords", deck.keywords}, {"sections", deck.sections},
        {"files", deck.files}, {"clean", deck.findings.IsClean()}};
}

ordered_json FindingsJson(const CheckedDeck& deck, bool withDeck)
{
    auto findings = ordered_json::array();
    for (std::size_t i = 0; i < deck.fixes.size(); ++i) {
        ordered_json json = withDeck ? ordered_json{{"deck", deck.name}} : ordered_json::object();
        json.update(FindingJson(deck.findings.GetKept()[i], deck.fixes[i]));
        findings.push_back(std::move(json));
    }
    return findings;
}

/// The deck as one line of JSON.
ordered_json LinePart(const CheckedDeck& deck)
{
    ordered_json json = WithVersion(DeckJson(deck));
    json.update({{"counts", CountsJson({deck.findings})}, {"findings", FindingsJson(deck, false)}});
    return json;
}

void AddCounts(const ordered_json& counts, ordered_json& sum)
{
    for (const auto& [name, count] : counts.items())
        sum[name] = sum.value(name, std::size_t{0}) + count.get<std::size_t>();
}

} // namespace

ordered_json PartOf(const CheckedDeck& deck, FindingFormat format, bool isQuiet)
{
    switch (format) {
    case FindingFormat::Text:
        return TextPart(deck, isQuiet);
    case FindingFormat::Json:
        return {{"deck", DeckJson(deck)}, {"findings", FindingsJson(deck, true)}};
    case FindingFormat::Jsonl:
        return LinePart(deck);
    case FindingFormat::Sarif:
        return SarifResults({deck.findings, &deck.fixes});
    case FindingFormat::JUnit:
        return JUnitSuite(deck.name, deck.findings, deck.failsOnWarnings);
    case FindingFormat::Gcc:
        return GccText({deck.findings});
    case FindingFormat::GitHub:
        return GitHubText({deck.findings});
    }
    return {};
}

CheckReport::CheckReport(FindingFormat format, bool isQuiet)
    : format_(format)
    , isQuiet_(isQuiet)
    , counts_(CountsJson({}))
{
}

void CheckReport::Add(DeckResult result)
{
    ++decks_;
    status_ = Worse(status_, result.status);
    if (!result.failure.empty()) {
        failures_.push_back({result.deck, result.failure});
        return PrintFailure(failures_.back());
    }
    AddCounts(result.counts, counts_);
    if (format_ == FindingFormat::Jsonl)
        Print(ToLine(result.part));
    else if (result.part.is_string() && format_ != FindingFormat::JUnit)
        Print(result.part.get_ref<const std::string&>());
    else
        parts_.push_back(std::move(result.part));
}

void CheckReport::AddFailure(const std::string& message)
{
    status_ = Failure;
    failures_.push_back({"", message});
    PrintFailure(failures_.back());
}

void CheckReport::PrintFailure(const FailureRow& failure) const
{
    PrintError(failure.message);
    if (format_ == FindingFormat::Jsonl)
        Print(ToLine(WithVersion({{"deck", TextOrNull(failure.deck)}, {"failure", failure.message}})));
    else if (format_ == FindingFormat::GitHub)
        Print(GitHubFailure(failure.message));
}

void CheckReport::End()
{
    switch (format_) {
    case FindingFormat::Text:
        return PrintTotal();
    case FindingFormat::Json:
        return PrintJson();
    case FindingFormat::Sarif:
        return PrintSarif();
    case FindingFormat::JUnit:
        return PrintJUnit();
    case FindingFormat::Jsonl:
    case FindingFormat::Gcc:
    case FindingFormat::GitHub:
        break; // printed deck by deck
    }
}

void CheckReport::PrintTotal() const
{
    if (isQuiet_ || decks_ < 2)
        return;
    const auto count = [this](const char* name, const char* word) {
        return Plural(counts_[name].get<std::size_t>(), word);
    };
    Print(fmt::format("{}: {}, {}{}\n", Plural(decks_, "deck"), count("errors", "error"),
        count("warnings", "warning"),
        failures_.empty() ? "" : fmt::format(", {} can't be read", failures_.size())));
}

void CheckReport::PrintJson() const
{
    auto decks = ordered_json::array();
    auto findings = ordered_json::array();
    for (const ordered_json& part : parts_) {
        decks.push_back(part["deck"]);
        std::copy(part["findings"].begin(), part["findings"].end(), std::back_inserter(findings));
    }
    auto failures = ordered_json::array();
    for (const FailureRow& failure : failures_)
        failures.push_back({{"deck", TextOrNull(failure.deck)}, {"message", failure.message}});
    Print(ToText(WithVersion(
        {{"decks", decks}, {"counts", counts_}, {"findings", findings}, {"failures", failures}})));
}

void CheckReport::PrintSarif()
{
    // If memory runs out below, the log of that failure has no results, and not half of them.
    auto parts = std::exchange(parts_, {});
    std::vector<std::string> failures;
    for (const FailureRow& failure : failures_)
        failures.push_back(failure.message);
    auto results = ordered_json::array();
    for (ordered_json& part : parts)
        std::move(part.begin(), part.end(), std::back_inserter(results));
    Print(SarifLog(std::move(results), Decks::Codes(), failures));
}

void CheckReport::PrintJUnit() const
{
    std::string suites;
    for (const ordered_json& part : parts_)
        suites += part.get_ref<const std::string&>();
    for (const FailureRow& failure : failures_)
        suites += JUnitFailure(failure.deck.empty() ? "quor" : failure.deck, failure.message);
    Print(JUnitReport(suites));
}

} // namespace Veld::Quor::Tools

#include "tools/quor/language-server/Diagnostics.h"

#include "tools/quor/findings/FindingText.h"

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

constexpr std::size_t mostDiagnostics = 500;

/// As the protocol numbers them.
int NumberOf(Decks::Severity severity)
{
    switch (severity) {
    case Decks::Severity::Error:
        return 1;
    case Decks::Severity::Warning:
        return 2;
    case Decks::Severity::Note:
        break;
    }
    return 3;
}

Json RelatedOf(const Places& places, const Decks::Finding& finding)
{
    Json all = Json::array();
    for (const Decks::RelatedLocation& related : finding.related) {
        if (Json location = places.LocationOf(related.range); !location.is_null())
            all.push_back({{"location", std::move(location)}, {"message", related.message}});
    }
    return all;
}

Json FragmentNote()
{
    return {{"range", ToJson(Span())}, {"severity", 3}, {"source", "quor"},
        {"message",
            "the deck that includes this file was not found, so the file isn't checked\n"
            "open the deck, or set its path in the setting 'root'"}};
}

} // namespace

Json DiagnosticOf(const Places& places, const Decks::Finding& finding, Explanations& explanations)
{
    const auto span = places.SpanOf(finding.range);
    if (!span)
        return {};
    std::string message = WithMore(finding);
    if (!finding.hint.empty())
        message += '\n' + finding.hint;
    Json json = {{"range", ToJson(*span)}, {"severity", NumberOf(finding.severity)}, {"code", finding.code},
        {"source", "quor"}, {"message", std::move(message)}};
    if (const std::string uri = explanations.UriOf(finding.code); !uri.empty())
        json["codeDescription"] = {{"href", uri}};
    if (Json related = RelatedOf(places, finding); !related.empty())
        json["relatedInformation"] = std::move(related);
    return json;
}

std::map<std::string, Json> DiagnosticsOf(const Places& places, Explanations& explanations)
{
    std::map<std::string, Json> byUri;
    const Decks::Deck& deck = places.GetState().GetDeck();
    for (std::uint32_t file = 0; file < deck.GetFiles().GetSize(); ++file)
        byUri[places.UriOf(file)] = Json::array();
    if (places.GetState().IsFragment()) {
        byUri[places.UriOf(0)].push_back(FragmentNote());
        return byUri;
    }
    const Decks::Findings findings = deck.GetFindings().Fold(mostDiagnostics);
    for (const Decks::Finding& finding : findings) {
        Json diagnostic = DiagnosticOf(places, finding, explanations);
        Json& ofFile = byUri[places.UriOf(finding.range.file)];
        if (!diagnostic.is_null() && std::find(ofFile.begin(), ofFile.end(), diagnostic) == ofFile.end())
            ofFile.push_back(std::move(diagnostic));
    }
    return byUri;
}

} // namespace Veld::Quor::Tools::LanguageServer

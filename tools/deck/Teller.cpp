#include "tools/deck/Teller.h"

namespace Veld::Quor::Tools::Deck {

namespace {

constexpr std::size_t longestExcerpt = 160;

}

void Teller::Tell(
    const Spot& spot, const char* code, Severity severity, std::string message, std::string hint)
{
    if (isMuted_ || !findings_.Admit(severity))
        return;
    Finding finding;
    finding.code = code;
    finding.severity = severity;
    finding.place = files_.PlaceOf(spot);
    finding.length = spot.length;
    finding.message = std::move(message);
    finding.hint = std::move(hint);
    finding.includedFrom = files_.InclusionsOf(spot.file);
    const auto line = files_.LineOf(spot).first;
    const std::size_t offset = finding.place.column - 1;
    const std::size_t start = offset + spot.length <= longestExcerpt ? 0 : offset;
    finding.excerpt = line.substr(start, longestExcerpt);
    finding.excerptColumn = start + 1;
    findings_.Keep(std::move(finding));
}

} // namespace Veld::Quor::Tools::Deck

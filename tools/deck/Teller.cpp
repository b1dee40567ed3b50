#include "tools/deck/Teller.h"

namespace Veld::Quor::Tools::Deck {

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
    finding.SetExcerpt(files_.LineOf(spot).first);
    findings_.Keep(std::move(finding));
}

} // namespace Veld::Quor::Tools::Deck

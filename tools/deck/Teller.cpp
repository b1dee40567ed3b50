#include "tools/deck/Teller.h"

#include <utility>

namespace Veld::Quor::Tools::Deck {

void Teller::Tell(const Spot& spot, Code code, std::string message, std::string hint)
{
    const CodeInfo& info = InfoOf(code);
    if (isMuted_ || !findings_.Admit(info.severity))
        return;
    Finding finding;
    finding.code = info.name;
    finding.severity = info.severity;
    finding.place = files_.PlaceOf(spot);
    finding.length = spot.length;
    finding.message = std::move(message);
    finding.hint = std::move(hint);
    finding.includedFrom = files_.InclusionsOf(spot.file);
    finding.SetExcerpt(files_.LineOf(spot).first);
    findings_.Keep(std::move(finding));
}

} // namespace Veld::Quor::Tools::Deck

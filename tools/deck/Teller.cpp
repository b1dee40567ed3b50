#include "tools/deck/Teller.h"

#include <utility>

namespace Veld::Quor::Tools::Deck {

void Teller::Tell(const Spot& spot, Code code, std::string message, std::string hint)
{
    if (isMuted_)
        return;
    const CodeInfo& info = InfoOf(code);
    errors_ += info.severity == Severity::Error ? 1 : 0;
    if (code != Code::BadSilence && SilencesOf(spot.file).Cover(spot.offset, code)) {
        findings_.Hide(Hiding::Silenced);
        return;
    }
    if (isKnown_ && isKnown_(files_, spot, code)) {
        findings_.Hide(Hiding::Known);
        return;
    }
    if (!findings_.Admit(info.severity))
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

void Teller::TellBadSilences()
{
    constexpr std::size_t large = std::size_t(1) << 20;
    for (std::uint32_t file = 0; file < files_.GetSize(); ++file) {
        if (files_.GetText(file).size() < large)
            SilencesOf(file);
    }
}

const Silences& Teller::SilencesOf(std::uint32_t file)
{
    const SourceText& source = *files_.Get(file).text;
    const auto [at, isNew] = silences_.try_emplace(&source, source);
    if (isNew) {
        for (const Silences::Fault& fault : at->second.GetFaults())
            Tell({file, fault.offset, fault.length}, Code::BadSilence, fault.message, fault.hint);
    }
    return at->second;
}

} // namespace Veld::Quor::Tools::Deck

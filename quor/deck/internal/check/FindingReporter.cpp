#include "quor/deck/internal/check/FindingReporter.h"

#include <utility>

namespace Veld::Quor::Core::Decks {

void FindingReporter::Report(
    const TextRange& range, Code code, std::string message, std::string hint, std::vector<TextEdit> fix)
{
    const CodeInfo& info = InfoOf(code);
    if (isMuted_ || (info.isStrict && !isStrict_))
        return;
    errors_ += info.severity == Severity::Error ? 1 : 0;
    if (code != Code::BadSuppression && SuppressionsOf(range.file).Cover(range.offset, code)) {
        findings_.Hide(Hiding::Suppressed);
        return;
    }
    if (isKnown_ && isKnown_(files_, range, code)) {
        findings_.Hide(Hiding::Known);
        return;
    }
    if (!findings_.Admit(info.severity))
        return;
    Finding finding;
    finding.code = info.name;
    finding.severity = info.severity;
    finding.location = files_.LocationOf(range);
    finding.length = range.length;
    finding.range = range;
    finding.message = std::move(message);
    finding.hint = std::move(hint);
    if (!IsIncludedAgain(range.file))
        finding.fix = std::move(fix);
    finding.includedFrom = files_.InclusionsOf(range.file);
    findings_.Keep(std::move(finding), files_.LineOf(range).first);
}

void FindingReporter::ReportBadSuppressions()
{
    constexpr std::size_t large = std::size_t(1) << 20;
    for (std::uint32_t file = 0; file < files_.GetSize(); ++file) {
        if (files_.GetText(file).size() < large)
            SuppressionsOf(file);
    }
}

bool FindingReporter::IsIncludedAgain(std::uint32_t file) const
{
    for (std::uint32_t other = 0; other < file; ++other) {
        if (files_.Get(other).text == files_.Get(file).text)
            return true;
    }
    return false;
}

const Suppressions& FindingReporter::SuppressionsOf(std::uint32_t file)
{
    const SourceText& source = *files_.Get(file).text;
    const auto [at, isNew] = suppressions_.try_emplace(&source, source);
    if (isNew) {
        for (const Suppressions::Fault& fault : at->second.GetFaults())
            Report({file, fault.offset, fault.length}, Code::BadSuppression, fault.message, fault.hint);
    }
    return at->second;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/check/FindingReporter.h"

#include "quor/deck/internal/text/LineText.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

bool IsWordCharacter(char c)
{
    return IsLetter(c) || IsDigit(c);
}

/// Dots for all from the first opening quote to the last one that closes: what is quoted may have quotes too.
std::string WithoutQuoted(const std::string& text)
{
    std::size_t begin = text.find('\'');
    while (begin != std::string::npos && begin > 0 && IsWordCharacter(text[begin - 1])) // an apostrophe
        begin = text.find('\'', begin + 1);
    std::size_t end = text.rfind('\'');
    while (end != std::string::npos && end + 1 < text.size() && IsWordCharacter(text[end + 1]))
        end = end == 0 ? std::string::npos : text.rfind('\'', end - 1);
    if (begin == std::string::npos || end == std::string::npos || end <= begin)
        return text;
    return text.substr(0, begin + 1) + "..." + text.substr(end);
}

} // namespace

void FindingReporter::ReportAs(const FindingVoice& voice, const TextRange& range, Code code,
    std::string message, std::string hint, std::vector<TextEdit> fix, const std::vector<Related>& related)
{
    const CodeInfo& info = InfoOf(code);
    if (isMuted_)
        return;
    const Severity severity = voice.severity.value_or(info.severity);
    const std::string name = voice.code.empty() ? info.name : voice.code;
    const auto chosen = choices_.Choose(name, severity, info.isStrict && !voice.severity, isStrict_);
    errors_ += severity == Severity::Error ? 1 : 0; // Wanted: what the host chooses changes no data
    if (!chosen || (isReported_ && !IsReported(range, related)))
        return;
    if (code != Code::BadSuppression && ScanTo(range.file, range.offset).Cover(range.offset, name))
        return findings_.Hide(Hiding::Suppressed);
    if (isKnown_ && isKnown_(files_, range, code))
        return findings_.Hide(Hiding::Known);
    if (!voice.text.empty())
        message = voice.text;
    const bool isHidden = IsTextHidden(range.file);
    if (isHidden)
        message = WithoutQuoted(message);
    if (!findings_.Admit(*chosen, files_.Get(range.file).name, name, message))
        return;
    Finding finding;
    finding.code = name;
    finding.severity = *chosen;
    finding.location = files_.LocationOf(range);
    finding.length = range.length;
    finding.range = range;
    finding.message = std::move(message);
    finding.hint = isHidden ? WithoutQuoted(hint) : std::move(hint);
    if (!isHidden && !IsIncludedAgain(range.file))
        finding.fix = std::move(fix);
    for (const Related& other : related)
        finding.related.push_back({files_.LocationOf(other.range),
            isHidden || IsTextHidden(other.range.file) ? WithoutQuoted(other.message) : other.message,
            other.range});
    finding.includedFrom = files_.InclusionsOf(range.file);
    findings_.Keep(std::move(finding), isHidden ? std::string_view() : files_.LineOf(range).first);
}

void FindingReporter::ReportBadSuppressions(std::uint32_t file, std::size_t end)
{
    constexpr std::size_t large = std::size_t(1) << 20;
    const bool isScanned = suppressions_.count(files_.Get(file).text.get()) > 0;
    if (!isMuted_ && (isScanned || files_.GetText(file).size() < large))
        ScanTo(file, end);
}

/// Whether the finding is about a file whose findings are reported.
bool FindingReporter::IsReported(const TextRange& range, const std::vector<Related>& related) const
{
    return isReported_(files_.Get(range.file))
        || std::any_of(related.begin(), related.end(),
            [this](const Related& other) { return isReported_(files_.Get(other.range.file)); });
}

bool FindingReporter::IsIncludedAgain(std::uint32_t file) const
{
    for (std::uint32_t other = 0; other < file; ++other) {
        if (files_.Get(other).text == files_.Get(file).text)
            return true;
    }
    return false;
}

const Suppressions& FindingReporter::ScanTo(std::uint32_t file, std::size_t end)
{
    const SourceText& source = *files_.Get(file).text;
    auto& [suppressions, reported] = suppressions_.try_emplace(&source, source, ownCodes_).first->second;
    const auto& mistakes = suppressions.GetMistakes();
    while (reported < mistakes.size() && mistakes[reported].offset < end) {
        const Suppressions::Mistake& mistake = mistakes[reported++];
        Report({file, mistake.offset, mistake.length}, Code::BadSuppression, mistake.message, mistake.hint);
    }
    return suppressions;
}

} // namespace Veld::Quor::Core::Decks

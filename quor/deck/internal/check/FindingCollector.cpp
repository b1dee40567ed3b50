#include "quor/deck/internal/check/FindingCollector.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/TextHash.h"

#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

void AddLine(TextHash& hash, std::string_view text)
{
    for (const char c : text)
        hash.Add(c);
    hash.Add('\n');
}

} // namespace

std::uint64_t FindingKind(std::string_view file, std::string_view code, std::string_view message)
{
    TextHash hash;
    AddLine(hash, file);
    AddLine(hash, code);
    const auto isDigit = [&](std::size_t i) { return i < message.size() && IsDigit(message[i]); };
    const auto begins = [&](std::size_t i) { return isDigit(i) || (message[i] == '-' && isDigit(i + 1)); };
    bool isQuoted = false;
    for (std::size_t i = 0; i < message.size(); ++i) {
        isQuoted = isQuoted != (message[i] == '\'');
        const bool isNumber = !isQuoted && begins(i) && (i == 0 || message[i - 1] == ' ');
        if (!isNumber)
            hash.Add(message[i]);
        else
            i = std::min(message.find_first_not_of("-.,e+0123456789", i), message.size()) - 1;
    }
    return hash.Get();
}

bool FindingCollector::Admit(
    Severity severity, std::string_view file, std::string_view code, std::string_view message) const
{
    ++findings_->counts_[static_cast<std::size_t>(severity)];
    if (!IsFull())
        return true;
    ++findings_->omitted_;
    CountOmitted(FindingKind(file, code, message));
    return false;
}

/// Only of kinds that are kept: there are no more of them than the limit.
void FindingCollector::CountOmitted(std::uint64_t kind) const
{
    auto& counts = findings_->omittedLike_;
    if (counts.empty()) {
        for (const Finding& kept : findings_->kept_)
            counts.try_emplace(FindingKind(kept.location.file, kept.code, kept.message), 0);
    }
    if (const auto at = counts.find(kind); at != counts.end())
        ++at->second;
}

void FindingCollector::Keep(Finding finding, std::string_view line) const
{
    constexpr std::size_t longest = 160;
    const std::size_t offset = std::min(finding.location.column - 1, line.size());
    const std::size_t start = offset + finding.length <= longest ? 0 : offset;
    finding.excerpt = line.substr(start, longest);
    finding.excerptColumn = start + 1;
    findings_->kept_.push_back(std::move(finding));
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/check/FindingCollector.h"

#include <utility>

namespace Veld::Quor::Core::Decks {

bool FindingCollector::Admit(Severity severity) const
{
    ++findings_->counts_[static_cast<std::size_t>(severity)];
    if (!IsFull())
        return true;
    ++findings_->omitted_;
    return false;
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

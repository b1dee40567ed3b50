#include "quor/deck/Finding.h"

#include "quor/deck/internal/check/FindingCollector.h"

#include <fmt/format.h>

#include <utility>

namespace Veld::Quor::Core::Decks {

const char* ToString(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        return "note";
    }
    return "";
}

std::string MoreText(const Finding& finding)
{
    if (finding.more == 0)
        return {};
    std::string count = std::to_string(finding.more);
    for (std::size_t end = count.size(); end > 3; end -= 3)
        count.insert(end - 3, ",");
    return fmt::format("and {} more like it", count);
}

std::string ToString(const Finding& finding)
{
    return fmt::format("{}:{}:{}: {}: {}{}{}{}{} [{}]", finding.location.file, finding.location.line,
        finding.location.column, ToString(finding.severity), finding.message, finding.more > 0 ? ", " : "",
        MoreText(finding), finding.hint.empty() ? "" : "; ", finding.hint, finding.code);
}

Findings::Findings(std::size_t limit)
    : limit_(limit)
{
}

Findings::~Findings() = default;
Findings::Findings(const Findings&) = default;
Findings::Findings(Findings&&) noexcept = default;
Findings& Findings::operator=(Findings&&) noexcept = default;

Findings& Findings::operator=(const Findings& other)
{
    return *this = Findings(other); // whole, or not at all
}

Findings Findings::Fold(std::size_t limit) const
{
    Findings folded = *this;
    folded.limit_ = limit;
    folded.kept_.clear();
    folded.omittedLike_.clear();
    std::unordered_map<std::uint64_t, std::size_t> places; // in what is kept, by kind
    for (const Finding& finding : kept_) {
        const std::uint64_t kind = FindingKind(finding.location.file, finding.code, finding.message);
        const auto [place, isNew] = places.try_emplace(kind, folded.kept_.size());
        if (!isNew && place->second < folded.kept_.size())
            folded.kept_[place->second].more += finding.more + 1;
        else if (folded.kept_.size() >= limit)
            folded.omitted_ += finding.more + 1;
        else
            folded.kept_.push_back(finding);
    }
    for (const auto& [kind, count] : omittedLike_) {
        const std::size_t place = places.at(kind);
        if (place < folded.kept_.size()) {
            folded.kept_[place].more += count;
            folded.omitted_ -= count;
        }
    }
    return folded;
}

std::size_t Findings::GetCount(Severity severity) const
{
    return counts_[static_cast<std::size_t>(severity)];
}

bool Findings::IsClean() const
{
    return GetCount(Severity::Error) + GetCount(Severity::Warning) == 0;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/read/deck/SectionOrder.h"

#include "quor/deck/internal/check/KeywordValidity.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

bool IsValidIn(SectionType::Enum section, const Entry& entry)
{
    return section != SectionType::None && entry.valid.ofTarget.Allows(section);
}

} // namespace

void SectionOrder::Enter(SectionType::Enum section, const TextRange& name, const Entry& entry)
{
    current_ = headed_ = section;
    expected_ = SectionType::None;
    isSure_ = true;
    std::optional<TextRange>& range = ranges_[static_cast<std::size_t>(section)];
    if (range) {
        const Location location = files_.LocationOf(*range);
        reporter_.Report(name, Code::SectionOrder, fmt::format("section {} is repeated", entry.spelling),
            fmt::format(
                "section {} starts at {}:{}", entry.spelling, Printable(location.file), location.line));
        return;
    }
    range = name;
    if (furthest_ != SectionType::None && section < furthest_) {
        const std::string& furthest = SectionType::ToString(furthest_);
        reporter_.Report(name, Code::SectionOrder,
            fmt::format("section {} must come before section {}", entry.spelling, furthest),
            fmt::format("move section {} before section {}", entry.spelling, furthest));
        return;
    }
    furthest_ = section;
    if (const auto objection = FindObjection(entry, SectionType::None, target_))
        reporter_.Report(name, objection->code, objection->message, objection->hint);
}

bool SectionOrder::Accept(const TextRange& name, const Entry& entry)
{
    const bool isBeforeFirst = current_ == SectionType::None && isSure_ && !entry.valid.ofAny.HasAll();
    if (isBeforeFirst && !AssumeFirst(name, entry))
        return false;
    const auto objection = FindObjection(entry, GetSure(), target_);
    if (!objection) {
        if (!IsValidIn(expected_, entry))
            expected_ = SectionType::None;
        return true;
    }
    if (objection->code == Code::WrongSection && AssumeMissing(entry))
        return true;
    reporter_.Report(name, objection->code, objection->message,
        expected_ == SectionType::None
            ? objection->hint
            : fmt::format("move {0} to section {1}, or add the missing keyword {1} before it", entry.spelling,
                SectionType::ToString(expected_)));
    return false;
}

/// Reports, once, that the line of the first section is missing. Whether it is known which one that is.
bool SectionOrder::AssumeFirst(const TextRange& name, const Entry& entry)
{
    if (!std::exchange(isMissingReported_, true))
        reporter_.Report(name, Code::NoSection, fmt::format("{} is before the first section", entry.spelling),
            "start the deck with section RUNSPEC");
    if (!IsValidIn(SectionType::RUNSPEC, entry))
        return false;
    current_ = SectionType::RUNSPEC;
    return true;
}

/// Whether the line of a section seems to be missing before the keyword, which is so where one keyword after
/// the other belongs to a later section. The first of them was reported.
bool SectionOrder::AssumeMissing(const Entry& entry)
{
    const bool isBack = current_ != headed_ && IsValidIn(headed_, entry);
    if (isBack || IsValidIn(expected_, entry)) {
        current_ = isBack ? headed_ : expected_;
        expected_ = SectionType::None;
        return true;
    }
    const SectionType::Enum only = entry.valid.ofSimulator.GetOnly();
    const bool mayBeMissing =
        only != SectionType::None && only > current_ && (furthest_ == SectionType::None || only > furthest_);
    expected_ = mayBeMissing ? only : SectionType::None;
    return false;
}

std::size_t SectionOrder::GetCount() const
{
    return static_cast<std::size_t>(
        std::count_if(ranges_.begin(), ranges_.end(), [](const auto& range) { return range.has_value(); }));
}

} // namespace Veld::Quor::Core::Decks

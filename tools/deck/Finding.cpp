#include "tools/deck/Finding.h"

#include <utility>

namespace Veld::Quor::Tools::Deck {

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

Findings::Findings(std::size_t limit)
    : limit_(limit)
{
}

bool Findings::Admit(Severity severity)
{
    ++counts_[static_cast<std::size_t>(severity)];
    if (!IsFull())
        return true;
    ++omitted_;
    return false;
}

void Findings::Keep(Finding finding)
{
    kept_.push_back(std::move(finding));
}

std::size_t Findings::GetCount(Severity severity) const
{
    return counts_[static_cast<std::size_t>(severity)];
}

bool Findings::HasFault() const
{
    return GetCount(Severity::Error) + GetCount(Severity::Warning) > 0;
}

} // namespace Veld::Quor::Tools::Deck

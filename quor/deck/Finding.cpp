#include "quor/deck/Finding.h"

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

std::string ToString(const Finding& finding)
{
    return fmt::format("{}:{}:{}: {}: {}{}{} [{}]", finding.location.file, finding.location.line,
        finding.location.column, ToString(finding.severity), finding.message,
        finding.hint.empty() ? "" : "; ", finding.hint, finding.code);
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

std::size_t Findings::GetCount(Severity severity) const
{
    return counts_[static_cast<std::size_t>(severity)];
}

bool Findings::HasFault() const
{
    return GetCount(Severity::Error) + GetCount(Severity::Warning) > 0;
}

} // namespace Veld::Quor::Core::Decks

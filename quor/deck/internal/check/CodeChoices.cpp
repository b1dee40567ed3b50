#include "quor/deck/internal/check/CodeChoices.h"

#include "quor/deck/FindingCodes.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

bool IsStrictCode(const std::string& code)
{
    const CodeInfo* const info = FindInfo(code);
    return info && info->isStrict;
}

} // namespace

bool CodeChoices::WantsStrict() const
{
    return std::any_of(selected_.begin(), selected_.end(), IsStrictCode)
        || std::any_of(severities_.begin(), severities_.end(),
            [](const auto& row) { return row.second && IsStrictCode(row.first); });
}

std::optional<Severity> CodeChoices::Choose(
    std::string_view code, Severity severity, bool isStrictCode, bool isStrict) const
{
    const auto choice = severities_.find(code);
    const bool isSelected = selected_.find(code) != selected_.end();
    const bool isNamed = isSelected || choice != severities_.end();
    if ((isStrictCode && !isStrict && !isNamed) || (!selected_.empty() && !isSelected))
        return std::nullopt;
    return choice == severities_.end() ? severity : choice->second;
}

} // namespace Veld::Quor::Core::Decks

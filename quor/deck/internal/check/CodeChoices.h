#pragma once

#include "quor/deck/CodeInfo.h"
#include "quor/deck/Finding.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// What the host wants of the codes of findings.
class CodeChoices {
public:
    /// Empty: its findings are not reported.
    void SetSeverity(const std::string& code, std::optional<Severity> severity)
    {
        severities_.insert_or_assign(code, severity);
    }
    void Select(const std::string& code) { selected_.insert(code); }

    /// Whether findings of a strict code may be wanted.
    bool WantsStrict() const;
    /// Of a finding that has `severity` otherwise; empty: it isn't reported. A strict code is reported if it
    /// is named, or if `isStrict`.
    std::optional<Severity> Choose(
        std::string_view code, Severity severity, bool isStrictCode, bool isStrict) const;

private:
    std::map<std::string, std::optional<Severity>, std::less<>> severities_;
    std::set<std::string, std::less<>> selected_; // empty: all
};

} // namespace Veld::Quor::Core::Decks

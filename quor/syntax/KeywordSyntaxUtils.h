#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordSyntax;

/// The keywords for skipped blocks, and validity by mode.
class VELD_QUOR_EXPORT KeywordSyntaxUtils {
public:
    /// The keywords that open and close skipped blocks, of the process's table. Looked up at the first call,
    /// and at the first after the table was cleared. The document must have the keyword. Throws what
    /// `KeywordSyntaxTable::Instance` throws.
    /// @{
    static const IKeywordSyntax& GetSKIP();
    static const IKeywordSyntax& GetSKIPCAR();
    static const IKeywordSyntax& GetSKIPDUN();
    static const IKeywordSyntax& GetENDSKIP();
    /// @}

    /// Whether `syntax` is that very keyword; by identity, so also when it was found by an alias. False if
    /// the document lacks the keyword.
    /// @{
    static bool IsSKIP(const IKeywordSyntax& syntax);
    static bool IsSKIPCAR(const IKeywordSyntax& syntax);
    static bool IsSKIPDUN(const IKeywordSyntax& syntax);
    static bool IsENDSKIP(const IKeywordSyntax& syntax);
    /// @}

    /// `IKeywordSyntax::IsValid` for one mode, or for `SimulatorModeType::Any`. `spelling` is the keyword's
    /// name or an alias. A syntax that is not this library's own doesn't distinguish modes.
    static bool IsValid(const IKeywordSyntax& syntax, const std::string& spelling, SectionType::Enum section,
        SimulatorType::Enum simulator, SimulatorModeType::Enum mode);
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/syntax/SummaryCategories.h"

namespace Veld::Quor::Core::Keywords {

/// What a summary vector reports, by five categories; without a value where the document has none. Belongs
/// to its `IKeywordSyntax`.
class VELD_QUOR_EXPORT ISummaryMnemonicInfo {
public:
    /// The value of that category.
    /// @{
    virtual Service::Optional<SummaryFunction::Enum> GetFunction() const = 0;
    virtual Service::Optional<SummaryEntity::Enum> GetEntity() const = 0;
    virtual Service::Optional<SummaryOption::Enum> GetOption() const = 0;
    virtual Service::Optional<SummaryPhase::Enum> GetPhase() const = 0;
    virtual Service::Optional<SummaryFlow::Enum> GetFlow() const = 0;
    /// @}

protected:
    virtual ~ISummaryMnemonicInfo();
};

} // namespace Veld::Quor::Core::Keywords

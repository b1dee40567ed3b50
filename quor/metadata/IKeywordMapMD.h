#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordDataMD.h"

namespace Veld::Quor::Core::Keywords {

class IKeywordAssignmentMD;

/// A set of named integers: the assignments that the keyword knows by name, and wildcards for other names.
/// Indices are zero-based and not checked.
class VELD_QUOR_EXPORT IKeywordMapMD : public IKeywordDataMD {
public:
    ~IKeywordMapMD() override;

    /// Number of assignments that are no wildcards.
    virtual int GetSize() const = 0;
    /// Number of wildcards.
    virtual int GetWildcardSize() const = 0;
    /// Never null. Of the first `index` is below `GetSize()`, of the second below `GetWildcardSize()`.
    /// @{
    virtual const IKeywordAssignmentMD* GetItemMD(int index) const = 0;
    virtual const IKeywordAssignmentMD* GetWildcardItemMD(int index) const = 0;
    /// @}
    /// `SLASH` if the document says nothing.
    virtual TerminationType::Enum GetTermination() const = 0;
};

} // namespace Veld::Quor::Core::Keywords

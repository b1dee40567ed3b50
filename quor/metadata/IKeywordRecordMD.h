#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordDataMD.h"

namespace Veld::Quor::Core::Keywords {

class ISkippableInfo;
class IUnsupportedByMD;
class IValidityMD;

/// A fixed sequence of items. Indices are zero-based and not checked: 0 to `GetSize()` - 1.
class VELD_QUOR_EXPORT IKeywordRecordMD : public IKeywordDataMD {
public:
    ~IKeywordRecordMD() override;

    virtual int GetSize() const = 0;
    virtual const IKeywordDataMD* GetItemMD(int index) const = 0;
    virtual bool IsOptional(int index) const = 0;
    /// Whether the item tells one instance of the keyword from another.
    virtual bool IsIdentifier(int index) const = 0;
    virtual const IValidityMD& GetValidity(int index) const = 0;
    virtual const IUnsupportedByMD& GetUnsupportedBy(int index) const = 0;
    virtual ColumnConstraintType::Enum GetColumnConstraint(int index) const = 0;
    virtual TerminationType::Enum GetTermination() const = 0;
    /// Null if no item may be skipped.
    virtual ISkippableInfo* GetSkippableInfo() const = 0;
};

} // namespace Veld::Quor::Core::Keywords

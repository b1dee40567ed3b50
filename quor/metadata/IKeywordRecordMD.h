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

    /// Number of items.
    virtual int GetSize() const = 0;
    /// Never null in a record that was read from a document.
    virtual const IKeywordDataMD* GetItemMD(int index) const = 0;
    /// Whether a deck may leave the item out.
    virtual bool IsOptional(int index) const = 0;
    /// Whether the item is one of those that identify an instance of the keyword.
    virtual bool IsIdentifier(int index) const = 0;
    /// Where the item is valid; everywhere unless the document says otherwise.
    virtual const IValidityMD& GetValidity(int index) const = 0;
    /// Who accepts the item without effect; nobody unless the document says otherwise.
    virtual const IUnsupportedByMD& GetUnsupportedBy(int index) const = 0;
    /// The order from row to row, where the record is the row of a table.
    virtual ColumnConstraintType::Enum GetColumnConstraint(int index) const = 0;
    /// If the document says nothing: `SLASH` if the last item is a scalar that is optional or has a default,
    /// else `NONE`.
    virtual TerminationType::Enum GetTermination() const = 0;
    /// Null if no item may be skipped.
    virtual ISkippableInfo* GetSkippableInfo() const = 0;
};

} // namespace Veld::Quor::Core::Keywords

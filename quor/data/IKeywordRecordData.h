#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// One value for each item of the record's metadata, given or not. What an item's pointer is, its metadata
/// say: for an integer or a choice a `Service::Optional<int>`, for a real of `double`, for a boolean of
/// `bool`, for a string or a line of `std::string`; for a record, list, map or raw text the nested
/// `IKeywordData` itself, which always exists. Without a value means: not given. Defaults are in the
/// metadata, never here. Indices are not checked.
class VELD_QUOR_EXPORT IKeywordRecordData : public IKeywordData {
public:
    ~IKeywordRecordData() override;

    /// Number of items, which is that of the metadata.
    virtual int GetSize() const = 0;
    /// The item; see above for what it is. Lasts as long as the record, whatever is written. In the records
    /// that the library makes of one metadata a scalar is always at the same distance from the record.
    /// @{
    virtual void* GetData(int i) = 0;
    virtual const void* GetData(int i) const = 0;
    /// @}
    /// True for every class of the library.
    virtual bool ReservedRecordQuery() const = 0;

protected:
    /// For derived classes alone.
    IKeywordRecordData();
    IKeywordRecordData(const IKeywordRecordData&);
    IKeywordRecordData& operator=(const IKeywordRecordData&);
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/Export.h"

#include <memory>

namespace Veld::Quor::Core::Keywords {

class IKeywordDataMD;
class IKeywordSyntax;

/// A node of the data of one keyword. The tree of data has the shape of the keyword's metadata: list, record,
/// map or raw text. It belongs to whoever got it from the factory, and owns all its nodes; metadata and
/// syntax it only points to, and the table must outlive it. One thread at a time, or several that only read.
class VELD_QUOR_EXPORT IKeywordData {
public:
    virtual ~IKeywordData();

    /// A deep copy, which the caller owns. Only metadata and syntax are shared.
    virtual IKeywordData* Clone() const = 0;
    /// False for every class of the library.
    virtual bool ReservedQuery() const = 0;
    /// `KeywordDataEqual` of the two; throws what that throws.
    virtual bool operator==(const IKeywordData& other) const = 0;
    /// The node that this one mirrors. Data of different nodes are never equal, however alike the nodes are.
    virtual const IKeywordDataMD* GetMD() const = 0;
    /// The keyword; the same for all nodes of a tree.
    virtual const IKeywordSyntax* GetSyntax() const = 0;

    /// The same copy, owned from the start.
    std::unique_ptr<IKeywordData> CloneSafely() const { return std::unique_ptr<IKeywordData>(Clone()); }

protected:
    /// For derived classes alone.
    IKeywordData();
    IKeywordData(const IKeywordData&);
    IKeywordData& operator=(const IKeywordData&);
};

} // namespace Veld::Quor::Core::Keywords

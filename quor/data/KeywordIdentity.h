#pragma once

#include "quor/foundation/Export.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordData;
class IKeywordDataMD;

/// Identifies an instance of a keyword by the values of the items that are marked as identifiers. Of a
/// list only the first record counts. Points into the data, so it sees their values change, and is valid as
/// long as them.
class VELD_QUOR_EXPORT KeywordIdentity {
public:
    /// `data` may be null.
    explicit KeywordIdentity(const IKeywordData* data);
    ~KeywordIdentity();

    /// Whether the two are the same instance: null like null, the same keyword, the same identifiers. A
    /// string in single quotes equals the same one without. Without identifiers all instances of a keyword
    /// are the same.
    bool Compare(const IKeywordData* other) const;

    /// The name of the root's metadata and the identifiers that have a value: " " before each but a string,
    /// reals with 17 significant digits, choices by index. Empty for null data.
    std::string GetString() const;

private:
    using Identifier = std::pair<const IKeywordDataMD*, const void*>;

    void GetIdentifierValuesRecursive(const IKeywordData* data, int count);
    bool CompareIdentifierValuesRecursive(const IKeywordData* data, std::size_t& index) const;

    const IKeywordData* data_;
    std::vector<Identifier> identifiers_; // item's metadata, and the item
};

} // namespace Veld::Quor::Core::Keywords

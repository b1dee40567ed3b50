#pragma once

#include "quor/foundation/Export.h"

#include <set>
#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordListMD;
class IKeywordSyntax;

/// Questions over the whole table, each answered by a walk over all its visible keywords. A cell property
/// counts only if its data are a list. The order of a set is that of the addresses. The syntaxes are those of
/// `KeywordSyntaxTable::Instance()`; each question throws what that throws.
class VELD_QUOR_EXPORT KeywordSyntaxTableQueries {
public:
    /// What the elements of the list are.
    struct PropertyValueType {
        /// `Any`: whatever they are.
        enum Enum : int { Integer = 0, Real = 1, Any = 2 };
    };
    /// The table's, and valid as long as it.
    using Keywords = std::set<const IKeywordSyntax*>;

    /// All, those of integers, those of reals.
    /// @{
    static Keywords GetCellProperties();
    static Keywords GetIntCellProperties();
    static Keywords GetRealCellProperties();
    /// @}
    /// Empty for a measurement that no item has.
    static Keywords GetRealCellPropertiesByMeasurement(const std::string& measurement);

private:
    static Keywords GetCellProperties(PropertyValueType::Enum valueType);
    static bool MatchType(const IKeywordListMD* list, PropertyValueType::Enum valueType);
};

} // namespace Veld::Quor::Core::Keywords

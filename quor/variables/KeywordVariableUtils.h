#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

class IKeywordData;
class IKeywordVariables;
class IVariableProcessor;

/// The walk that finds variables.
class VELD_QUOR_EXPORT KeywordVariableUtils {
public:
    /// Hands each node of the tree that has variables to the processor, in pre-order. Below a list that has
    /// variables nothing is visited; of the elements of a list only records and lists are; a map only as root
    /// or item of a record.
    static void ProcessVariables(
        const IKeywordData& data, const IKeywordVariables& variables, IVariableProcessor& processor);
};

} // namespace Veld::Quor::Core::Keywords

#include "quor/data/KeywordListData.h"

#include "quor/foundation/internal/KeywordException.h"

namespace Veld::Quor::Core::Keywords {

void KeywordListFailure::InvalidIndex()
{
    // Wanted: value lists too name the class of the others.
    throw KeywordException("KeywordListPtrDataImpl_: invalid index");
}

void KeywordListFailure::NullValue(const char* operation)
{
    throw KeywordException(std::string(operation) + ": NULL pointer is not acceptable");
}

void KeywordListFailure::InconsistentType(const char* operation)
{
    throw KeywordException(std::string(operation) + ": data type inconsistent");
}

} // namespace Veld::Quor::Core::Keywords

#include "quor/syntax/internal/CellPropertyInfo.h"

#include "quor/foundation/internal/DocumentWords.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

ICellPropertyInfo::~ICellPropertyInfo() = default;

CellPropertyInfo::CellPropertyInfo(const std::string& keywordName, const TreeElement& element)
    : propertyName_(element.Has(Tag::Property) ? element.Get(Tag::Property) : keywordName)
    , components_(IsFlagged(element, Tag::Components))
    , copyLayerAbove_(IsFlagged(element, Tag::CopyLayerAboveByDefault))
    , matrixOnly_(IsFlagged(element, Tag::DualPorosityMatrixOnly))
{
}

CellPropertyInfo::~CellPropertyInfo() = default;

} // namespace Veld::Quor::Core::Keywords

#include "quor/syntax/internal/CellPropertyInfo.h"

#include "quor/foundation/internal/DocumentWords.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;

ICellPropertyInfo::~ICellPropertyInfo() = default;

CellPropertyInfo::CellPropertyInfo(const std::string& keywordName, const xercesc::DOMElement& element)
    : propertyName_(AttributeExists(&element, Tags::Property())
            ? GetAttributeValue(&element, Tags::Property())
            : keywordName)
    , components_(IsFlagged(element, Tags::Components()))
    , copyLayerAbove_(IsFlagged(element, Tags::CopyLayerAboveByDefault()))
    , matrixOnly_(IsFlagged(element, Tags::DualPorosityMatrixOnly()))
{
}

CellPropertyInfo::~CellPropertyInfo() = default;

} // namespace Veld::Quor::Core::Keywords

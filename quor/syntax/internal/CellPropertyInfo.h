#pragma once

#include "quor/metadata/TreeForward.h"
#include "quor/syntax/ICellPropertyInfo.h"

namespace Veld::Quor::Core::Keywords {

class CellPropertyInfo final : public ICellPropertyInfo {
public:
    CellPropertyInfo(const std::string& keywordName, const Service::XML::Internal::TreeElement& element);
    ~CellPropertyInfo() override;

    const std::string& GetPropertyName() const override { return propertyName_; }
    bool HasComponents() const override { return components_; }
    bool CopyLayerAboveByDefault() const override { return copyLayerAbove_; }
    bool DualPorosityMatrixOnly() const override { return matrixOnly_; }

private:
    std::string propertyName_;
    bool components_;
    bool copyLayerAbove_;
    bool matrixOnly_;
};

} // namespace Veld::Quor::Core::Keywords

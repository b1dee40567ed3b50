#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// What a keyword with a value for each grid cell says of that property. Belongs to its
/// `IKeywordSyntax`.
class VELD_QUOR_EXPORT ICellPropertyInfo {
public:
    /// The keyword's name unless the document says otherwise.
    virtual const std::string& GetPropertyName() const = 0;
    /// Whether there is a value for each component of the fluid.
    virtual bool HasComponents() const = 0;
    /// Whether a cell without a value takes that of the cell above it.
    virtual bool CopyLayerAboveByDefault() const = 0;
    /// Whether only the matrix cells of a dual-porosity grid have it.
    virtual bool DualPorosityMatrixOnly() const = 0;

protected:
    virtual ~ICellPropertyInfo();
};

} // namespace Veld::Quor::Core::Keywords

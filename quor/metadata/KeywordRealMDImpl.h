#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/ScalarMD.h"
#include "quor/metadata/TreeForward.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of a real: hosts read them through `IKeywordRealMD`, and need this class only to build metadata
/// by code.
class VELD_QUOR_EXPORT KeywordRealMDImpl
    : public NumericMD<IKeywordRealMD, IKeywordDataMD::MDType::Real, double> {
public:
    const std::string* GetMeasurement() const override { return measurement_; }

    /// As `KeywordLineMDImpl::ReadXML`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    const std::string* measurement_ = nullptr; // the process-wide pool's
};

} // namespace Veld::Quor::Core::Keywords

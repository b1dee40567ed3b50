#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordLineMD.h"
#include "quor/metadata/ScalarMD.h"
#include "quor/metadata/TreeForward.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of a line: hosts read them through `IKeywordLineMD`, and need this class only to build metadata
/// by code.
class VELD_QUOR_EXPORT KeywordLineMDImpl
    : public ScalarMD<IKeywordLineMD, IKeywordDataMD::MDType::Line, std::string> {
public:
    /// Fills a new object from its type element. `simulators` are those of the keyword: the default of the
    /// keyword goes to each of them. Throws `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);
};

} // namespace Veld::Quor::Core::Keywords

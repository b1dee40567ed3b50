#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/ScalarMD.h"
#include "quor/metadata/TreeForward.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of a string: hosts read them through `IKeywordStringMD`, and need this class only to build
/// metadata by code.
class VELD_QUOR_EXPORT KeywordStringMDImpl
    : public ScalarMD<IKeywordStringMD, IKeywordDataMD::MDType::String, std::string> {
public:
    bool IsCaseSensitive() const override { return caseSensitive_; }
    int LimitLengthTo() const override { return lengthLimit_; }
    bool CanContainComma() const override { return canContainComma_; }

    /// As `KeywordLineMDImpl::ReadXML`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    int lengthLimit_ = 8;
    bool caseSensitive_ = false;
    bool canContainComma_ = false;
};

} // namespace Veld::Quor::Core::Keywords

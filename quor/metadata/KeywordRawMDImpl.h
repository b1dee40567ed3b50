#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/MDNode.h"
#include "quor/metadata/TreeForward.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// Metadata of raw text: hosts read them through `IKeywordRawMD`, and need this class only to build metadata
/// by code.
class VELD_QUOR_EXPORT KeywordRawMDImpl : public MDNode<IKeywordRawMD, IKeywordDataMD::MDType::Raw> {
public:
    std::string GetTerminationString() const override { return terminationString_; }

    /// Fills a new object from its element. Throws `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element);

private:
    std::string terminationString_;
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IAliasesMD.h"
#include "quor/metadata/TreeForward.h"

#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The aliases of one choice, as `KeywordChoiceMDImpl` keeps them.
class VELD_QUOR_EXPORT AliasesMDImpl : public IAliasesMD {
public:
    /// An alias, and whether it is hidden: known, but not to be used any more.
    using Alias = std::pair<std::string, bool>;

    /// Starts empty whatever the argument, which is there for likeness with its sisters.
    explicit AliasesMDImpl(bool = true) { }

    /// In the order of the document.
    const std::vector<Alias>& GetAliasList() const { return aliases_; }

    /// Adds the aliases of the element. Case is kept, so a name must be in upper case to be matched. What it
    /// does not know it ignores.
    void ReadXML(const xercesc::DOMElement* element);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element);

private:
    std::vector<Alias> aliases_;
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/TreeForward.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// One word that ends a list. Part of `CustomReadTermination`.
class VELD_QUOR_EXPORT CustomReadStringTermination : public ICustomReadTermination {
public:
    /// The word is the text of the element, blanks included.
    explicit CustomReadStringTermination(const xercesc::DOMElement* element);
    /// The same for the loader.
    explicit CustomReadStringTermination(const Service::XML::Internal::TreeElement& element);

    /// Without regard to case. `matchFlag` becomes false on a match.
    bool Matches(const std::string& token, bool& matchFlag) const override;

private:
    std::string text_;
    bool caseSensitive_ = false; // no document sets these two yet
    bool matchFlag_ = false;
};

/// Any of several words, as the document lists them; hosts read it through `ICustomReadTermination`.
class VELD_QUOR_EXPORT CustomReadTermination : public ICustomReadTermination {
public:
    /// Throws `Service::Exception` for a child that is no word.
    explicit CustomReadTermination(const xercesc::DOMElement* element);
    /// The same for the loader.
    explicit CustomReadTermination(const Service::XML::Internal::TreeElement& element);

    bool Matches(const std::string& token, bool& matchFlag) const override;

private:
    std::vector<CustomReadStringTermination> alternatives_;
};

} // namespace Veld::Quor::Core::Keywords

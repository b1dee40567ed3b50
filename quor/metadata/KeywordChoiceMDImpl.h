#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/AliasesMDImpl.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/ScalarMD.h"
#include "quor/metadata/TreeForward.h"
#include "quor/metadata/UnsupportedByMDImpl.h"
#include "quor/metadata/ValidityMDImpl.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of a choice: hosts read them through `IKeywordChoiceMD`, and need this class only to build
/// metadata by code.
class VELD_QUOR_EXPORT KeywordChoiceMDImpl
    : public ScalarMD<IKeywordChoiceMD, IKeywordDataMD::MDType::Choice, int> {
public:
    /// One word with all that belongs to it.
    struct ChoiceMD {
        std::string text; ///< upper case if it came from a document
        ValidityMDImpl validity{true}; ///< everywhere at first
        UnsupportedByMDImpl unsupportedBy{false}; ///< nowhere at first
        AliasesMDImpl aliases; ///< none at first
    };

    int NumChoices() const override { return static_cast<int>(choices_.size()); }
    const std::string& GetChoice(int index) const override { return At(index).text; }
    const IValidityMD& GetValidity(int index) const override { return At(index).validity; }
    const IUnsupportedByMD& GetUnsupportedBy(int index) const override { return At(index).unsupportedBy; }
    int GetIndex(const std::string& text) const override;
    int GetIndex(const std::string& text, std::string& message) const override;
    ChoiceMatch Match(std::string_view text) const override;

    /// By index; lasts until a choice is added.
    const std::vector<ChoiceMD>& GetChoices() const { return choices_; }

    /// Appends, whether or not there is a choice of that text; in matching the first one wins.
    void AddChoice(ChoiceMD&& choice);
    /// Appends a choice without aliases, its text folded to upper case, unless there is one of that text.
    void AddChoice(
        const std::string& text, const ValidityMDImpl& validity, const UnsupportedByMDImpl& unsupportedBy);

    /// As `KeywordLineMDImpl::ReadXML`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    class PendingDefaults;

    const ChoiceMD& At(int index) const;
    std::string GetChoicesAsString() const;

    void ReadValues(const Service::XML::Internal::TreeElement& element);
    void ReadValue(const Service::XML::Internal::TreeElement& element);

    std::vector<ChoiceMD> choices_;
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/MDNode.h"
#include "quor/metadata/TreeForward.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class KeywordAssignmentMDImpl;

/// Metadata of a map: hosts read them through `IKeywordMapMD`, and need this class only to build metadata by
/// code.
class VELD_QUOR_EXPORT KeywordMapMDImpl : public MDNode<IKeywordMapMD, IKeywordDataMD::MDType::Map> {
public:
    KeywordMapMDImpl();
    ~KeywordMapMDImpl() override;
    KeywordMapMDImpl(const KeywordMapMDImpl&) = delete;
    KeywordMapMDImpl& operator=(const KeywordMapMDImpl&) = delete;

    int GetSize() const override { return static_cast<int>(namedCount_); }
    int GetWildcardSize() const override { return static_cast<int>(items_.size() - namedCount_); }
    const IKeywordAssignmentMD* GetItemMD(int index) const override;
    const IKeywordAssignmentMD* GetWildcardItemMD(int index) const override;
    /// The same, to be changed while the metadata are built.
    /// @{
    KeywordAssignmentMDImpl* GetItemMD(int index);
    KeywordAssignmentMDImpl* GetWildcardItemMD(int index);
    /// @}
    TerminationType::Enum GetTermination() const override { return termination_; }

    /// `SLASH` at first.
    void SetTermination(TerminationType::Enum termination) { termination_ = termination; }

    /// Appends the assignment, which is not null, to the wildcards or to the others, as `IsWildcard` says
    /// now.
    void AddItem(std::unique_ptr<KeywordAssignmentMDImpl> assignment);

    /// Fills a new object from its element. `simulators` are those of the keyword. Throws
    /// `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    KeywordAssignmentMDImpl* At(std::size_t index) const;

    std::vector<std::unique_ptr<KeywordAssignmentMDImpl>> items_; // the named ones first
    std::size_t namedCount_ = 0;
    TerminationType::Enum termination_ = TerminationType::SLASH; // unlike a record's or a list's
};

} // namespace Veld::Quor::Core::Keywords

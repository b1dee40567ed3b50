#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/MDNode.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class KeywordAssignmentMDImpl;

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
    KeywordAssignmentMDImpl* GetItemMD(int index);
    KeywordAssignmentMDImpl* GetWildcardItemMD(int index);
    TerminationType::Enum GetTermination() const override { return termination_; }

    void SetTermination(TerminationType::Enum termination) { termination_ = termination; }

    /// Takes its place behind the others of its sort: named assignments stand before wildcards.
    void AddItem(std::unique_ptr<KeywordAssignmentMDImpl> assignment);

    /// Fills a new object from its element. `simulators` are those of the keyword. Throws
    /// `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);

private:
    KeywordAssignmentMDImpl* At(std::size_t index) const;

    std::vector<std::unique_ptr<KeywordAssignmentMDImpl>> items_; // the named ones first
    std::size_t namedCount_ = 0;
    TerminationType::Enum termination_ = TerminationType::SLASH; // unlike a record's or a list's
};

} // namespace Veld::Quor::Core::Keywords

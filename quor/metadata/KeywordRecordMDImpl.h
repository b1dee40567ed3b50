#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/MDNode.h"
#include "quor/metadata/TreeForward.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class SkippableInfo;
class UnsupportedByMDImpl;
class ValidityMDImpl;

/// Metadata of a record: hosts read them through `IKeywordRecordMD`, and need this class only to build
/// metadata by code.
class VELD_QUOR_EXPORT KeywordRecordMDImpl : public MDNode<IKeywordRecordMD, IKeywordDataMD::MDType::Record> {
public:
    /// `inTable` is kept for hosts; the library always passes false.
    explicit KeywordRecordMDImpl(bool inTable = false);
    ~KeywordRecordMDImpl() override;
    KeywordRecordMDImpl(const KeywordRecordMDImpl&) = delete;
    KeywordRecordMDImpl& operator=(const KeywordRecordMDImpl&) = delete;

    int GetSize() const override;
    const IKeywordDataMD* GetItemMD(int index) const override;
    bool IsOptional(int index) const override;
    bool IsIdentifier(int index) const override;
    const IValidityMD& GetValidity(int index) const override;
    const IUnsupportedByMD& GetUnsupportedBy(int index) const override;
    ColumnConstraintType::Enum GetColumnConstraint(int index) const override;
    TerminationType::Enum GetTermination() const override { return termination_; }
    ISkippableInfo* GetSkippableInfo() const override;
    /// `NONE` at first.
    virtual void SetTermination(TerminationType::Enum termination) { termination_ = termination; }

    /// What the constructor was given.
    bool IsInTable() const { return inTable_; }

    /// Fills a new object from its element. `simulators` are those of the keyword. Throws
    /// `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

    /// Reads one item and appends it. The flags say whether a reader or a writer may skip it; only `ReadXML`
    /// keeps them. Throws `Service::Exception`, and the record is then as it was.
    void AddItem(const xercesc::DOMElement* itemElement, unsigned int itemNumber, bool& skippableOnRead,
        bool& skippableOnWrite, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void AddItem(const Service::XML::Internal::TreeElement& itemElement, unsigned int itemNumber,
        bool& skippableOnRead, bool& skippableOnWrite, const std::vector<SimulatorType::Enum>& simulators);
    /// Appends an item made by code, and owns it. The last two are copied; null: valid everywhere,
    /// unsupported nowhere.
    void AddItem(std::unique_ptr<IKeywordDataMDInternal> metadata, bool optional,
        const ValidityMDImpl* validity, const UnsupportedByMDImpl* unsupportedBy);

private:
    struct ItemMDInfo;

    const ItemMDInfo& At(int index) const;
    void ReadItems(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);
    void InferTermination();

    std::vector<ItemMDInfo> items_;
    std::unique_ptr<SkippableInfo> skippable_; // null: no item is marked
    TerminationType::Enum termination_ = TerminationType::NONE;
    bool inTable_;
};

} // namespace Veld::Quor::Core::Keywords

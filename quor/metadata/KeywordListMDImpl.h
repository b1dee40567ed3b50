#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/MDNode.h"
#include "quor/metadata/TreeForward.h"

#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of a list: hosts read them through `IKeywordListMD`, and need this class only to build metadata
/// by code.
class VELD_QUOR_EXPORT KeywordListMDImpl : public MDNode<IKeywordListMD, IKeywordDataMD::MDType::List> {
public:
    /// Without an item.
    KeywordListMDImpl();
    /// Owns the item; null: none.
    explicit KeywordListMDImpl(std::unique_ptr<IKeywordDataMDInternal> item);
    ~KeywordListMDImpl() override;
    KeywordListMDImpl(const KeywordListMDImpl&) = delete;
    KeywordListMDImpl& operator=(const KeywordListMDImpl&) = delete;

    const IKeywordDataMD* GetItemMD() const override;
    /// The same, to be changed while the metadata are built.
    IKeywordDataMD* GetItemMD();
    TerminationType::Enum GetTermination() const override { return termination_; }
    const ICustomReadTermination* GetCustomReadTermination() const override;
    const std::string* GetSize() const override { return size_.get(); }
    const std::string* GetMinSize() const override { return minSize_.get(); }
    const std::string* GetMaxSize() const override { return maxSize_.get(); }
    bool IsItemDefaultable() const override { return itemsDefaultable_; }
    bool FillEmptyElementsWithPreviousValue() const override { return fillWithPrevious_; }
    Service::Optional<bool> WriteStartingOnNewLine() const override { return startOnNewLine_; }
    Service::Optional<bool> WriteTerminationOnNewLine() const override { return terminationOnNewLine_; }

    /// Overwrites what was read or set before; `ReadXML` overwrites it in turn.
    void SetTermination(TerminationType::Enum termination) { termination_ = termination; }
    /// A count or an expression, as in a document. Not checked.
    /// @{
    void SetSize(std::string&& size);
    void SetMinSize(std::string&& size);
    void SetMaxSize(std::string&& size);
    /// @}

    /// Fills a new object from its element. `simulators` are those of the keyword. Throws
    /// `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    void ReadSizes(const Service::XML::Internal::TreeElement& element);
    void ReadFlags(const Service::XML::Internal::TreeElement& element);

    std::unique_ptr<IKeywordDataMDInternal> item_; // null: the document names none
    std::unique_ptr<ICustomReadTermination> customReadTermination_;
    std::unique_ptr<std::string> size_;
    std::unique_ptr<std::string> minSize_;
    std::unique_ptr<std::string> maxSize_;
    TerminationType::Enum termination_ = TerminationType::NONE;
    bool itemsDefaultable_ = false;
    bool fillWithPrevious_ = false;
    Service::Optional<bool> startOnNewLine_;
    Service::Optional<bool> terminationOnNewLine_;
};

} // namespace Veld::Quor::Core::Keywords

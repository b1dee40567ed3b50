#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/metadata/MDNode.h"
#include "quor/metadata/TreeForward.h"

#include <bitset>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of an assignment: hosts read them through `IKeywordAssignmentMD`, and need this class only to
/// build metadata by code.
class VELD_QUOR_EXPORT KeywordAssignmentMDImpl
    : public MDNode<IKeywordAssignmentMD, IKeywordDataMD::MDType::Assignment> {
public:
    KeywordAssignmentMDImpl();
    KeywordAssignmentMDImpl(KeywordAssignmentMDImpl&&) noexcept;
    KeywordAssignmentMDImpl& operator=(KeywordAssignmentMDImpl&&) noexcept;
    /// Copies description, defaults, limits, keys, validity and the wildcard mark; not name, number and
    /// overrides.
    explicit KeywordAssignmentMDImpl(const IKeywordAssignmentMD& other);
    ~KeywordAssignmentMDImpl() override;

    // All of these speak of the value, and are the embedded integer's.
    bool IsDefaultSpecified(SimulatorType::Enum simulator) const override;
    bool IsKeywordSupported(SimulatorType::Enum simulator) const override;
    bool hasOverride(SimulatorType::Enum simulator) const override;
    std::string GetOverrideType(SimulatorType::Enum simulator) const override;
    Service::Optional<int> GetDefault(SimulatorType::Enum simulator) const override;
    const Defaults& GetDefaults() const override;
    Service::Optional<int> GetMin() const override;
    Service::Optional<int> GetMax() const override;

    bool IsValid(SimulatorType::Enum simulator) const override;
    const std::vector<std::string>& GetKeys() const override { return keys_; }
    bool IsWildcard() const override { return wildcard_; }

    /// Makes `text`, trimmed and in upper case, the only key.
    void SetKey(const std::string& text);
    /// Replaces the keys, as they are.
    void SetKeys(const std::vector<std::string>& keys) { keys_ = keys; }
    /// Makes the assignment valid nowhere, whatever the argument.
    void SetValidity(bool valid);
    /// Writes one flag. Never `SimulatorType::Any`: not checked.
    void SetValidity(SimulatorType::Enum simulator, bool valid);
    /// Whether the keys are patterns; in a map it must be set before `KeywordMapMDImpl::AddItem`.
    void SetWildcard(bool wildcard) { wildcard_ = wildcard; }

    /// Fills a new object from its element. `simulators` are those of the keyword. Throws
    /// `Service::Exception`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    void ReadAliases(const Service::XML::Internal::TreeElement& element);
    void ReadValidity(const Service::XML::Internal::TreeElement& element);

    KeywordIntegerMDImpl integer_;
    std::vector<std::string> keys_;
    // Valid nowhere at first: unlike an item of a record, an assignment without a validity element stays so.
    std::bitset<SimulatorType::Count> validity_;
    bool wildcard_ = false;
};

} // namespace Veld::Quor::Core::Keywords

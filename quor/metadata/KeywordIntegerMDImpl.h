#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/ScalarMD.h"
#include "quor/metadata/TreeForward.h"

#include <atomic>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Metadata of an integer: hosts read them through `IKeywordIntegerMD`, and need this class only to build
/// metadata by code.
class VELD_QUOR_EXPORT KeywordIntegerMDImpl
    : public NumericMD<IKeywordIntegerMD, IKeywordDataMD::MDType::Integer, int> {
public:
    /// As `IKeywordAssignmentMD::Defaults`.
    using Defaults = DefaultTable<int>::Map;

    KeywordIntegerMDImpl();
    /// `other` may then only be destroyed or assigned to. The map of `GetDefaults` goes along.
    /// @{
    KeywordIntegerMDImpl(KeywordIntegerMDImpl&& other) noexcept;
    KeywordIntegerMDImpl& operator=(KeywordIntegerMDImpl&& other) noexcept;
    /// @}
    ~KeywordIntegerMDImpl() override;

    /// All defaults as a map, made at the first call; safe from several threads. Lasts until `SetDefaults` or
    /// a reader.
    virtual const Defaults& GetDefaults() const;

    /// Without a value: no limit. Not to be called once other threads read.
    /// @{
    void SetMin(const Service::Optional<int>& min) { min_ = min; }
    void SetMax(const Service::Optional<int>& max) { max_ = max; }
    /// @}
    /// Replaces all defaults; overrides stay. Not to be called once other threads read.
    void SetDefaults(const Defaults& defaults);

    /// As `KeywordLineMDImpl::ReadXML`.
    void ReadXML(const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);
    /// Limits, default and format alone. The simulators of the keyword get their defaults, but are not kept:
    /// `IsKeywordSupported` stays false.
    void InternalReadXML(
        const xercesc::DOMElement* element, const std::vector<SimulatorType::Enum>& simulators);
    /// The same for the loader.
    void InternalReadXML(const Service::XML::Internal::TreeElement& element,
        const std::vector<SimulatorType::Enum>& simulators);

private:
    void ForgetMap() noexcept;

    mutable std::atomic<const Defaults*> map_{nullptr}; // owned; null until asked for
};

} // namespace Veld::Quor::Core::Keywords

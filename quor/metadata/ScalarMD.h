#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/DefaultTable.h"
#include "quor/metadata/MDNode.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// What the scalars have in common: a default for each simulator, and the simulators of their keyword.
template <class Interface, IKeywordDataMD::MDType::Enum type, class T>
class VELD_QUOR_EXPORT ScalarMD : public MDNode<Interface, type> {
public:
    bool IsDefaultSpecified(SimulatorType::Enum simulator) const override { return defaults_.Has(simulator); }
    bool IsKeywordSupported(SimulatorType::Enum simulator) const override
    {
        return (simulators_ >> simulator & 1U) != 0;
    }
    bool hasOverride(SimulatorType::Enum simulator) const override
    {
        return defaults_.GetOverride(simulator) != DefaultType::None;
    }
    std::string GetOverrideType(SimulatorType::Enum simulator) const override
    {
        return DefaultType::ToString(defaults_.GetOverride(simulator));
    }
    Service::Optional<T> GetDefault(SimulatorType::Enum simulator) const override
    {
        return defaults_.Get(simulator);
    }

protected:
    void SetSimulators(const std::vector<SimulatorType::Enum>& simulators)
    {
        simulators_ = 0;
        for (const SimulatorType::Enum simulator : simulators)
            simulators_ |= 1U << simulator;
    }

    DefaultTable<T> defaults_;

private:
    std::uint32_t simulators_ = 0; // bit s: the keyword is valid for simulator s
};

/// The numbers: limits, and a format that may change after the load.
template <class Interface, IKeywordDataMD::MDType::Enum type, class T>
class VELD_QUOR_EXPORT NumericMD : public ScalarMD<Interface, type, T> {
public:
    Service::Optional<T> GetMin() const override { return min_; }
    Service::Optional<T> GetMax() const override { return max_; }
    const std::string* GetFormatting() const override { return formatting_.get(); }

    /// Not to be called while another thread reads the format; see `NumericFormatting`.
    void SetFormatting(const std::string& formatting)
    {
        formatting_ = std::make_unique<std::string>(formatting);
    }
    void ResetFormatting() { formatting_.reset(); }

protected:
    Service::Optional<T> min_;
    Service::Optional<T> max_;

private:
    std::unique_ptr<std::string> formatting_;
};

} // namespace Veld::Quor::Core::Keywords

// Part of the implementation of the scalar metadata: hosts use IKeywordItemMD and its family instead.

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

/// What the scalars have in common: a default for each simulator, and the simulators of their keyword. Part
/// of the implementation.
template <class Interface, IKeywordDataMD::MDType::Enum type, class T>
class VELD_QUOR_EXPORT ScalarMD : public MDNode<Interface, type> {
public:
    /// See `IKeywordItemMD`.
    bool IsDefaultSpecified(SimulatorType::Enum simulator) const override { return defaults_.Has(simulator); }
    /// See `IKeywordItemMD`.
    bool IsKeywordSupported(SimulatorType::Enum simulator) const override
    {
        return (simulators_ >> simulator & 1U) != 0;
    }
    /// See `IKeywordItemMD`.
    bool hasOverride(SimulatorType::Enum simulator) const override
    {
        return defaults_.GetOverride(simulator) != DefaultType::None;
    }
    /// See `IKeywordItemMD`.
    std::string GetOverrideType(SimulatorType::Enum simulator) const override
    {
        return DefaultType::ToString(defaults_.GetOverride(simulator));
    }
    /// See the interface of the type.
    Service::Optional<T> GetDefault(SimulatorType::Enum simulator) const override
    {
        return defaults_.Get(simulator);
    }

protected:
    /// The simulators that the keyword is valid for; replaces earlier ones.
    void SetSimulators(const std::vector<SimulatorType::Enum>& simulators)
    {
        simulators_ = 0;
        for (const SimulatorType::Enum simulator : simulators)
            simulators_ |= 1U << simulator;
    }

    /// Written by the readers of the derived classes.
    DefaultTable<T> defaults_;

private:
    std::uint32_t simulators_ = 0; // bit s: the keyword is valid for simulator s
};

/// The numbers: limits, and a format that may change after the load. Part of the implementation.
template <class Interface, IKeywordDataMD::MDType::Enum type, class T>
class VELD_QUOR_EXPORT NumericMD : public ScalarMD<Interface, type, T> {
public:
    /// See the interface of the type.
    Service::Optional<T> GetMin() const override { return min_; }
    /// See the interface of the type.
    Service::Optional<T> GetMax() const override { return max_; }
    /// See the interface of the type.
    const std::string* GetFormatting() const override { return formatting_.get(); }

    /// Not to be called while another thread reads the format; see `NumericFormatting`.
    void SetFormatting(const std::string& formatting)
    {
        formatting_ = std::make_unique<std::string>(formatting);
    }
    /// As `SetFormatting`; the item has no format then.
    void ResetFormatting() { formatting_.reset(); }

protected:
    /// Written by the readers of the derived classes.
    Service::Optional<T> min_;
    /// Written by the readers of the derived classes.
    Service::Optional<T> max_;

private:
    std::unique_ptr<std::string> formatting_;
};

} // namespace Veld::Quor::Core::Keywords

// Part of the implementation of the scalar metadata: hosts use GetDefault, IsDefaultSpecified and
// GetOverrideType of IKeywordItemMD and its family instead.

#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/Optional.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// What a document says of a default.
struct DefaultType {
    /// What the `type` attribute can say.
    enum Enum : int {
        None = 0, ///< nothing
        Calculated = 1,
        Specified = 2,
        NoDefault = 3,
    };
    /// "calculated", "specified" or "no default"; empty for `None`.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// The defaults of one scalar by simulator, `SimulatorType::Any` among the keys, and for which simulators the
/// document overrides them. A key may have no default, one without a value (calculated), or a value. Equal
/// values are kept once: nearly every item has one for all its simulators.
template <class T>
class DefaultTable {
public:
    /// Without a value: calculated.
    using Value = Service::Optional<T>;
    /// All defaults by key; a key without a default is not in it.
    using Map = std::map<SimulatorType::Enum, Value>;

    DefaultTable() = default;
    DefaultTable(const DefaultTable&) = default;
    DefaultTable& operator=(const DefaultTable&) = default;
    /// Leaves `other` without defaults: its positions must not outlive its values.
    DefaultTable(DefaultTable&& other) noexcept { *this = std::move(other); }
    /// As the move constructor.
    DefaultTable& operator=(DefaultTable&& other) noexcept
    {
        positions_ = std::exchange(other.positions_, 0);
        overrides_ = std::exchange(other.overrides_, 0);
        values_ = std::exchange(other.values_, {});
        return *this;
    }
    ~DefaultTable() = default;

    /// Whether the key has a default, calculated ones included.
    bool Has(SimulatorType::Enum key) const { return Position(key) != 0; }
    /// Without a value if the default is calculated or absent: `Has` says which.
    Value Get(SimulatorType::Enum key) const
    {
        const unsigned position = Position(key);
        return position == 0 ? Value() : values_[position - 1];
    }
    /// Replaces the default of the key. An override of it stays.
    void Set(SimulatorType::Enum key, const Value& value)
    {
        SetPosition(key, 0);
        SetPosition(key, PositionOf(value));
    }
    /// The key has no default then. An override of it stays.
    void Erase(SimulatorType::Enum key) { SetPosition(key, 0); }

    /// What the document says of the key in an override; `DefaultType::None` if it has none. Does not change
    /// the default.
    /// @{
    DefaultType::Enum GetOverride(SimulatorType::Enum key) const
    {
        return DefaultType::Enum(overrides_ >> OverrideShift(key) & 3U);
    }
    void SetOverride(SimulatorType::Enum key, DefaultType::Enum type)
    {
        overrides_ &= ~(3U << OverrideShift(key));
        overrides_ |= static_cast<std::uint32_t>(type) << OverrideShift(key);
    }
    /// @}

    /// A copy of all defaults.
    Map ToMap() const
    {
        Map map;
        ForEachKey([&](SimulatorType::Enum key) { map.emplace(key, Get(key)); });
        return map;
    }
    /// Replaces the defaults. The overrides stay.
    void Assign(const Map& map)
    {
        positions_ = 0;
        values_.clear();
        for (const auto& entry : map)
            Set(entry.first, entry.second);
    }

private:
    static constexpr int keyCount = SimulatorType::Any + 1;
    static constexpr unsigned positionBits = 4;
    static constexpr unsigned mostValues = (1U << positionBits) - 1;
    static_assert(keyCount * positionBits <= 64 && keyCount * 2 <= 32);

    static constexpr unsigned PositionShift(int key) { return positionBits * static_cast<unsigned>(key); }
    static constexpr unsigned OverrideShift(int key) { return 2 * static_cast<unsigned>(key); }

    /// One-based position of the key's value in `values_`; 0 for no default.
    unsigned Position(SimulatorType::Enum key) const
    {
        return static_cast<unsigned>(positions_ >> PositionShift(key)) & mostValues;
    }
    void SetPosition(SimulatorType::Enum key, unsigned position)
    {
        positions_ &= ~(std::uint64_t{mostValues} << PositionShift(key));
        positions_ |= std::uint64_t{position} << PositionShift(key);
    }
    /// Unlike `==` it distinguishes -0.0 from 0.0.
    static bool IsSame(const Value& a, const Value& b)
    {
        if constexpr (std::is_floating_point_v<T>)
            return a == b && (!a.HasValue() || std::signbit(*a) == std::signbit(*b));
        else
            return a == b;
    }
    unsigned PositionOf(const Value& value)
    {
        auto at = std::find_if(
            values_.begin(), values_.end(), [&](const Value& kept) { return IsSame(kept, value); });
        if (at == values_.end()) {
            if (values_.size() == mostValues)
                DropUnused();
            at = values_.insert(values_.end(), value);
        }
        return static_cast<unsigned>(at - values_.begin()) + 1;
    }
    /// There are fewer keys than positions, so this makes room.
    void DropUnused()
    {
        std::vector<Value> used;
        ForEachKey([&](SimulatorType::Enum key) {
            used.push_back(Get(key));
            SetPosition(key, static_cast<unsigned>(used.size()));
        });
        values_ = std::move(used);
    }
    template <class Visit>
    void ForEachKey(Visit visit) const
    {
        for (int key = 0; key < keyCount; ++key) {
            if (Has(SimulatorType::Enum(key)))
                visit(SimulatorType::Enum(key));
        }
    }

    std::uint64_t positions_ = 0;
    std::uint32_t overrides_ = 0;
    std::vector<Value> values_;
};

} // namespace Veld::Quor::Core::Keywords

#pragma once

#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <string>
#include <variant>

namespace Veld::Quor::Core::Keywords {
class IKeywordRecordData;
}

namespace Veld::Quor::Core::Decks {

/// Where there is no value. Unlike `std::monostate` it isn't trivial to copy: of a variant of texts and what
/// is trivial, GCC's library believes that it always holds a value, and destroys a text that could not be
/// copied.
struct NoValue {
    NoValue() noexcept { }
    NoValue(const NoValue&) noexcept { }
    NoValue& operator=(const NoValue&) noexcept { return *this; }
    ~NoValue() = default;

    friend bool operator==(const NoValue&, const NoValue&) { return true; }
};

/// A scalar of a keyword's data or metadata; `NoValue` if there is none. Of a choice its index.
using ScalarValue = std::variant<NoValue, bool, int, double, std::string>;

inline bool IsGiven(const ScalarValue& value)
{
    return value.index() != 0;
}

/// Of an item of a record, or an assignment of a map: `item` is its `Service::Optional`.
ScalarValue ItemValue(const Core::Keywords::IKeywordDataMD& md, const void* item);
/// Of a list's element, which is no `Service::Optional`.
ScalarValue ElementValue(const Core::Keywords::IKeywordDataMD& md, const void* element);

/// What the simulator takes for a value that a deck leaves out.
struct DefaultValue {
    bool isThere = false;
    ScalarValue value = {}; ///< not given if the simulator works it out

    friend bool operator==(const DefaultValue&, const DefaultValue&) = default;
};
DefaultValue DefaultOf(
    const Core::Keywords::IKeywordDataMD& md, Core::Keywords::SimulatorType::Enum simulator);

/// Whether the two say the same: the case of a text may not matter.
bool MeanSame(const Core::Keywords::IKeywordDataMD& md, const ScalarValue& a, const ScalarValue& b);

/// As it is in a deck, a text without quotes; empty for a value that isn't given.
std::string ToText(const Core::Keywords::IKeywordDataMD& md, const ScalarValue& value);
/// "none", "calculated", or the value.
std::string ToText(const Core::Keywords::IKeywordDataMD& md, const DefaultValue& value);

/// The values of a record, or those of its first items, on one line.
std::string RecordText(const Core::Keywords::IKeywordRecordData& record);

/// The item as people know it: its name or its number.
std::string ItemName(const Core::Keywords::IKeywordDataMD& md);

} // namespace Veld::Quor::Core::Decks

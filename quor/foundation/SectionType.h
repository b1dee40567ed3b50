#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/EnumInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The sections of a deck, in their order there.
struct SectionType {
    /// In the order of a deck, from 0; `None` is none of them.
    enum Enum : int {
        RUNSPEC = 0,
        GRID = 1,
        EDIT = 2,
        PROPS = 3,
        REGIONS = 4,
        SOLUTION = 5,
        SUMMARY = 6,
        SCHEDULE = 7,
        OPTIMIZE = 8,
        None = 10, ///< no section
    };
    static constexpr int Count = 9; ///< members with a row in the table

    /// The rows in the order of the values; the same object on every call, never freed. For the library only:
    /// not exported.
    static const std::vector<Service::EnumInfo<SectionType>>& EnumInfos();

    /// Exact, case included, and not null. For an unknown name the answer is value 0, and only `found`, which
    /// may be null, says so.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
    /// @}
    /// Empty for a value that has no string form. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

} // namespace Veld::Quor::Core::Keywords

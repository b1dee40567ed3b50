#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

// The five categories of a summary vector. `ToString` gives the name of a value for people, and `FromString`
// takes the text that a document uses, which is the same but for one.

/// What a vector reports on.
struct SummaryEntity {
    /// In the order of the names.
    enum Enum : int {
        Aquifer = 0,
        AquiferGradient = 1,
        Block = 2,
        BlockGradient = 3,
        Completion = 4,
        ConductiveFault = 5,
        Field = 6,
        General = 7,
        Group = 8,
        GroupGradient = 9,
        LGRBlock = 10,
        LGRBlockGradient = 11,
        LGRCompletion = 12,
        LGRWell = 13,
        LGRWellGradient = 14,
        Region = 15,
        RegionFlow = 16,
        Segment = 17,
        Well = 18,
        WellGradient = 19,
    };
    /// The name, as `ToString` gives it: with blanks ("Aquifer Gradient"). Exact, case included, and not
    /// null. For an unknown text the answer is value 0, and only `found`, which may be null, says so.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    /// @}
    /// The name for people; empty for a value that has none. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// Which way the flow goes.
struct SummaryFlow {
    /// In the order of the names.
    enum Enum : int {
        Injection = 0,
        Production = 1,
    };
    /// As `SummaryEntity::FromString`.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    /// @}
    /// The name for people; empty for a value that has none. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// What a vector says of a quantity.
struct SummaryFunction {
    /// In the order of the names.
    enum Enum : int {
        Historical = 0,
        Rate = 1,
        Total = 2,
    };
    /// As `SummaryEntity::FromString`.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    /// @}
    /// The name for people; empty for a value that has none. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// The option of the simulator that a vector belongs to.
struct SummaryOption {
    /// In the order of the names.
    enum Enum : int {
        API = 0,
        Aquifer = 1,
        ConductiveFault = 2,
        Flow = 3,
    };
    /// As `SummaryEntity::FromString`, except that documents write "Aqui" for the aquifer, and "Aquifer" is
    /// unknown.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    /// @}
    /// The name for people; empty for a value that has none. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// The phase that a vector concerns.
struct SummaryPhase {
    /// In the order of the names.
    enum Enum : int {
        Gas = 0,
        Liquid = 1,
        Oil = 2,
        Volume = 3,
        Water = 4,
    };
    /// As `SummaryEntity::FromString`.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    /// @}
    /// The name for people; empty for a value that has none. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

} // namespace Veld::Quor::Core::Keywords

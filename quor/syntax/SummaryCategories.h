#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

// The five categories of a summary vector. `ToString` gives the name of a value for people, and `FromString`
// takes the text that a document uses, which is the same but for one.

/// What a vector reports on.
struct SummaryEntity {
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
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// Which way the flow goes.
struct SummaryFlow {
    enum Enum : int {
        Injection = 0,
        Production = 1,
    };
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// What a vector tells of a quantity.
struct SummaryFunction {
    enum Enum : int {
        Historical = 0,
        Rate = 1,
        Total = 2,
    };
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// The option of the simulator that a vector belongs to.
struct SummaryOption {
    enum Enum : int {
        API = 0,
        Aquifer = 1,
        ConductiveFault = 2,
        Flow = 3,
    };
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

/// The phase that a vector concerns.
struct SummaryPhase {
    enum Enum : int {
        Gas = 0,
        Liquid = 1,
        Oil = 2,
        Volume = 3,
        Water = 4,
    };
    VELD_QUOR_EXPORT static Enum FromString(const std::string& text, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* text, bool* found = nullptr);
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

} // namespace Veld::Quor::Core::Keywords

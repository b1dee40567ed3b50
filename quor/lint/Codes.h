#pragma once

#include "quor/deck/Finding.h"
#include "quor/foundation/Export.h"

#include <vector>

namespace Veld::Quor::Core::Lint {

/// What can be wrong with a syntax document; `InfoOf` has the meaning of each. The numbers may change from
/// version to version, the names of `CodeInfo` do not.
enum class Code {
    NotWellFormed,
    NoKeyword,
    NestedKeyword,
    UnknownElement,
    IgnoredElement,
    IgnoredAttribute,
    PassedOver,
    StrayText,
    RepeatedElement,
    SecondType,
    MissingType,
    EmptyElement,
    MissingAttribute,
    ListedTwice,
    FlagText,
    UnknownSimulator,
    UnknownMode,
    UnknownSection,
    UnknownOverride,
    UnknownTermination,
    UnknownConstraint,
    UnknownCategory,
    SupportLevel,
    NoEntity,
    LateValidity,
    ModelessSimulator,
    ValidNowhere,
    EntryWithoutEffect,
    DefaultType,
    ChoiceDefaultType,
    DefaultValue,
    IgnoredValue,
    NumberText,
    CrossedLimits,
    DefaultOutside,
    BooleanText,
    DefaultNoChoice,
    DefaultNotInFull,
    LostOverride,
    OverrideElsewhere,
    LowerCase,
    UnreachableWord,
    NoKey,
    NameLength,
    NameText,
    DefinedTwice,
    KeyTwice,
    WildcardOverlap,
    UnknownKeyword,
    PrecedentCycle,
    NoDescription,
    DefaultableContainer,
    TerminationOverridden,
    NoTerminationWords,
    SizeConflict,
    ConstraintOnText,
    CellWithoutList,
    BlankFormat,
    UnseenIdentifier,
    Count, ///< no code: how many there are
};

/// What is fixed of a code.
struct CodeInfo {
    Code code; ///< the position of the row
    const char* name; ///< stable; programs can rely on it
    Core::Decks::Severity severity; ///< an error if the load fails
    const char* meaning; ///< one sentence
};

/// One row for each code, in the order of the codes. Lasts as long as the process.
VELD_QUOR_EXPORT const std::vector<CodeInfo>& Codes();
/// The row of the code; never `Code::Count`.
VELD_QUOR_EXPORT const CodeInfo& InfoOf(Code code);

} // namespace Veld::Quor::Core::Lint

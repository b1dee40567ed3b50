#pragma once

#include "quor/deck/CodeInfo.h"
#include "quor/foundation/Export.h"

#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Lint {

/// What can be wrong with a syntax document; `InfoOf` has the meaning of each. The numbers may change from
/// version to version, the names of `CodeInfo` do not.
enum class Code {
    NotWellFormed,
    ShortForm,
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
    WrongRule,
};

/// What each code means, in the order of the codes. Valid as long as the library.
VELD_QUOR_EXPORT const std::vector<Core::Decks::CodeInfo>& Codes();
/// What the code means.
VELD_QUOR_EXPORT const Core::Decks::CodeInfo& InfoOf(Code code);
/// The same by the name of the code, as in `Finding::code`; letter by letter. Null if there is no such code.
VELD_QUOR_EXPORT const Core::Decks::CodeInfo* FindInfo(std::string_view name);

} // namespace Veld::Quor::Core::Lint

#pragma once

#include "quor/deck/CodeInfo.h"
#include "quor/foundation/Export.h"

#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What can be wrong with a deck; `InfoOf` has the meaning of each. The numbers may change from version to
/// version, the names of `CodeInfo` do not.
enum class Code {
    UnknownKeyword,
    LowerCase,
    StrayText,
    NoSection,
    SectionOrder,
    WrongSection,
    WrongSimulator,
    WrongMode,
    MissingPrecedent,
    TooFewValues,
    TooManyValues,
    NoDefault,
    WrongType,
    OutOfRange,
    ColumnOrder,
    WrongSize,
    BadRepeat,
    LongText,
    NotAChoice,
    AbbreviatedWord,
    DeprecatedWord,
    ChoiceNotValid,
    ChoiceUnsupported,
    ItemNotValid,
    ItemUnsupported,
    UnknownName,
    UnknownVariable,
    BadDate,
    DateOrder,
    UnclosedData,
    UnclosedQuote,
    UnclosedText,
    UnclosedSkip,
    UnclosedScope,
    StrayEnd,
    StrayEndskip,
    StrayEndinc,
    IncludeName,
    IncludeMissing,
    IncludeLoop,
    IncludeDepth,
    IncludeCount,
    UnknownAlias,
    Encoding,
    BadSuppression,
    RemarkText,
    ExtraSlash,
    IndentedKeyword,
    PaddedText,
    BlankText,
    ExtraDefault,
    OldForm,
    QuotedAssignment,
    ImplicitEnd,
    UnclosedList,
    LongKeyword,
    CommaInNumber,
    OddCharacter,
    TextAfterKeyword,
    RepeatedDate,
    UndefinedName,
    IndexOutside,
    IndexOrder,
    RegionOutside,
    MissingKeyword,
    ConflictingKeywords,
    RepeatedKeyword,
    TooManyNames,
    MissingItem,
    RepeatedRecord,
    RepeatedArray,
    NameTree,
    SaturationEnd,
    SaturationMismatch,
    CapillaryOrder,
    ContactOrder,
    DatumDepth,
    FluidZero,
    FluidTrend,
    TotalCompressibility,
    WrongUnits,
    ImplausibleValue,
    WellDepth,
    FractionSum,
    CellJump,
    InvertedCell,
    InactiveConnection,
};

/// What each code means, in the order of the codes. Valid as long as the library.
VELD_QUOR_EXPORT const std::vector<CodeInfo>& Codes();
/// What the code means.
VELD_QUOR_EXPORT const CodeInfo& InfoOf(Code code);
/// The same by the name of the code, as in `Finding::code`; letter by letter. Null if there is no such code.
VELD_QUOR_EXPORT const CodeInfo* FindInfo(std::string_view name);

} // namespace Veld::Quor::Core::Decks

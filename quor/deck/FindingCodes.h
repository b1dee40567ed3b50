#pragma once

#include "quor/deck/Finding.h"
#include "quor/deck/Target.h"
#include "quor/foundation/Export.h"

#include <vector>

namespace Veld::Quor::Core::Decks {

/// What can be wrong with a deck. Hosts go by the name of the code: the numbers change when a code comes in
/// between.
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
    BadSilence,
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
    Count,
};

/// A code, and what it means. The texts are never freed.
struct CodeInfo {
    Code code; ///< the position of the row
    const char* name; ///< stable, for programs to go by
    Severity severity; ///< of its findings
    const char* meaning; ///< one sentence
    bool isStrict = false; ///< reported only if asked for: simulators accept what it reports
};

/// One row for each code, in the order of the codes. Valid as long as the library.
VELD_QUOR_EXPORT const std::vector<CodeInfo>& Codes();
/// The row of a code, which is not `Count`.
VELD_QUOR_EXPORT const CodeInfo& InfoOf(Code code);

/// What to do about the findings of a code.
struct Remedy {
    Code code; ///< whose findings it fixes
    const char* text; ///< one or two sentences
    const char* wrong; ///< a deck that has such a finding and no other; empty if one file can't show it
    const char* right; ///< the same, fixed; empty if one file can't show it
    Target target = {}; ///< for which the decks are
};

/// For a code that is not `Count`. Valid as long as the library.
VELD_QUOR_EXPORT const Remedy& RemedyOf(Code code);

} // namespace Veld::Quor::Core::Decks

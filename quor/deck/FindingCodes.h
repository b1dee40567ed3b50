#pragma once

#include "quor/deck/Finding.h"

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
    Count,
};

struct CodeInfo {
    Code code;
    const char* name; ///< stable, for programs to go by
    Severity severity;
    const char* meaning; ///< one sentence
};

/// One row for each code, in the order of the codes.
VELD_QUOR_EXPORT const std::vector<CodeInfo>& Codes();
VELD_QUOR_EXPORT const CodeInfo& InfoOf(Code code);

} // namespace Veld::Quor::Core::Decks

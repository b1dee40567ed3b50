#include "quor/deck/FindingCodes.h"

#include <cassert>
#include <cstddef>

namespace Veld::Quor::Core::Decks {

const std::vector<CodeInfo>& Codes()
{
    constexpr auto error = Severity::Error;
    constexpr auto warning = Severity::Warning;
    static const std::vector<CodeInfo> rows = {
        {Code::UnknownKeyword, "unknown-keyword", error, "A word where a keyword is expected is none."},
        {Code::LowerCase, "lower-case", error, "A keyword isn't in upper case."},
        {Code::StrayText, "stray-text", error, "Text stands where neither data nor a comment may."},
        {Code::NoSection, "no-section", error,
            "A keyword stands before the first section, or there is no keyword."},
        {Code::SectionOrder, "section-order", error, "A section is repeated, or stands too late."},
        {Code::WrongSection, "wrong-section", error, "A keyword isn't valid in its section."},
        {Code::WrongSimulator, "wrong-simulator", error, "A keyword isn't valid for the simulator."},
        {Code::WrongMode, "wrong-mode", error, "A keyword isn't valid in the mode of the simulator."},
        {Code::MissingPrecedent, "missing-precedent", error,
            "A keyword that another one needs doesn't stand before it."},
        {Code::TooFewValues, "too-few-values", error, "A record ends before values that have no default."},
        {Code::TooManyValues, "too-many-values", error, "A record has more values than items."},
        {Code::NoDefault, "no-default", error, "A value is left to a default that it hasn't got."},
        {Code::WrongType, "wrong-type", error, "A value isn't of the type of its item."},
        {Code::OutOfRange, "out-of-range", error, "A value is beyond its limits."},
        {Code::ColumnOrder, "column-order", error, "The values of a column don't rise or fall as they must."},
        {Code::WrongSize, "wrong-size", error, "There are more or fewer values than the deck's sizes say."},
        {Code::BadRepeat, "bad-repeat", error, "A repeat count is 0 or too large, or stands at a name."},
        {Code::LongText, "long-text", warning, "Of a text only the beginning counts."},
        {Code::NotAChoice, "not-a-choice", error, "A word isn't one of those that an item may have."},
        {Code::AbbreviatedWord, "abbreviated-word", warning, "A word is an abbreviation."},
        {Code::DeprecatedWord, "deprecated-word", warning, "A word is an old one that may go."},
        {Code::ChoiceNotValid, "choice-not-valid", error, "A word isn't valid for the simulator."},
        {Code::ChoiceUnsupported, "choice-unsupported", warning, "A word has no effect for the simulator."},
        {Code::ItemNotValid, "item-not-valid", error, "A value is given that the simulator doesn't take."},
        {Code::ItemUnsupported, "item-unsupported", warning, "A value has no effect for the simulator."},
        {Code::UnknownName, "unknown-name", error, "A name isn't one of those that a keyword takes."},
        {Code::UnknownVariable, "unknown-variable", error, "A variable has no value."},
        {Code::BadDate, "bad-date", error, "A date isn't one of the calendar."},
        {Code::DateOrder, "date-order", error, "The time of the schedule doesn't go forward."},
        {Code::UnclosedData, "unclosed-data", error, "A record or a list isn't closed by its slash."},
        {Code::UnclosedQuote, "unclosed-quote", error, "A quote isn't closed on its line, or wasn't opened."},
        {Code::UnclosedText, "unclosed-text", error, "The text of a keyword has no end."},
        {Code::UnclosedSkip, "unclosed-skip", error, "A skipped block has no end."},
        {Code::UnclosedScope, "unclosed-scope", error,
            "What a keyword opens isn't closed by its end keyword."},
        {Code::StrayEnd, "stray-end", error, "A keyword ends what nothing has opened."},
        {Code::StrayEndskip, "stray-endskip", error, "The end of a skipped block ends none."},
        {Code::StrayEndinc, "stray-endinc", warning,
            "The end of an included file stands in a file that isn't included."},
        {Code::IncludeName, "include-name", error, "The name of a file to include is missing or unclosed."},
        {Code::IncludeMissing, "include-missing", error, "A file to include can't be read."},
        {Code::IncludeLoop, "include-loop", error, "A file is included in itself."},
        {Code::IncludeDepth, "include-depth", error, "Too many files are included in one another."},
        {Code::IncludeCount, "include-count", error, "Too many files are included."},
        {Code::UnknownAlias, "unknown-alias", error, "The name of a file has an alias that isn't defined."},
        {Code::Encoding, "encoding", error, "A file is in an encoding that decks can't be in."},
        {Code::BadSilence, "bad-silence", warning, "A comment that silences findings can't be followed."},
    };
    assert(rows.size() == static_cast<std::size_t>(Code::Count) && "Codes: a row is missing");
    return rows;
}

const CodeInfo& InfoOf(Code code)
{
    const CodeInfo& info = Codes()[static_cast<std::size_t>(code)];
    assert(info.code == code && "InfoOf: a row is not in its place");
    return info;
}

} // namespace Veld::Quor::Core::Decks

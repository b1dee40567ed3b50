#include "quor/deck/FindingCodes.h"

#include <cassert>
#include <cstddef>

namespace Veld::Quor::Core::Decks {

const std::vector<CodeInfo>& Codes()
{
    constexpr auto error = Severity::Error;
    constexpr auto warning = Severity::Warning;
    static const std::vector<CodeInfo> rows = {
        {Code::UnknownKeyword, "unknown-keyword", error, "A word is not a known keyword."},
        {Code::LowerCase, "lower-case", error, "A keyword is not in upper case."},
        {Code::StrayText, "stray-text", error, "Text is neither a keyword, nor data, nor a comment."},
        {Code::NoSection, "no-section", error,
            "A keyword is before the first section, or the deck has no keywords."},
        {Code::SectionOrder, "section-order", error, "A section is repeated or in the wrong order."},
        {Code::WrongSection, "wrong-section", error, "A keyword is not valid in its section."},
        {Code::WrongSimulator, "wrong-simulator", error, "A keyword is not valid for the simulator."},
        {Code::WrongMode, "wrong-mode", error, "A keyword is not valid in the mode of the simulator."},
        {Code::MissingPrecedent, "missing-precedent", error,
            "A keyword that must come before another one is missing."},
        {Code::TooFewValues, "too-few-values", error, "A record ends before items that have no default."},
        {Code::TooManyValues, "too-many-values", error, "A record or a list has too many values."},
        {Code::NoDefault, "no-default", error, "A value is omitted that has no default."},
        {Code::WrongType, "wrong-type", error, "A value does not have the type of its item."},
        {Code::OutOfRange, "out-of-range", error, "A value is out of range."},
        {Code::ColumnOrder, "column-order", error,
            "The values of a table column are not in the required order."},
        {Code::WrongSize, "wrong-size", error, "A list does not have the size that the deck sets."},
        {Code::BadRepeat, "bad-repeat", error, "A repeat count is invalid."},
        {Code::LongText, "long-text", warning, "A text is too long; the rest is ignored."},
        {Code::NotAChoice, "not-a-choice", error, "A value is not one of those that the item accepts."},
        {Code::AbbreviatedWord, "abbreviated-word", warning, "A value is an abbreviation."},
        {Code::DeprecatedWord, "deprecated-word", warning, "A value has a deprecated name."},
        {Code::ChoiceNotValid, "choice-not-valid", error, "A value is not valid for the simulator."},
        {Code::ChoiceUnsupported, "choice-unsupported", warning, "A value has no effect for the simulator."},
        {Code::ItemNotValid, "item-not-valid", error, "An item with a value is not valid for the simulator."},
        {Code::ItemUnsupported, "item-unsupported", warning,
            "An item with a value has no effect for the simulator."},
        {Code::UnknownName, "unknown-name", error, "A name is not one of those that the keyword accepts."},
        {Code::UnknownVariable, "unknown-variable", error, "A variable has no value."},
        {Code::BadDate, "bad-date", error, "A date is invalid."},
        {Code::DateOrder, "date-order", error, "The dates of the schedule are not in order."},
        {Code::UnclosedData, "unclosed-data", error,
            "The slash at the end of a record or a list is missing."},
        {Code::UnclosedQuote, "unclosed-quote", error, "A quote is not closed on its line, or not opened."},
        {Code::UnclosedText, "unclosed-text", error, "The end of the text of a keyword is missing."},
        {Code::UnclosedSkip, "unclosed-skip", error, "The end of a skipped block is missing."},
        {Code::UnclosedScope, "unclosed-scope", error, "The keyword that closes another keyword is missing."},
        {Code::StrayEnd, "stray-end", error, "A closing keyword has no matching opening keyword."},
        {Code::StrayEndskip, "stray-endskip", error, "The end of a skipped block has no matching start."},
        {Code::StrayEndinc, "stray-endinc", warning,
            "The end of an included file is in a file that is not included."},
        {Code::IncludeName, "include-name", error, "The name of an included file is missing or not closed."},
        {Code::IncludeMissing, "include-missing", error, "An included file can't be read."},
        {Code::IncludeLoop, "include-loop", error, "A file includes itself."},
        {Code::IncludeDepth, "include-depth", error, "Too many included files are nested."},
        {Code::IncludeCount, "include-count", error, "Too many files are included."},
        {Code::UnknownAlias, "unknown-alias", error, "A file name has a path alias that is not defined."},
        {Code::Encoding, "encoding", error, "The encoding of a file is not supported."},
        {Code::BadSilence, "bad-silence", warning, "A comment that hides findings is invalid."},
        {Code::RemarkText, "remark-text", warning, "A remark after a keyword does not start with '--'.",
            true},
        {Code::ExtraSlash, "extra-slash", warning, "A slash has nothing to end.", true},
        {Code::IndentedKeyword, "indented-keyword", warning, "A keyword does not start in the first column.",
            true},
        {Code::PaddedText, "padded-text", warning, "A text in quotes has blanks before or after it.", true},
        {Code::BlankText, "blank-text", warning, "A blank text in quotes stands for a default.", true},
        {Code::ExtraDefault, "extra-default", warning, "A record has defaults after its last item.", true},
        {Code::OldForm, "old-form", warning, "Numbers stand in place of names.", true},
        {Code::QuotedAssignment, "quoted-assignment", warning,
            "A name and its value are in one pair of quotes.", true},
        {Code::ImplicitEnd, "implicit-end", warning, "A keyword is not closed by the keyword that closes it.",
            true},
        {Code::UnclosedList, "unclosed-list", warning,
            "The slash after the last record of a list is missing."},
        {Code::LongKeyword, "long-keyword", warning,
            "A keyword has too many characters; the rest is ignored."},
        {Code::CommaInNumber, "comma-in-number", error, "A number has a comma."},
        {Code::OddCharacter, "odd-character", error, "A character looks like a quote, a hyphen or a blank."},
        {Code::TextAfterKeyword, "text-after-keyword", warning,
            "The text on the line of a keyword is read as a remark."},
        {Code::RepeatedDate, "repeated-date", warning, "A date has no effect: the schedule has reached it.",
            true},
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

#include "quor/lint/Codes.h"

#include <cassert>
#include <cstddef>

namespace Veld::Quor::Core::Lint {

namespace Decks = Core::Decks;
const std::vector<CodeInfo>& Codes()
{
    constexpr auto error = Decks::Severity::Error;
    constexpr auto warning = Decks::Severity::Warning;
    static const std::vector<CodeInfo> rows = {
        {Code::NotWellFormed, "not-well-formed", error, "The XML is malformed, or rejected as unsafe."},
        {Code::NoKeyword, "no-keyword", warning, "The document has no keyword."},
        {Code::NestedKeyword, "nested-keyword", warning,
            "A keyword is inside another one, and is read as a separate keyword."},
        {Code::UnknownElement, "unknown-element", error,
            "An element is unknown in its parent, and the load fails."},
        {Code::IgnoredElement, "ignored-element", warning,
            "An element is unknown in its parent, and is ignored."},
        {Code::IgnoredAttribute, "ignored-attribute", warning,
            "An attribute is unknown on its element, and is ignored."},
        {Code::PassedOver, "passed-over", warning,
            "An element is ignored because no white space is directly before it."},
        {Code::StrayText, "stray-text", warning, "The text of an element is ignored."},
        {Code::RepeatedElement, "repeated-element", warning,
            "Of several elements of a kind only one is used."},
        {Code::SecondType, "second-type", warning, "Of several types only one is used."},
        {Code::MissingType, "missing-type", error, "An item has no type."},
        {Code::EmptyElement, "empty-element", warning, "An element has no content."},
        {Code::MissingAttribute, "missing-attribute", warning, "A required attribute is missing or empty."},
        {Code::ListedTwice, "listed-twice", warning, "Two entries have the same name."},
        {Code::FlagText, "flag-text", warning, "A flag is neither true nor false, and is read as false."},
        {Code::UnknownSimulator, "unknown-simulator", warning,
            "An unknown simulator is read as the first one."},
        {Code::UnknownMode, "unknown-mode", warning, "An unknown mode is read as the first one."},
        {Code::UnknownSection, "unknown-section", warning, "An unknown section is read as the first one."},
        {Code::UnknownOverride, "unknown-override", error, "An override is for an unknown simulator."},
        {Code::UnknownTermination, "unknown-termination", error,
            "A termination is none of the four known ones."},
        {Code::UnknownConstraint, "unknown-constraint", error,
            "A column constraint is none of the four known ones."},
        {Code::UnknownCategory, "unknown-category", error, "A summary category or its value is unknown."},
        {Code::SupportLevel, "support-level", warning,
            "A support level is similar to 'ignored' but not equal."},
        {Code::NoEntity, "no-entity", warning, "A summary vector has no entity."},
        {Code::LateValidity, "late-validity", warning,
            "Validity after the data is too late for the keyword."},
        {Code::ModelessSimulator, "modeless-simulator", warning,
            "A simulator has none of the listed modes, and the keyword is valid in all its modes."},
        {Code::ValidNowhere, "valid-nowhere", warning,
            "A keyword, an item, a choice or an assignment is not valid anywhere."},
        {Code::EntryWithoutEffect, "entry-without-effect", warning, "An entry has no effect."},
        {Code::DefaultType, "default-type", error, "The type of a default is unknown or not allowed."},
        {Code::ChoiceDefaultType, "choice-default-type", warning,
            "The default of a choice has an unknown type, and is ignored."},
        {Code::DefaultValue, "default-value", error,
            "A specified default has no value, or a calculated default has one."},
        {Code::IgnoredValue, "ignored-value", warning,
            "A default of type 'no default' has a value, which is ignored."},
        {Code::NumberText, "number-text", warning, "A text is not a number, and is read as something else."},
        {Code::CrossedLimits, "crossed-limits", warning,
            "The minimum value or size is greater than the maximum."},
        {Code::DefaultOutside, "default-outside", warning, "A default is outside the limits of its item."},
        {Code::BooleanText, "boolean-text", warning, "A default is neither YES nor NO, and is read as true."},
        {Code::DefaultNoChoice, "default-no-choice", warning, "A default matches no choice."},
        {Code::DefaultNotInFull, "default-not-in-full", warning,
            "A default is an abbreviation or an alias of a choice."},
        {Code::LostOverride, "lost-override", warning,
            "An override of the default of a choice has no effect."},
        {Code::OverrideElsewhere, "override-elsewhere", warning,
            "An override is for a simulator that the keyword is not valid for."},
        {Code::LowerCase, "lower-case", warning, "A name or word in lower case never matches."},
        {Code::UnreachableWord, "unreachable-word", warning,
            "A choice, alias or key is unreachable because an earlier one is the same."},
        {Code::NoKey, "no-key", warning, "An assignment has neither a name nor an alias."},
        {Code::NameLength, "name-length", warning, "The name of a keyword has more than eight characters."},
        {Code::NameText, "name-text", warning,
            "The name of a keyword contains a blank, or an asterisk before its end."},
        {Code::DefinedTwice, "defined-twice", warning,
            "A name is defined twice for one section and simulator."},
        {Code::KeyTwice, "key-twice", warning,
            "Two definitions have the same id, or the same name and no id."},
        {Code::WildcardOverlap, "wildcard-overlap", warning,
            "A wildcard hides part of another one in the same section."},
        {Code::UnknownKeyword, "unknown-keyword", warning,
            "A precedent or an end keyword is an unknown keyword."},
        {Code::PrecedentCycle, "precedent-cycle", warning,
            "A keyword is a direct or indirect precedent of itself."},
        {Code::NoDescription, "no-description", warning,
            "A keyword, an item or an assignment has no description."},
        {Code::DefaultableContainer, "defaultable-container", error,
            "The attribute itemsDefaultable is on a list that has no scalar elements."},
        {Code::TerminationOverridden, "termination-overridden", warning,
            "A list with <customReadTermination> has another termination than CUSTOMIZED."},
        {Code::NoTerminationWords, "no-termination-words", warning,
            "The termination is CUSTOMIZED, but no word ends the list."},
        {Code::SizeConflict, "size-conflict", warning,
            "The size and the termination of a list contradict each other."},
        {Code::ConstraintOnText, "constraint-on-text", warning,
            "A column constraint is on an item that is not a number."},
        {Code::CellWithoutList, "cell-without-list", warning,
            "The data of a cell property is not a list of scalars."},
        {Code::BlankFormat, "blank-format", warning, "A blank format is ignored."},
        {Code::UnseenIdentifier, "unseen-identifier", warning,
            "The attribute identifier has no effect on an item that is not a scalar."},
    };
    return rows;
}

const CodeInfo& InfoOf(Code code)
{
    const auto index = static_cast<std::size_t>(code);
    assert(index < Codes().size() && Codes()[index].code == code
        && "InfoOf: the rows are not in the order of the codes");
    return Codes()[index];
}

} // namespace Veld::Quor::Core::Lint

#include "tools/lint/Codes.h"

#include <cassert>
#include <cstddef>

namespace Veld::Quor::Tools::Lint {

namespace Decks = Core::Decks;
const std::vector<CodeInfo>& Codes()
{
    constexpr auto error = Decks::Severity::Error;
    constexpr auto warning = Decks::Severity::Warning;
    static const std::vector<CodeInfo> rows = {
        {Code::NotWellFormed, "not-well-formed", error, "The XML is malformed, or refused as unsafe."},
        {Code::NoKeyword, "no-keyword", warning, "The document has no keyword."},
        {Code::NestedKeyword, "nested-keyword", warning,
            "A keyword stands within another, and counts as one of its own."},
        {Code::UnknownElement, "unknown-element", error,
            "An element isn't known at its place, and the load fails."},
        {Code::IgnoredElement, "ignored-element", warning,
            "An element isn't known at its place, and is ignored."},
        {Code::IgnoredAttribute, "ignored-attribute", warning,
            "An attribute isn't known on its element, and is ignored."},
        {Code::PassedOver, "passed-over", warning,
            "An element without white space of its own before it is passed over."},
        {Code::StrayText, "stray-text", warning, "Text stands in an element whose text isn't looked at."},
        {Code::RepeatedElement, "repeated-element", warning,
            "Of several elements of a kind only one counts."},
        {Code::SecondType, "second-type", warning, "Of several types only one counts."},
        {Code::MissingType, "missing-type", error, "An item has no type."},
        {Code::EmptyElement, "empty-element", warning, "An element lacks what it is there to hold."},
        {Code::MissingAttribute, "missing-attribute", warning,
            "An attribute is missing or empty that is needed."},
        {Code::ListedTwice, "listed-twice", warning, "Two entries are for one and the same."},
        {Code::FlagText, "flag-text", warning,
            "A flag has another text than true or false, and counts as false."},
        {Code::UnknownSimulator, "unknown-simulator", warning,
            "An unknown simulator counts as the first one."},
        {Code::UnknownMode, "unknown-mode", warning, "An unknown mode counts as the first one."},
        {Code::UnknownSection, "unknown-section", warning, "An unknown section counts as the first one."},
        {Code::UnknownOverride, "unknown-override", error, "An override is for an unknown simulator."},
        {Code::UnknownTermination, "unknown-termination", error, "A termination isn't one of the four."},
        {Code::UnknownConstraint, "unknown-constraint", error, "A column constraint isn't one of the four."},
        {Code::UnknownCategory, "unknown-category", error, "A summary category, or its value, isn't known."},
        {Code::SupportLevel, "support-level", warning, "A support level looks like \"ignored\" and isn't."},
        {Code::NoEntity, "no-entity", warning, "A summary vector doesn't say what it reports on."},
        {Code::LateValidity, "late-validity", warning,
            "Validity behind the data comes too late for the keyword."},
        {Code::ModelessSimulator, "modeless-simulator", warning,
            "A simulator has none of the listed modes, and counts in all of its own."},
        {Code::ValidNowhere, "valid-nowhere", warning,
            "A keyword, an item, a choice or an assignment is valid nowhere."},
        {Code::EntryWithoutEffect, "entry-without-effect", warning,
            "An entry says something that has no effect there."},
        {Code::DefaultType, "default-type", error, "The type of a default isn't known or isn't allowed."},
        {Code::ChoiceDefaultType, "choice-default-type", warning,
            "An unknown type of a choice's default counts as no default."},
        {Code::DefaultValue, "default-value", error,
            "A specified default needs a value, a calculated one must have none."},
        {Code::IgnoredValue, "ignored-value", warning,
            "A default that isn't specified has a value, which is ignored."},
        {Code::NumberText, "number-text", warning,
            "A text isn't a number in whole, and something else is read."},
        {Code::CrossedLimits, "crossed-limits", warning, "The least value or size is above the greatest."},
        {Code::DefaultOutside, "default-outside", warning, "A default is outside the limits of its item."},
        {Code::BooleanText, "boolean-text", warning, "A default other than YES or NO counts as true."},
        {Code::DefaultNoChoice, "default-no-choice", warning, "A default names none of the choices."},
        {Code::DefaultNotInFull, "default-not-in-full", warning,
            "A default names its choice by an abbreviation or an alias."},
        {Code::LostOverride, "lost-override", warning, "An override of a choice's default has no effect."},
        {Code::OverrideElsewhere, "override-elsewhere", warning,
            "An override is for a simulator that the keyword isn't valid for."},
        {Code::LowerCase, "lower-case", warning, "A name or word in lower case is never matched."},
        {Code::UnreachableWord, "unreachable-word", warning,
            "A choice, alias or key can't be reached, an earlier one being the same."},
        {Code::NoKey, "no-key", warning, "An assignment has no name by which a deck could give it."},
        {Code::NameLength, "name-length", warning, "A keyword's name has more than eight characters."},
        {Code::NameText, "name-text", warning,
            "A keyword's name has a blank, or an asterisk before its end."},
        {Code::DefinedTwice, "defined-twice", warning,
            "A name is defined twice for one section and simulator."},
        {Code::KeyTwice, "key-twice", warning,
            "Two definitions have the same id, or the same name and no id."},
        {Code::WildcardOverlap, "wildcard-overlap", warning,
            "A wildcard takes names from a wider one in the same section."},
        {Code::UnknownKeyword, "unknown-keyword", warning,
            "A precedent or an end keyword is not a known keyword."},
        {Code::PrecedentCycle, "precedent-cycle", warning,
            "A keyword must, in the end, stand before itself."},
        {Code::NoDescription, "no-description", warning,
            "A keyword, an item or an assignment has no description."},
        {Code::DefaultableContainer, "defaultable-container", error,
            "A list whose elements can't be defaulted says that they can."},
        {Code::TerminationOverridden, "termination-overridden", warning,
            "Words of its own end the list, whatever its termination says."},
        {Code::NoTerminationWords, "no-termination-words", warning,
            "The termination is CUSTOMIZED, and there are no words for it."},
        {Code::SizeConflict, "size-conflict", warning,
            "What is said of a list's size and end doesn't go together."},
        {Code::ConstraintOnText, "constraint-on-text", warning,
            "A column constraint is on an item that is no number."},
        {Code::CellWithoutList, "cell-without-list", warning,
            "A cell property's data is no list of scalars."},
        {Code::BlankFormat, "blank-format", warning, "A blank format counts as none."},
        {Code::UnseenIdentifier, "unseen-identifier", warning,
            "The identity of a keyword never looks at the identifier."},
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

} // namespace Veld::Quor::Tools::Lint

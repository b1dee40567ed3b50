#pragma once

#include "quor/lint/internal/DocumentForm.h"
#include "quor/lint/internal/KeywordValidity.h"
#include "quor/lint/internal/Reporter.h"

#include <set>
#include <string>

namespace Veld::Quor::Core::Lint {

/// What rules need to know about the keyword of an element.
struct Context {
    Runs runs; ///< for which it is valid in some section
    Simulators simulators; ///< the same, in any mode
    bool isDescribed = false; ///< the list that an element is the type of has a description
    bool isEnded =
        false; ///< what ends the record around an element ends the element too, as the last one there
};

/// The rules for one element that are not part of the form of a document.
void CheckRules(const Element& element, Form form, const Context& context, const Reporter& reporter);

// One for each kind of element.

void CheckKeyword(const Element& keyword, const Reporter& reporter);
void CheckSimulatorEntry(const Element& entry, const Reporter& reporter);
void CheckScope(const Element& scope, const Reporter& reporter);
void CheckSummaryMnemonic(const Element& mnemonic, const Reporter& reporter);
void CheckCategory(const Element& category, const Reporter& reporter);

void CheckItem(const Element& item, const Context& context, const Reporter& reporter);
void CheckList(const Element& list, const Context& context, const Reporter& reporter);
void CheckMap(const Element& map, const Reporter& reporter);
void CheckAssignment(const Element& assignment, const Context& context, const Reporter& reporter);

void CheckScalar(const Element& scalar, Form form, const Context& context, const Reporter& reporter);
void CheckChoice(const Element& choice, const Reporter& reporter);
void CheckValue(const Element& value, const Context& context, const Reporter& reporter);
/// The words of a choice, in upper case as they are matched; a blank one is empty.
struct ChoiceWords {
    std::set<std::string> texts;
    std::set<std::string> aliases;
};
ChoiceWords ReadChoiceWords(const Element& choice);
/// Whether a default resolves to a choice.
void CheckDefaultChoice(const ChoiceWords& words, const Attribute& value, const Reporter& reporter);

/// The validity of an item or a choice must have something in common with that of the keyword.
void CheckItemValidity(const Element& owner, const Context& context, const Reporter& reporter);

// Shared by several rules.

/// The last child of that tag, null if there is none.
const Element* FindLast(const Element& element, std::string_view tag);
/// Whether there is a description with something in it.
bool IsDescribed(const Element& element);
/// The child that gives the type of an item, a list or data, as the loader chooses it; null if there is none.
const Element* FindType(const Element& element, Form form);
bool IsScalar(const Element& type);

} // namespace Veld::Quor::Core::Lint

#pragma once

#include "tools/lint/DocumentForm.h"
#include "tools/lint/Reporter.h"
#include "tools/lint/Rules.h"

namespace Veld::Quor::Tools::Lint {

/// Holds an element and all below it against the form of a document, and against the rules, where the loader
/// looks. What it doesn't look at is told, and not entered.
void CheckElement(
    const Element& element, const ElementForm& form, const Context& context, const Reporter& reporter);

/// What the loader makes of a child that isn't known there, and where it belongs.
void ReportUnknownChild(
    const Element& child, const Element& parent, const ElementForm& form, const Reporter& reporter);
/// Text in an element whose text isn't looked at.
void CheckOwnText(const Element& element, const ElementForm& form, const Reporter& reporter);

} // namespace Veld::Quor::Tools::Lint

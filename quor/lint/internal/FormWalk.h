#pragma once

#include "quor/lint/internal/DocumentForm.h"
#include "quor/lint/internal/Reporter.h"
#include "quor/lint/internal/Rules.h"

namespace Veld::Quor::Core::Lint {

/// Checks an element and all below it against the form of a document and the rules. Parts that the loader
/// ignores are reported, and not checked further.
void CheckElement(
    const Element& element, const ElementForm& form, const Context& context, const Reporter& reporter);

/// Reports a child that is unknown in its parent, with the elements where it is allowed.
void ReportUnknownChild(
    const Element& child, const Element& parent, const ElementForm& form, const Reporter& reporter);
/// Reports text in an element whose text is ignored.
void CheckOwnText(const Element& element, const ElementForm& form, const Reporter& reporter);

} // namespace Veld::Quor::Core::Lint

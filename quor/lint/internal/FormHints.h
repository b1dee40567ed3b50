#pragma once

#include "quor/lint/internal/DocumentForm.h"

#include <string>

namespace Veld::Quor::Core::Lint {

/// What may be meant by an attribute, or an element, that is unknown in an element of that form.
std::string HintOfAttribute(const std::string& name, const ElementForm& form);
std::string HintOfElement(const std::string& tag, const ElementForm& form);

} // namespace Veld::Quor::Core::Lint

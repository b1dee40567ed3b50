#include "quor/lint/internal/Rules.h"

namespace Veld::Quor::Core::Lint {

void CheckRules(const Element& element, Form form, const Context& context, const Reporter& reporter)
{
    switch (form) {
    case Form::Keyword:
        return CheckKeyword(element, reporter);
    case Form::KeywordSimulator:
    case Form::VariantSimulator:
        return CheckSimulatorEntry(element, reporter);
    case Form::Scope:
        return CheckScope(element, reporter);
    case Form::SummaryMnemonic:
        return CheckSummaryMnemonic(element, reporter);
    case Form::Category:
        return CheckCategory(element, reporter);
    case Form::Item:
        return CheckItem(element, context, reporter);
    case Form::List:
        return CheckList(element, context, reporter);
    case Form::Map:
        return CheckMap(element, reporter);
    case Form::Assignment:
        return CheckAssignment(element, context, reporter);
    case Form::Choice:
        CheckChoice(element, reporter);
        return CheckScalar(element, form, context, reporter);
    case Form::AssignedInteger:
    case Form::Real:
    case Form::Integer:
    case Form::Boolean:
    case Form::Line:
    case Form::String:
        return CheckScalar(element, form, context, reporter);
    case Form::Value:
        return CheckValue(element, context, reporter);
    default: // the form has all rules
        return;
    }
}

} // namespace Veld::Quor::Core::Lint

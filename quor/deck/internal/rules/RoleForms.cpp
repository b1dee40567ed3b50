#include "quor/deck/internal/rules/RoleForms.h"

#include "quor/deck/internal/text/NumberText.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

namespace {

double ReadNumber(RuleElement& element, const char* attribute)
{
    const std::string text = element.Get(attribute);
    const auto number = ToReal(text);
    if (!number)
        element.Fail(fmt::format("attribute '{}' is '{}'; expected a number", attribute, text), attribute);
    return *number;
}

} // namespace

void ReadRole(RuleElement& element, RuleSet& rules)
{
    const std::string name = element.Get("is");
    bool isFound = false;
    const PhysicalRole::Enum role = PhysicalRole::FromString(name, &isFound);
    if (!isFound)
        element.Fail(fmt::format("unknown role '{}'", name), "is");
    rules.roles.push_back({role, element.GetKeywords("keywords"), element.FindItem("item")});
}

void ReadPlausible(RuleElement& element, RuleSet& rules)
{
    rules.magnitudes.push_back({element.GetKeywords("keywords"), element.FindItems("items"),
        ReadNumber(element, "least"), ReadNumber(element, "greatest"), element.IsFlagged("alone")});
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/rules/RoleForms.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

void ReadRole(RuleElement& element, RuleSet& rules)
{
    const std::string name = element.Get("is");
    bool isFound = false;
    const Role::Enum role = Role::FromString(name, &isFound);
    if (!isFound)
        element.Fail(fmt::format("unknown role '{}'", name), "is");
    rules.roles.push_back({role, element.GetKeywords("keywords"), element.FindItem("item")});
}

void ReadPlausible(RuleElement& element, RuleSet& rules)
{
    rules.magnitudes.push_back({element.GetKeywords("keywords"), element.FindItems("items"),
        element.GetNumber("least"), element.GetNumber("greatest"), element.IsFlagged("alone")});
    if (rules.magnitudes.back().least > rules.magnitudes.back().greatest)
        element.Fail(fmt::format("attribute 'least' is {}, above 'greatest' {}",
                         rules.magnitudes.back().least, rules.magnitudes.back().greatest),
            "least");
}

} // namespace Veld::Quor::Core::Decks

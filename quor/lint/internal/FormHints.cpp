#include "quor/lint/internal/FormHints.h"

#include "quor/lint/internal/Reporter.h"

#include <fmt/format.h>

#include <set>
#include <vector>

namespace Veld::Quor::Core::Lint {

namespace {

/// The tags of the elements on which an attribute of that name is known.
std::vector<std::string> OwnersOf(const std::string& attribute)
{
    std::set<std::string> owners;
    for (const ElementForm& form : DocumentForm()) {
        if (form.FindAttribute(attribute))
            owners.insert(Tagged(form.tag));
    }
    return {owners.begin(), owners.end()};
}

/// The tags of the elements in which an element of that tag is known.
std::vector<std::string> ParentsOf(const std::string& tag)
{
    std::set<std::string> parents;
    for (const ElementForm& form : DocumentForm()) {
        if (form.form != Form::Root && form.FindChild(tag))
            parents.insert(Tagged(form.tag));
    }
    return {parents.begin(), parents.end()};
}

template <class Row, class Name>
std::vector<std::string> NamesOf(const std::vector<Row>& rows, Name name)
{
    std::vector<std::string> names;
    for (const Row& row : rows)
        names.emplace_back(row.*name);
    return names;
}

/// For a name that is allowed nowhere else.
std::string HintOfKnown(const std::vector<std::string>& known)
{
    return known.empty() ? "remove it" : fmt::format("expected {}", Listed(known));
}

} // namespace

std::string HintOfAttribute(const std::string& name, const ElementForm& form)
{
    const std::vector<std::string> known = NamesOf(form.attributes, &AttributeForm::name);
    std::string hint = HintOfNearest(name, known);
    if (!hint.empty())
        return hint;
    const std::vector<std::string> owners = OwnersOf(name);
    return owners.empty() ? HintOfKnown(known) : fmt::format("it is an attribute of {}", Listed(owners));
}

std::string HintOfElement(const std::string& tag, const ElementForm& form)
{
    const std::vector<std::string> known = NamesOf(form.children, &ChildForm::tag);
    std::string hint = HintOfNearest(tag, known);
    if (!hint.empty())
        return hint;
    const std::vector<std::string> parents = ParentsOf(tag);
    return parents.empty() ? HintOfKnown(known) : fmt::format("it is an element of {}", Listed(parents));
}

} // namespace Veld::Quor::Core::Lint

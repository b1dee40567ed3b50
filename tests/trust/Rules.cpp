#include "tests/trust/Rules.h"

#include "quor/deck/internal/rules/RuleReader.h"

#include <iterator>
#include <sstream>

namespace Veld::Quor::Trust {

std::vector<Rule> Rule::GetChildren() const
{
    std::vector<Rule> rules;
    for (const Core::Decks::RuleNode& child : children)
        rules.push_back({child});
    return rules;
}

std::string Rule::Get(const std::string& attribute) const
{
    for (const auto& [name, value] : attributes) {
        if (name == attribute)
            return value;
    }
    return {};
}

std::vector<std::string> Rule::GetWords(const std::string& attribute) const
{
    std::istringstream words(Get(attribute));
    return {std::istream_iterator<std::string>(words), {}};
}

/// The documents are the elements of the root.
std::vector<Rule> ReadRules()
{
    std::vector<Rule> rules;
    for (const Rule& document : Rule{Core::Decks::BuiltinRules()}.GetChildren()) {
        for (const Rule& rule : document.GetChildren())
            rules.push_back(rule);
    }
    return rules;
}

std::string WhereOf(const Rule& rule, const std::string& item)
{
    std::string where;
    const auto keywords = rule.GetWords("keywords");
    for (const std::string& keyword : keywords.empty() ? std::vector<std::string>{"*"} : keywords)
        where += keyword + (item.empty() ? " " : "." + item + " ");
    for (const std::string& section : rule.GetWords("sections"))
        where += "@" + section + " ";
    for (const std::string& keyword : rule.GetWords("except"))
        where += "-" + keyword + " ";
    return where;
}

std::string ItemsOf(const Rule& rule)
{
    if (!rule.Get("entity").empty())
        return "%" + rule.Get("entity");
    std::string where = rule.GetWords("items").empty() ? WhereOf(rule, "") : "";
    for (const std::string& item : rule.GetWords("items"))
        where += WhereOf(rule, item);
    return where;
}

std::string ConditionOf(const Rule& rule)
{
    return rule.Get("when").empty() ? "" : "?" + rule.Get("when");
}

} // namespace Veld::Quor::Trust

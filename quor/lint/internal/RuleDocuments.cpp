#include "quor/lint/internal/RuleDocuments.h"

#include "quor/deck/internal/rules/RuleReader.h"
#include "quor/syntax/KeywordSyntaxTable.h"

namespace Veld::Quor::Core::Lint {

namespace {

Decks::RuleNode NodeOf(const Element& element)
{
    Decks::RuleNode node;
    node.tag = element.tag;
    for (const Attribute& attribute : element.attributes)
        node.attributes.emplace_back(attribute.name, attribute.value);
    for (const Element& child : element.children)
        node.children.push_back(NodeOf(child));
    return node;
}

} // namespace

bool IsOfRules(const Element& root)
{
    return root.tag == "rules";
}

void CheckRuleDocument(const Element& root, const Reporter& reporter)
{
    Keywords::KeywordSyntaxTable& table = Keywords::KeywordSyntaxTable::Instance();
    Decks::RuleWords words(table);
    Decks::RuleSet rules = Decks::ReadAllRules(table, {}); // their kinds of names may be named
    Decks::ReadRules(NodeOf(root), {reporter.GetDocument().GetName(), words, true}, rules,
        [&](const Decks::RuleFailure& failure) {
            const Element* element = &root;
            for (const std::size_t number : failure.path)
                element = &element->children[number];
            const Attribute* const attribute = element->Find(failure.attribute);
            reporter.Report(Code::WrongRule, attribute ? attribute->nameSpan : element->span, failure.reason,
                failure.hint);
        });
}

} // namespace Veld::Quor::Core::Lint

#include "quor/deck/internal/rules/RuleReader.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/internal/rules/RuleForms.h"
#include "quor/foundation/builtin/internal/PackedDocument.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <fmt/format.h>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <utility>

namespace Veld::Quor::Core::Decks {

using Service::XML::XToC;

namespace {

using OnFailure = std::function<void(const RuleFailure&)>;

/// Either the rules of names, or all others.
void ReadSome(const RuleElement& root, bool areNames, RuleSet& rules, const OnFailure& onFailure)
{
    root.ForEachChild([&](RuleElement element) {
        const std::string tag = element.GetTag();
        if (tag == "rules") // of several documents that were put together
            return ReadSome(element, areNames, rules, onFailure);
        if ((tag == "names") != areNames)
            return;
        try {
            ReadRule(element, rules);
        } catch (const RuleFailure& failure) {
            onFailure(failure);
        }
    });
}

RuleNode NodeOf(const xercesc::DOMElement& element)
{
    RuleNode node;
    node.tag = XToC(element.getTagName());
    const xercesc::DOMNamedNodeMap& attributes = *element.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const xercesc::DOMNode& attribute = *attributes.item(i);
        std::string name = XToC(attribute.getNodeName()); // the text of a call lasts until the next one
        node.attributes.emplace_back(std::move(name), XToC(attribute.getNodeValue()));
    }
    for (const xercesc::DOMNode* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getNodeType() == xercesc::DOMNode::ELEMENT_NODE)
            node.children.push_back(NodeOf(static_cast<const xercesc::DOMElement&>(*child)));
    }
    return node;
}

void ReadOrThrow(const RuleNode& root, const RuleOrigin& origin, RuleSet& rules)
{
    ReadRules(root, origin, rules, [&](const RuleFailure& failure) {
        throw RuleError(fmt::format("{}: {}: {}{}{}", origin.document, failure.place, failure.reason,
            failure.hint.empty() ? "" : "; ", failure.hint));
    });
}

void ReadRuleFile(const std::string& path, RuleWords& words, RuleSet& rules)
{
    std::shared_ptr<const SourceText> text;
    try {
        text = FileSource().Open(path);
    } catch (const SourceError& error) {
        throw RuleError(fmt::format("can't read the rules in '{}': {}", path, error.what()));
    }
    Service::XML::XMLDocument document;
    Service::XML::XMLDocument::Failure failure;
    const std::string_view bytes = text->GetText();
    if (!document.readMemory(bytes.data(), bytes.size(), path.c_str(), failure))
        throw RuleError(fmt::format("{}:{}:{}: {}", path, failure.line, failure.column, failure.reason));
    ReadOrThrow(NodeOf(*document.GetDocument()->getDocumentElement()), {path, words, true}, rules);
}

} // namespace

/// Unpacked once: they are the same for all languages.
const RuleNode& BuiltinRules()
{
    static const RuleNode root = [] {
        const auto document =
            KeywordSyntax::Internal::Unpack(KeywordSyntax::Internal::rulesDocument, "built-in rules");
        return NodeOf(*document->GetDocument()->getDocumentElement());
    }();
    return root;
}

/// Names first: other rules are about their kinds.
void ReadRules(const RuleNode& root, const RuleOrigin& origin, RuleSet& rules, const OnFailure& onFailure)
{
    const RuleElement element(root, origin);
    for (const bool areNames : {true, false})
        ReadSome(element, areNames, rules, onFailure);
}

RuleSet ReadAllRules(Keywords::KeywordSyntaxTable& table, const std::vector<std::string>& files)
{
    RuleWords words(table);
    RuleSet rules;
    // A table of another language may lack what the rules name.
    ReadOrThrow(BuiltinRules(), {"built-in rules", words, false}, rules);
    for (const std::string& path : files)
        ReadRuleFile(path, words, rules);
    return rules;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/rules/RuleReader.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/PrintableText.h"
#include "quor/deck/internal/rules/RuleForms.h"
#include "quor/foundation/builtin/internal/PackedDocument.h"
#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/PackedTree.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <fmt/format.h>
#include <xercesc/dom/DOMDocument.hpp>

#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Service::XML::Internal;

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

RuleNode NodeOf(const TreeElement& element)
{
    const DocumentTree& tree = element.GetTree();
    const std::uint32_t index = element.GetIndex();
    RuleNode node;
    node.tag = element.GetTagName();
    for (std::uint32_t i = tree.nodes[index].attributes; i < tree.nodes[index + 1].attributes; ++i) {
        const auto& [value, size, name] = tree.attributes[i];
        node.attributes.emplace_back(tree.GetName(name), tree.texts.substr(value, size));
    }
    for (const TreeElement child : ChildElements(element))
        node.children.push_back(NodeOf(child));
    return node;
}

void ReadOrThrow(const RuleNode& root, const RuleOrigin& origin, RuleSet& rules)
{
    ReadRules(root, origin, rules, [&](const RuleFailure& failure) {
        throw RuleError(MakePrintable(fmt::format("{}: {}: {}{}{}", origin.document, failure.place,
            failure.reason, failure.hint.empty() ? "" : "; ", failure.hint)));
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
        throw RuleError(
            MakePrintable(fmt::format("{}:{}:{}: {}", path, failure.line, failure.column, failure.reason)));
    const DocumentTree tree = TreeOf(*document.GetDocument()->getDocumentElement());
    ReadOrThrow(NodeOf(RootOf(tree)), {path, words, true}, rules);
}

} // namespace

/// Unpacked once: they are the same for all languages.
const RuleNode& BuiltinRules()
{
    static const RuleNode root = [] {
        const auto& packed = KeywordSyntax::Internal::rulesDocumentTree;
        const auto tree = TreeOfBytes({reinterpret_cast<const char*>(packed.bytes), packed.size});
        return tree ? NodeOf(RootOf(*tree)) : RuleNode();
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

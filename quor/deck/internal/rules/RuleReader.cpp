#include "quor/deck/internal/rules/RuleReader.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/foundation/builtin/internal/PackedDocument.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <fmt/format.h>
#include <xercesc/dom/DOM.hpp>

#include <algorithm>
#include <sstream>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Service::XML::XToC;

namespace {

/// An element of a document of rules, with its attributes. What is asked for is marked, so that what nobody
/// asked for can be refused.
class RuleElement {
public:
    RuleElement(const xercesc::DOMElement& node, const std::string& document, std::string place)
        : node_(node)
        , document_(document)
        , place_(std::move(place))
    {
        const xercesc::DOMNamedNodeMap& attributes = *node.getAttributes();
        for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
            const xercesc::DOMNode& attribute = *attributes.item(i);
            values_.push_back({XToC(attribute.getNodeName()), {}, false});
            values_.back().value = XToC(attribute.getNodeValue());
        }
    }

    std::string GetTag() const { return XToC(node_.getTagName()); }

    [[noreturn]] void Fail(const std::string& what) const
    {
        throw RuleError(fmt::format("{}: {}: {}", document_, place_, what));
    }

    std::string Find(const char* attribute)
    {
        asked_.emplace_back(attribute);
        const auto at = std::find_if(
            values_.begin(), values_.end(), [&](const Value& value) { return value.name == attribute; });
        if (at == values_.end())
            return {};
        at->isAsked = true;
        return at->value;
    }
    std::string Get(const char* attribute)
    {
        std::string value = Find(attribute);
        if (value.empty()) {
            for (const Value& other : values_) {
                if (const auto near = FindNearest({attribute}, other.name); !other.isAsked && !near.empty())
                    Refuse(other.name, near);
            }
            Fail(fmt::format("missing attribute '{}'", attribute));
        }
        return value;
    }
    std::vector<std::string> FindWords(const char* attribute)
    {
        std::istringstream words(Find(attribute));
        std::vector<std::string> found;
        for (std::string word; words >> word;)
            found.push_back(word);
        return found;
    }
    double GetNumber(const char* attribute)
    {
        const std::string text = Get(attribute);
        const auto number = ToReal(text);
        if (!number)
            Fail(fmt::format("attribute '{}' is '{}'; expected a number", attribute, text));
        return *number;
    }
    std::vector<std::string> GetWords(const char* attribute)
    {
        Get(attribute);
        return FindWords(attribute);
    }
    bool IsFlagged(const char* attribute)
    {
        const std::string value = Find(attribute);
        if (!value.empty() && value != "true" && value != "false")
            Fail(fmt::format("attribute '{}' is '{}'; expected 'true' or 'false'", attribute, value));
        return value == "true";
    }

    /// Refuses attributes that no rule of this kind has.
    void CheckAllAsked() const
    {
        for (const Value& value : values_) {
            if (!value.isAsked)
                Refuse(value.name, FindNearest(asked_, value.name));
        }
    }

    /// Calls `use` with each child element, in the order of the document.
    template <class Use>
    void ForEachChild(const Use& use) const
    {
        std::size_t number = 0;
        for (const xercesc::DOMNode* child = node_.getFirstChild(); child; child = child->getNextSibling()) {
            if (child->getNodeType() != xercesc::DOMNode::ELEMENT_NODE)
                continue;
            const auto& node = static_cast<const xercesc::DOMElement&>(*child);
            use(RuleElement(node, document_,
                fmt::format("{}{}element {}, <{}>", place_, place_.empty() ? "" : ", ", ++number,
                    XToC(node.getTagName()))));
        }
    }

private:
    struct Value {
        std::string name;
        std::string value;
        bool isAsked;
    };

    [[noreturn]] void Refuse(const std::string& attribute, const std::vector<std::string>& near) const
    {
        Fail(fmt::format("unknown attribute '{}'{}", attribute,
            near.empty() ? "" : fmt::format("; did you mean '{}'?", near.front())));
    }

    const xercesc::DOMElement& node_;
    const std::string& document_;
    std::string place_;
    std::vector<Value> values_;
    std::vector<std::string> asked_;
};

ItemSelection ReadSelection(RuleElement& element, const char* items)
{
    ItemSelection selection;
    selection.keywords = element.FindWords("keywords");
    selection.except = element.FindWords("except");
    selection.items = element.FindWords(items);
    selection.unless = element.Find("unless");
    for (const std::string& word : element.FindWords("sections")) {
        bool isFound = false;
        selection.sections.push_back(SectionType::FromString(word, &isFound));
        if (!isFound)
            element.Fail(fmt::format("unknown section '{}'", word));
    }
    if (const std::string word = element.Find("entity"); !word.empty()) {
        bool isFound = false;
        selection.entity = SummaryEntity::FromString(word, &isFound);
        if (!isFound)
            element.Fail(fmt::format("unknown kind of output vector '{}'", word));
    }
    if (selection.keywords.empty() && selection.items.empty() && !selection.entity)
        element.Fail("no keywords and no items; expected 'keywords', 'items' or 'entity'");
    return selection;
}

NameRule ReadNames(RuleElement& element)
{
    NameRule rule;
    rule.noun = element.Get("kind");
    rule.always = element.FindWords("always");
    rule.ignored = element.FindWords("ignored");
    rule.areArrays = element.IsFlagged("arrays");
    rule.hasPatterns = element.IsFlagged("patterns");
    rule.lists = element.Find("lists");
    element.ForEachChild([&](RuleElement child) {
        NameRule::Use use;
        use.isDefinition = child.GetTag() == "define";
        if (!use.isDefinition && child.GetTag() != "refer")
            child.Fail("unknown element; expected <define> or <refer>");
        use.where = ReadSelection(child, "items");
        use.mayComeFirst = child.IsFlagged("early");
        child.CheckAllAsked();
        rule.uses.push_back(std::move(use));
    });
    return rule;
}

OrderRule ReadOrder(RuleElement& element)
{
    OrderRule rule;
    rule.where = ReadSelection(element, "items");
    if (rule.where.items.size() != 2)
        element.Fail("attribute 'items' must have two names: the first and the last");
    return rule;
}

RoleRule ReadRole(RuleElement& element)
{
    const std::string name = element.Get("is");
    bool isFound = false;
    RoleRule rule = {
        PhysicalRole::FromString(name, &isFound), element.GetWords("keywords"), element.Find("item")};
    if (!isFound)
        element.Fail(fmt::format("unknown role '{}'", name));
    return rule;
}

MagnitudeRule ReadMagnitude(RuleElement& element)
{
    return {element.GetWords("keywords"), element.FindWords("items"), element.GetNumber("least"),
        element.GetNumber("greatest"), element.IsFlagged("alone")};
}

NeedRule ReadNeed(RuleElement& element)
{
    return {element.GetWords("anyOf"), element.Get("in"), element.Get("what"), element.FindWords("when"),
        element.FindWords("unless")};
}

template <class T>
void Add(std::vector<T> more, std::vector<T>& values)
{
    values.insert(values.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

void ReadRule(RuleElement& element, RuleSet& rules)
{
    const std::string tag = element.GetTag();
    if (tag == "names")
        rules.names.push_back(ReadNames(element));
    else if (tag == "index")
        rules.indices.push_back({ReadSelection(element, "items"), element.Get("size")});
    else if (tag == "order")
        rules.orders.push_back(ReadOrder(element));
    else if (tag == "region")
        rules.regions.push_back({element.GetWords("arrays"), element.Get("size"), element.Get("what")});
    else if (tag == "assign")
        rules.assignments.push_back(
            {element.GetWords("keywords"), element.Get("array"), element.Get("value")});
    else if (tag == "need")
        rules.needs.push_back(ReadNeed(element));
    else if (tag == "exclusive")
        rules.exclusives.push_back({element.GetWords("keywords"), element.Get("what")});
    else if (tag == "once")
        Add(element.GetWords("keywords"), rules.once);
    else if (tag == "count")
        rules.counts.push_back({element.Get("kind"), element.Get("size"), element.Get("keyword")});
    else if (tag == "role")
        rules.roles.push_back(ReadRole(element));
    else if (tag == "plausible")
        rules.magnitudes.push_back(ReadMagnitude(element));
    else if (tag == "whole")
        Add(element.GetWords("keywords"), rules.whole);
    else if (tag == "local")
        Add(element.GetWords("keywords"), rules.localGrids);
    else if (tag == "open")
        Add(element.GetWords("keywords"), rules.openers);
    else
        element.Fail(
            "unknown rule; expected <names>, <index>, <order>, <region>, <assign>, <need>, <exclusive>, "
            "<once>, <count>, <role>, <plausible>, <whole>, <local> or <open>");
    element.CheckAllAsked();
}

} // namespace

void ReadRules(const xercesc::DOMElement& root, const std::string& name, RuleSet& rules)
{
    RuleElement(root, name, "").ForEachChild([&](RuleElement element) {
        if (element.GetTag() == "rules") // of several documents that were put together
            element.ForEachChild([&](RuleElement inner) { ReadRule(inner, rules); });
        else
            ReadRule(element, rules);
    });
}

void ReadRuleFile(const std::string& path, RuleSet& rules)
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
    ReadRules(*document.GetDocument()->getDocumentElement(), path, rules);
}

void Append(RuleSet more, RuleSet& rules)
{
    Add(std::move(more.names), rules.names);
    Add(std::move(more.indices), rules.indices);
    Add(std::move(more.orders), rules.orders);
    Add(std::move(more.regions), rules.regions);
    Add(std::move(more.assignments), rules.assignments);
    Add(std::move(more.needs), rules.needs);
    Add(std::move(more.exclusives), rules.exclusives);
    Add(std::move(more.once), rules.once);
    Add(std::move(more.counts), rules.counts);
    Add(std::move(more.roles), rules.roles);
    Add(std::move(more.magnitudes), rules.magnitudes);
    Add(std::move(more.whole), rules.whole);
    Add(std::move(more.localGrids), rules.localGrids);
    Add(std::move(more.openers), rules.openers);
}

const RuleSet& BuiltinRules()
{
    // Never freed: a host may read a deck from a destructor at exit.
    static const RuleSet& rules = *[] {
        auto read = std::make_unique<RuleSet>();
        const auto document =
            KeywordSyntax::Internal::Unpack(KeywordSyntax::Internal::rulesDocument, "built-in rules");
        ReadRules(*document->GetDocument()->getDocumentElement(), "built-in rules", *read);
        return read.release();
    }();
    return rules;
}

} // namespace Veld::Quor::Core::Decks

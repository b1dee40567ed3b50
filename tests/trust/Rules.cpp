#include "tests/trust/Rules.h"

#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <xercesc/dom/DOM.hpp>

#include <filesystem>
#include <set>
#include <sstream>
#include <stdexcept>

namespace Veld::Quor::Trust {

using Core::Service::XML::XMLDocument;
using Core::Service::XML::XToC;

namespace {

std::vector<Rule> ReadChildren(const xercesc::DOMElement& parent);

Rule ReadRule(const xercesc::DOMElement& element)
{
    Rule rule{std::string(XToC(element.getTagName())), {}, ReadChildren(element)};
    const xercesc::DOMNamedNodeMap& attributes = *element.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const std::string name(XToC(attributes.item(i)->getNodeName()));
        rule.attributes[name] = std::string(XToC(attributes.item(i)->getNodeValue()));
    }
    return rule;
}

std::vector<Rule> ReadChildren(const xercesc::DOMElement& parent)
{
    std::vector<Rule> rules;
    for (const xercesc::DOMNode* child = parent.getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getNodeType() == xercesc::DOMNode::ELEMENT_NODE)
            rules.push_back(ReadRule(static_cast<const xercesc::DOMElement&>(*child)));
    }
    return rules;
}

} // namespace

std::string Rule::Get(const std::string& attribute) const
{
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second;
}

std::vector<std::string> Rule::GetWords(const std::string& attribute) const
{
    std::istringstream words(Get(attribute));
    std::vector<std::string> found;
    for (std::string word; words >> word;)
        found.push_back(word);
    return found;
}

std::vector<Rule> ReadRules(const std::string& folder)
{
    std::set<std::string> paths; // in one order everywhere
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        paths.insert(entry.path().string());
    std::vector<Rule> rules;
    for (const std::string& path : paths) {
        XMLDocument document;
        if (!document.read(path.c_str()))
            throw std::runtime_error("can't read the rules in " + path);
        for (Rule& rule : ReadChildren(*document.GetDocument()->getDocumentElement()))
            rules.push_back(std::move(rule));
    }
    return rules;
}

std::string WhereOf(const Rule& rule, const std::string& items)
{
    std::string where;
    auto keywords = rule.GetWords("keywords");
    if (keywords.empty())
        keywords.push_back("*");
    for (const std::string& keyword : keywords) {
        for (const std::string& item : rule.GetWords(items))
            where += keyword + "." + item + " ";
    }
    for (const std::string& section : rule.GetWords("sections"))
        where += "@" + section + " ";
    for (const std::string& keyword : rule.GetWords("except"))
        where += "-" + keyword + " ";
    return where;
}

} // namespace Veld::Quor::Trust

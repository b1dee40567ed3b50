#include "language/generate/Markup.h"

#include <algorithm>
#include <utility>

namespace {

std::string Escaped(std::string_view text, bool isAttribute)
{
    std::string escaped;
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (isAttribute && c == '>')
            escaped += "&gt;";
        else if (isAttribute && c == '"')
            escaped += "&quot;";
        else
            escaped += c;
    }
    return escaped;
}

void LayOut(const Element& element, std::size_t depth, std::string& to)
{
    const std::string indent(2 * depth, ' ');
    to += indent;
    if (element.tag.empty()) {
        to += "<!--" + element.text + "-->\n";
        return;
    }
    to += "<" + element.tag;
    for (const Attribute& attribute : element.attributes)
        to += " " + attribute.name + "=\"" + Escaped(attribute.value, true) + "\"";
    if (element.children.empty()) {
        to += element.text.empty() ? "/>\n" : ">" + Escaped(element.text, false) + "</" + element.tag + ">\n";
        return;
    }
    to += ">\n";
    for (const Element& child : element.children)
        LayOut(child, depth + 1, to);
    to += indent + "</" + element.tag + ">\n";
}

} // namespace

const std::string* Element::Find(std::string_view attribute) const
{
    const auto at = std::find_if(
        attributes.begin(), attributes.end(), [&](const Attribute& own) { return own.name == attribute; });
    return at == attributes.end() ? nullptr : &at->value;
}

std::string Element::Take(std::string_view attribute)
{
    const auto at = std::find_if(
        attributes.begin(), attributes.end(), [&](const Attribute& own) { return own.name == attribute; });
    if (at == attributes.end())
        return {};
    std::string value = std::move(at->value);
    attributes.erase(at);
    return value;
}

Element& Element::Add(Element child)
{
    return children.emplace_back(std::move(child));
}

Element MakeElement(std::string tag, std::vector<Attribute> attributes, std::string text)
{
    return {std::move(tag), std::move(attributes), std::move(text), {}, {}};
}

std::string Layout(const Element& element)
{
    std::string text;
    LayOut(element, 0, text);
    return text;
}

#include "language/generate/VectorDocument.h"

namespace {

/// Collects elements, one a line.
class Elements {
public:
    void Open(const std::string& tag, const std::string& attributes = {})
    {
        Line("<" + tag + attributes + ">");
        open_.push_back(tag);
    }
    void Close()
    {
        const std::string tag = std::move(open_.back());
        open_.pop_back();
        Line("</" + tag + ">");
    }
    void Empty(const std::string& tag, const std::string& attributes) { Line("<" + tag + attributes + "/>"); }
    void Text(const std::string& tag, const std::string& text)
    {
        Line("<" + tag + ">" + Escaped(text) + "</" + tag + ">");
    }
    void Line(const std::string& line) { text_ += std::string(2 * open_.size(), ' ') + line + "\n"; }
    const std::string& All() const { return text_; }

private:
    static std::string Escaped(const std::string& text)
    {
        std::string escaped;
        for (const char c : text)
            escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
        return escaped;
    }

    std::string text_;
    std::vector<std::string> open_;
};

std::string Attribute(const std::string& name, const std::string& value)
{
    return " " + name + "=\"" + value + "\"";
}

void AddNames(Elements& to, const char* holder, const char* tag, const char* attribute,
    const std::vector<const char*>& names)
{
    if (names.empty())
        return;
    to.Open(holder);
    for (const char* name : names)
        to.Empty(tag, Attribute(attribute, name));
    to.Close();
}

void AddScalar(Elements& to, const DataItem& item)
{
    const std::string type = item.type;
    to.Open(type);
    to.Text("description", item.description);
    if (type == "integer")
        to.Empty("min", Attribute("val", std::to_string(item.min)));
    if (item.role == DataItem::Optional)
        to.Empty("default", Attribute("type", "calculated"));
    to.Close();
}

void AddRecord(Elements& to, const std::vector<DataItem>& items)
{
    to.Open("record", Attribute("termination", "SLASH"));
    for (const DataItem& item : items) {
        const std::string role = item.role == DataItem::Identifier ? Attribute("identifier", "true")
            : item.role == DataItem::Optional                      ? Attribute("optional", "true")
                                                                   : "";
        to.Open("item", Attribute("name", item.name) + role);
        AddScalar(to, item);
        to.Close();
    }
    to.Close();
}

void AddData(Elements& to, const DataForm& data)
{
    if (data.items.empty())
        return;
    const std::string termination = Attribute("termination", "SLASH");
    to.Open("data");
    if (data.listDescription) {
        to.Open("list", termination);
        to.Text("description", data.listDescription);
        AddScalar(to, data.items.front());
    } else {
        to.Open("list",
            termination + Attribute("writeStartingOnNewLine", "true")
                + Attribute("writeTerminationOnNewLine", "true"));
        AddRecord(to, data.items);
    }
    to.Close();
    to.Close();
}

void AddKeyword(Elements& to, const Vector& vector)
{
    to.Open("keyword", Attribute("name", vector.name));
    to.Text("description", vector.description);
    to.Open("summaryMnemonic");
    for (const auto& [name, value] : vector.categories)
        to.Empty("category", Attribute("name", name) + Attribute("val", value));
    to.Close();
    AddNames(to, "validSimulators", "simulator", "name", vector.mode->simulators);
    AddNames(to, "validOptions", "option", "value", vector.mode->options);
    AddNames(to, "validSections", "section", "name", {"SUMMARY"});
    AddData(to, *vector.data);
    to.Close();
}

} // namespace

std::string VectorDocument(const std::vector<Vector>& vectors)
{
    Elements document;
    document.Line(R"(<?xml version="1.0" encoding="UTF-8"?>)");
    document.Line(
        "<!-- The output vectors of the SUMMARY section. Made from the tables of language/summary. -->");
    document.Open("keywords");
    for (const Vector& vector : vectors)
        AddKeyword(document, vector);
    document.Close();
    return document.All();
}

#include "language/generate/VectorDocument.h"

namespace {

void AddScalar(Element& to, const DataItem& item)
{
    Element& scalar = to.Add(MakeElement(item.type));
    scalar.Add(MakeElement("description", {}, item.description));
    if (scalar.tag == "integer")
        scalar.Add(MakeElement("min", {{"val", std::to_string(item.min)}}));
    if (item.role == DataItem::Optional)
        scalar.Add(MakeElement("default", {{"type", "calculated"}}));
}

Element RecordsElement(const std::vector<DataItem>& items)
{
    Element records = MakeElement("records");
    for (const DataItem& item : items) {
        Element& to = records.Add(MakeElement("item", {{"name", item.name}}));
        if (item.role == DataItem::Identifier)
            to.attributes.push_back({"identifier", "true"});
        if (item.role == DataItem::Optional)
            to.attributes.push_back({"optional", "true"});
        AddScalar(to, item);
    }
    return records;
}

Element ListOf(const DataForm& data)
{
    Element list = MakeElement("list", {{"termination", "SLASH"}});
    list.Add(MakeElement("description", {}, data.listDescription));
    AddScalar(list, data.items.front());
    return list;
}

Element KeywordOf(const Vector& vector)
{
    Element keyword = MakeElement("keyword", {{"name", vector.name}, {"sections", "SUMMARY"}});
    keyword.Add(MakeElement("description", {}, vector.description));
    Element& mnemonic = keyword.Add(MakeElement("summaryMnemonic"));
    for (const auto& [name, value] : vector.categories)
        mnemonic.Add(MakeElement("category", {{"name", name}, {"val", value}}));
    if (vector.mode.text != "-") {
        keyword.Add(MakeElement("use", {{"piece", vector.mode.text}}));
        keyword.children.back().place = vector.mode.place;
    }
    if (!vector.data->items.empty()) {
        Element& data = keyword.Add(MakeElement("data"));
        data.Add(vector.data->listDescription ? ListOf(*vector.data) : RecordsElement(vector.data->items));
    }
    return keyword;
}

} // namespace

Document VectorDocument(const std::vector<Vector>& vectors)
{
    Document document{
        "\n<!-- The output vectors of the SUMMARY section. Made from the tables of language/summary. -->\n",
        MakeElement("keywords")};
    for (const Vector& vector : vectors)
        document.root.Add(KeywordOf(vector));
    return document;
}

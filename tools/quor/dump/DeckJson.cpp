#include "tools/quor/dump/DeckJson.h"

#include "quor/data/Access.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "tools/quor/dump/DumpNames.h"
#include "tools/quor/terminal/Json.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cassert>
#include <iterator>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Writes the text of a dump, and hands it on when there is enough.
class DumpWriter {
public:
    explicit DumpWriter(const std::function<void(std::string_view)>& take)
        : take_(take)
    {
    }

    void Add(std::string_view text) { text_.append(text); }
    void AddText(const std::string& text);
    void AddLatin1(const std::string& text);
    void AddData(const IKeywordData& data);
    void Flush();

private:
    void AddRecord(const IKeywordRecordData& record);
    void AddList(const IKeywordListData& list);
    void AddElement(const IKeywordListData& list, const IKeywordDataMD& md, std::size_t i);
    void AddMap(const IKeywordMapData& map);
    void AddItem(const IKeywordRecordData& record, const IKeywordDataMD& md, int i);
    template <class T>
    void AddNumber(T value)
    {
        fmt::format_to(std::back_inserter(text_), "{}", value);
    }

    const std::function<void(std::string_view)>& take_;
    std::string text_;
    std::unordered_map<const IKeywordRecordMD*, std::vector<std::string>> members_;
};

void DumpWriter::Flush()
{
    take_(text_);
    text_.clear();
}

void DumpWriter::AddText(const std::string& text)
{
    try {
        return Add(nlohmann::json(text).dump());
    } catch (const nlohmann::json::type_error&) { // no UTF-8
        AddLatin1(text);
    }
}

void DumpWriter::AddLatin1(const std::string& text)
{
    std::string characters;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80U) {
            characters += c;
            continue;
        }
        characters += static_cast<char>(0xC0U | byte >> 6U);
        characters += static_cast<char>(0x80U | (byte & 0x3FU));
    }
    Add(nlohmann::json({{latin1Member, characters}}).dump());
}

void DumpWriter::AddData(const IKeywordData& data)
{
    switch (data.GetMD()->GetType()) {
    case MDType::Record:
        return AddRecord(AsRecord(data));
    case MDType::List:
        return AddList(AsList(data));
    case MDType::Map:
        return AddMap(AsMap(data));
    case MDType::Raw:
        return AddText(AsRaw(data).GetData());
    default:
        assert(false && "AddData: no data are of a scalar type");
    }
}

bool IsGiven(const IKeywordRecordData& record, const IKeywordDataMD& md, int i)
{
    return IsContainer(md) || Has(record, i);
}

void DumpWriter::AddRecord(const IKeywordRecordData& record)
{
    const IKeywordRecordMD& md = AsRecord(*record.GetMD());
    std::vector<std::string>& members = members_[&md];
    if (members.empty())
        members = MembersOf(md);
    const char* separator = "{";
    for (int i = 0; i < md.GetSize(); ++i) {
        const IKeywordDataMD& item = *md.GetItemMD(i);
        if (!IsGiven(record, item, i))
            continue;
        Add(separator);
        AddText(members[static_cast<std::size_t>(i)]);
        Add(":");
        AddItem(record, item, i);
        separator = ",";
    }
    Add(*separator == '{' ? "{}" : "}");
}

void DumpWriter::AddItem(const IKeywordRecordData& record, const IKeywordDataMD& md, int i)
{
    switch (md.GetType()) {
    case MDType::Integer:
        return AddNumber(*Get<int>(record, i));
    case MDType::Real:
        return AddNumber(*Get<double>(record, i));
    case MDType::Boolean:
        return Add(*Get<bool>(record, i) ? "true" : "false");
    case MDType::Choice:
        return AddText(*GetChoice(record, i));
    case MDType::String:
    case MDType::Line:
        return AddText(*Get<std::string>(record, i));
    default:
        return AddData(*static_cast<const IKeywordData*>(record.GetData(i)));
    }
}

void DumpWriter::AddList(const IKeywordListData& list)
{
    constexpr std::size_t enough = std::size_t(1) << 16U; // bytes
    const IKeywordDataMD& md = *AsList(*list.GetMD()).GetItemMD();
    const bool isOfContainers = IsContainer(md);
    Add("[");
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        Add(i == 0 ? "" : isOfContainers ? ",\n " : ",");
        AddElement(list, md, i);
        if (text_.size() > enough)
            Flush();
    }
    Add("]");
}

void DumpWriter::AddElement(const IKeywordListData& list, const IKeywordDataMD& md, std::size_t i)
{
    if (IsContainer(md))
        return AddData(*static_cast<const IKeywordData*>(list.GetData(i)));
    if (list.IsDefaulted(i) || IsUnknown(list, i))
        return Add("null");
    switch (md.GetType()) {
    case MDType::Integer:
        return AddNumber(*static_cast<const int*>(list.GetData(i)));
    case MDType::Real:
        return AddNumber(*static_cast<const double*>(list.GetData(i)));
    case MDType::Boolean:
        return Add(*static_cast<const char*>(list.GetData(i)) != 0 ? "true" : "false");
    case MDType::Choice:
        return AddText(ChoiceAt(list, i));
    default:
        return AddText(*static_cast<const std::string*>(list.GetData(i)));
    }
}

void DumpWriter::AddMap(const IKeywordMapData& map)
{
    const char* separator = "{";
    for (int i = 0; i < map.GetSize(); ++i) {
        const Core::Service::Optional<int> value = map.GetValue(i);
        if (!value)
            continue;
        Add(separator);
        AddText(map.GetItemMD(i)->GetKeys().front());
        Add(":");
        AddNumber(*value);
        separator = ",";
    }
    Add(*separator == '{' ? "{}" : "}");
}

} // namespace

void DumpDeck(
    const Decks::Deck& deck, const std::string& name, const std::function<void(std::string_view)>& take)
{
    DumpWriter writer(take);
    writer.Add(fmt::format("{{\"schema_version\":{},\"deck\":", outputVersion));
    writer.AddText(name);
    writer.Add(",\"keywords\":[");
    const char* separator = "\n";
    for (const Decks::DeckKeyword keyword : deck) {
        writer.Add(separator);
        writer.Add("{\"name\":");
        writer.AddText(keyword.GetName());
        writer.Add(",\"section\":");
        if (keyword.GetSection() == SectionType::None)
            writer.Add("null");
        else
            writer.AddText(SectionType::ToString(keyword.GetSection()));
        if (const IKeywordData* const data = keyword.FindData()) {
            writer.Add(",\"data\":");
            writer.AddData(*data);
        }
        writer.Add("}");
        separator = ",\n";
    }
    writer.Add("\n]}\n");
    writer.Flush();
}

} // namespace Veld::Quor::Tools

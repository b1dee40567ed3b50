#include "tests/data/DataText.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace Veld::Quor::Tests {

using Service::Optional;

namespace {

bool Take(std::istream& text, char c)
{
    const bool found = (text >> std::ws).peek() == c;
    if (found)
        text.get();
    return found;
}

std::string Until(std::istream& text, const std::string& ends)
{
    std::string word;
    for (text >> std::ws; text.peek() >= 0 && ends.find(static_cast<char>(text.peek())) == std::string::npos;)
        word += static_cast<char>(text.get());
    return word;
}

using Node = std::unique_ptr<IKeywordDataMDInternal>;

struct DefaultableList : KeywordListMDImpl {
    using KeywordListMDImpl::KeywordListMDImpl;
    bool IsItemDefaultable() const override { return true; }
};

struct RecordWithIdentifiers : KeywordRecordMDImpl {
    bool IsIdentifier(int i) const override { return identifiers.count(i) > 0; }
    std::set<int> identifiers;
};

Node ReadNode(std::istream& text);

Node ReadRecord(std::istream& text)
{
    auto record = std::make_unique<RecordWithIdentifiers>();
    while (!Take(text, ')')) {
        record->AddItem(ReadNode(text), false, nullptr, nullptr);
        if (Take(text, '!'))
            record->identifiers.insert(record->GetSize() - 1);
    }
    return record;
}

Node ReadList(std::istream& text)
{
    if (Take(text, ']'))
        return std::make_unique<KeywordListMDImpl>();
    const bool defaultable = Take(text, '?');
    Node item = ReadNode(text);
    Take(text, ']');
    if (defaultable)
        return std::make_unique<DefaultableList>(std::move(item));
    return std::make_unique<KeywordListMDImpl>(std::move(item));
}

Node ReadMap(std::istream& text)
{
    auto map = std::make_unique<KeywordMapMDImpl>();
    while (!Take(text, '}')) {
        auto assignment = std::make_unique<KeywordAssignmentMDImpl>();
        std::vector<std::string> keys;
        do {
            keys.push_back(Until(text, "/ }"));
        } while (Take(text, '/'));
        assignment->SetKeys(keys);
        assignment->SetWildcard(keys.front().back() == '*');
        map->AddItem(std::move(assignment));
    }
    return map;
}

Node ReadNode(std::istream& text)
{
    char c = '\0';
    switch (text >> c; c) {
    case '(':
        return ReadRecord(text);
    case '[':
        return ReadList(text);
    case '{':
        return ReadMap(text);
    case 'b':
        return std::make_unique<KeywordBooleanMDImpl>();
    case 'c':
        return std::make_unique<KeywordChoiceMDImpl>();
    case 'i':
        return std::make_unique<KeywordIntegerMDImpl>();
    case 'l':
        return std::make_unique<KeywordLineMDImpl>();
    case 'r':
        return std::make_unique<KeywordRealMDImpl>();
    case 's':
        return std::make_unique<KeywordStringMDImpl>();
    case 'a':
        return std::make_unique<KeywordAssignmentMDImpl>();
    case 'w':
        return std::make_unique<KeywordRawMDImpl>();
    case '0':
        return nullptr;
    default:
        throw std::runtime_error(std::string("no such node: ") + c);
    }
}

/// `optional`: an item of a record, and no element of a list.
std::string DumpScalar(const void* place, MDType::Enum type, bool optional)
{
    std::ostringstream text;
    const auto put = [&](auto sample, const char* quote) {
        using T = decltype(sample);
        const auto& item = *static_cast<const Optional<T>*>(place);
        if (optional && !item)
            text << '-';
        else
            text << quote << (optional ? *item : *static_cast<const T*>(place)) << quote;
    };
    const auto putByte = [&](int byte) {
        if (optional && byte < 0)
            text << '-';
        else
            text << byte;
    };
    switch (type) {
    case MDType::Boolean:
        putByte(*static_cast<const signed char*>(place));
        break;
    case MDType::Choice:
    case MDType::Integer:
        put(int(), "");
        break;
    case MDType::Real:
        put(double(), "");
        break;
    case MDType::None:
        text << '0';
        break;
    default:
        put(std::string(), "'");
    }
    return text.str();
}

void FillScalar(std::istream& text, void* place, MDType::Enum type, bool optional)
{
    const auto put = [&](auto value) {
        using T = decltype(value);
        if (optional)
            *static_cast<Optional<T>*>(place) = value;
        else
            *static_cast<T*>(place) = value;
    };
    std::string word;
    if (Take(text, '\'')) {
        std::getline(text, word, '\'');
        return put(word);
    }
    word = Until(text, " )]~");
    if (word == "-")
        return;
    if (type == MDType::Boolean)
        *static_cast<char*>(place) = static_cast<char>(std::stoi(word));
    else if (type == MDType::Real)
        put(std::stod(word));
    else
        put(std::stoi(word));
}

void Fill(std::istream& text, IKeywordData& data);

void FillChild(std::istream& text, const Child& child, bool optional)
{
    if (IsNode(child.md))
        Fill(text, *static_cast<IKeywordData*>(child.place));
    else
        FillScalar(text, child.place, KeywordUtils::GetMDType(child.md), optional);
}

void Fill(std::istream& text, IKeywordData& data)
{
    if (Take(text, '[')) {
        IKeywordListData& list = AsList(data);
        const auto* const md = dynamic_cast<const IKeywordListMD&>(*data.GetMD()).GetItemMD();
        while (!Take(text, ']')) {
            FillChild(text, {list.AddData(nullptr), md}, false);
            if (Take(text, '~'))
                list.SetDefaulted(static_cast<std::size_t>(list.GetSize() - 1), true);
        }
    } else if (Take(text, '(')) {
        for (const Child& child : ChildrenOf(data))
            FillChild(text, child, true);
        Take(text, ')');
    } else if (Take(text, '{')) {
        while (!Take(text, '}')) {
            const std::string key = Until(text, "=");
            if (Take(text, '=') && !Take(text, '-'))
                AsMap(data).SetValue(key, std::stoi(Until(text, " }")));
        }
    } else if (Take(text, '"')) {
        std::string raw;
        std::getline(text, raw, '"');
        AsRaw(data).SetData(raw);
    }
}

} // namespace

Keyword::Keyword(const std::string& shape)
    : identifierCount(static_cast<int>(std::count(shape.begin(), shape.end(), '!')))
{
    std::istringstream text(shape);
    text.exceptions(std::ios::failbit);
    if (!shape.empty())
        md_ = ReadNode(text);
}

Keyword::~Keyword() = default;

std::string Dump(const IKeywordData& data)
{
    const MDType::Enum type = data.GetMD()->GetType();
    if (type == MDType::Raw)
        return '"' + dynamic_cast<const IKeywordRawData&>(data).GetData() + '"';
    const auto* const list = dynamic_cast<const IKeywordListData*>(&data);
    const auto* const map = dynamic_cast<const IKeywordMapData*>(&data);
    std::string text;
    std::size_t i = 0;
    for (const Child& child : ChildrenOf(const_cast<IKeywordData&>(data))) {
        text += i == 0 ? "" : " ";
        if (map) {
            const Optional<int> value = map->GetValue(static_cast<int>(i));
            text += map->GetItemMD(static_cast<int>(i))->GetKeys().front() + '='
                + DumpScalar(&value, MDType::Integer, true);
        } else {
            text += IsNode(child.md) ? Dump(*static_cast<IKeywordData*>(child.place))
                                     : DumpScalar(child.place, KeywordUtils::GetMDType(child.md), !list);
            text += list && list->IsDefaulted(i) ? "~" : "";
        }
        ++i;
    }
    return list ? '[' + text + ']' : map ? '{' + text + '}' : '(' + text + ')';
}

std::unique_ptr<IKeywordData> Make(const IKeywordSyntax& keyword, const std::string& text)
{
    std::unique_ptr<IKeywordData> data = KeywordDataFactory::Instance().Construct(keyword);
    std::istringstream reader(text);
    reader.exceptions(std::ios::failbit);
    if (!text.empty())
        Fill(reader, *data);
    if (!text.empty() && reader.peek() >= 0)
        throw std::runtime_error("not the text of such data: " + text);
    return data;
}

std::vector<Child> ChildrenOf(IKeywordData& data)
{
    std::vector<Child> children;
    if (auto* const record = dynamic_cast<IKeywordRecordData*>(&data)) {
        for (int i = 0; i < record->GetSize(); ++i)
            children.push_back(
                {record->GetData(i), dynamic_cast<const IKeywordRecordMD&>(*data.GetMD()).GetItemMD(i)});
    } else if (auto* const list = dynamic_cast<IKeywordListData*>(&data)) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(list->GetSize()); ++i)
            children.push_back(
                {list->GetData(i), dynamic_cast<const IKeywordListMD&>(*data.GetMD()).GetItemMD()});
    } else if (auto* const map = dynamic_cast<IKeywordMapData*>(&data)) {
        for (int i = 0; i < map->GetSize(); ++i)
            children.push_back({nullptr, map->GetItemMD(i)});
    }
    return children;
}

bool IsNode(const IKeywordDataMD* md)
{
    const MDType::Enum type = KeywordUtils::GetMDType(md);
    return type != MDType::None && type != MDType::Assignment && !KeywordUtils::IsItemMDType(md);
}

std::vector<std::vector<std::string>> Table(const std::string& text)
{
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(text.substr(1)); // begins with a line end
    for (std::string line; std::getline(lines, line);) {
        rows.emplace_back();
        std::istringstream cells(line + '|');
        for (std::string cell; std::getline(cells, cell, '|'); rows.back().push_back(cell))
            Service::StringTrimBlank(cell, true, true);
    }
    return rows;
}

} // namespace Veld::Quor::Tests

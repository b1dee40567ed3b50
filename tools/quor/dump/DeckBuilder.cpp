#include "tools/quor/dump/DeckBuilder.h"

#include "quor/data/Access.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/WriteKeyword.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/dump/DumpNames.h"
#include "tools/quor/terminal/Json.h"

#include <fmt/format.h>

#include <limits>
#include <stdexcept>
#include <utility>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Value = DeckBuilder::Value;

[[noreturn]] void Refuse(const std::string& expected)
{
    throw std::invalid_argument("expected " + expected);
}

const std::string& TextIn(const Value& value, const char* expected)
{
    const auto* const text = std::get_if<std::string>(&value);
    if (!text)
        Refuse(expected);
    return *text;
}

int IntegerIn(const Value& value)
{
    const auto* const number = std::get_if<std::int64_t>(&value);
    if (!number || *number < std::numeric_limits<int>::min() || *number > std::numeric_limits<int>::max())
        Refuse("a whole number");
    return static_cast<int>(*number);
}

double RealIn(const Value& value)
{
    if (const auto* const number = std::get_if<std::int64_t>(&value))
        return static_cast<double>(*number);
    const auto* const real = std::get_if<double>(&value);
    if (!real)
        Refuse("a number");
    return *real;
}

bool BooleanIn(const Value& value)
{
    const auto* const boolean = std::get_if<bool>(&value);
    if (!boolean)
        Refuse("true or false");
    return *boolean;
}

/// The bytes whose values are the characters of the text.
std::string BytesOf(const std::string& text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(text[i]);
        if (first < 0x80U)
            bytes += text[i];
        else if (first <= 0xC3U && i + 1 < text.size())
            bytes +=
                static_cast<char>((first & 0x03U) << 6U | (static_cast<unsigned char>(text[++i]) & 0x3FU));
        else
            Refuse("characters up to U+00FF in 'latin1'");
    }
    return bytes;
}

bool IsObject(const IKeywordDataMD& md)
{
    return md.GetType() == MDType::Record || md.GetType() == MDType::Map;
}

} // namespace

DeckBuilder::DeckBuilder(
    KeywordSyntaxTable& table, const Core::Decks::Target& target, std::function<void(std::string&&)> take)
    : table_(table)
    , target_(target)
    , take_(std::move(take))
{
}

std::string DeckBuilder::GetPlace() const
{
    if (frames_.size() < 3)
        return {};
    return name_.empty() ? fmt::format("keyword {}", number_)
                         : fmt::format("keyword {} ({})", number_, name_);
}

void DeckBuilder::Key(const std::string& name)
{
    Frame& frame = frames_.back();
    frame.key = name;
    if (frame.kind == Kind::Latin1 && name != latin1Member)
        Refuse(fmt::format("a text, or an object with '{}'", latin1Member));
    if (frame.kind == Kind::Data && frame.data->GetMD()->GetType() == MDType::Record)
        frame.item = ItemOf(AsRecord(*frame.data->GetMD()), name);
}

int DeckBuilder::ItemOf(const IKeywordRecordMD& md, const std::string& name)
{
    const auto [known, isNew] = items_.try_emplace(&md);
    if (isNew) {
        const std::vector<std::string> members = MembersOf(md);
        for (std::size_t i = 0; i < members.size(); ++i)
            known->second.emplace(members[i], static_cast<int>(i));
    }
    const auto item = known->second.find(name);
    if (item == known->second.end())
        Has(AsRecord(*frames_.back().data), name); // throws with the names that are near
    return item == known->second.end() ? -1 : item->second;
}

void DeckBuilder::Take(const Value& value)
{
    if (frames_.empty())
        Refuse("an object with 'keywords'");
    const Frame& frame = frames_.back();
    switch (frame.kind) {
    case Kind::Top:
        if (frame.key == "schema_version" && value != Value(std::int64_t{outputVersion}))
            Refuse(fmt::format("'schema_version' {}", outputVersion));
        if (frame.key == "keywords")
            Refuse("an array of keywords");
        return;
    case Kind::Keywords:
        Refuse("an object for each keyword");
    case Kind::Keyword:
        return TakeOfKeyword(value);
    case Kind::Data:
        return TakeData(value);
    case Kind::Latin1: {
        const std::string bytes = BytesOf(TextIn(value, "a text in 'latin1'"));
        const Frame latin1 = std::move(frames_.back());
        frames_.pop_back();
        Take(bytes);
        frames_.push_back(latin1);
        return;
    }
    }
}

void DeckBuilder::TakeOfKeyword(const Value& value)
{
    const std::string& key = frames_.back().key;
    if (key == "name") {
        name_ = TextIn(value, "a text as 'name'");
    } else if (key == "section") {
        bool isKnown = value == Value();
        section_ = isKnown ? SectionType::None
                           : SectionType::FromString(TextIn(value, "a text as 'section'"), &isKnown);
        if (!isKnown)
            Refuse("the name of a section as 'section'");
    } else if (key == "data") {
        MakeData();
        if (!data_)
            Refuse("no 'data': the keyword has none");
        if (data_->GetMD()->GetType() != MDType::Raw)
            Refuse("an array or an object as 'data'");
        AsRaw(*data_).SetData(TextIn(value, "a text as 'data'"));
    } else {
        Refuse("'name', 'section' or 'data'");
    }
}

void DeckBuilder::TakeData(const Value& value)
{
    const Frame& frame = frames_.back();
    switch (frame.data->GetMD()->GetType()) {
    case MDType::Record:
        return TakeItem(*frame.data, frame.item, value);
    case MDType::List:
        return TakeElement(*frame.data, value);
    default:
        if (value != Value())
            Set(AsMap(*frame.data), frame.key, IntegerIn(value));
    }
}

void DeckBuilder::TakeItem(IKeywordData& data, int item, const Value& value) const
{
    IKeywordRecordData& record = AsRecord(data);
    if (value == Value())
        return;
    switch (AsRecord(*record.GetMD()).GetItemMD(item)->GetType()) {
    case MDType::Boolean:
        return Set(record, item, BooleanIn(value));
    case MDType::Integer:
        return Set(record, item, IntegerIn(value));
    case MDType::Real:
        return Set(record, item, RealIn(value));
    case MDType::Choice:
        return SetChoice(record, item, TextIn(value, "the word of a choice"));
    case MDType::String:
    case MDType::Line:
        return Set(record, item, TextIn(value, "a text"));
    case MDType::Raw:
        return AsRaw(*static_cast<IKeywordData*>(record.GetData(item))).SetData(TextIn(value, "a text"));
    default:
        Refuse("an array or an object");
    }
}

void DeckBuilder::TakeElement(IKeywordData& data, const Value& value) const
{
    IKeywordListData& list = AsList(data);
    const IKeywordDataMD& md = *AsList(*list.GetMD()).GetItemMD();
    if (value == Value() && !IsContainer(md)) {
        list.AddData(nullptr);
        return list.SetDefaulted(static_cast<std::size_t>(list.GetSize()) - 1, true);
    }
    switch (md.GetType()) {
    case MDType::Boolean:
        return AddValue(list, BooleanIn(value));
    case MDType::Integer:
        return AddValue(list, IntegerIn(value));
    case MDType::Real:
        return AddValue(list, RealIn(value));
    case MDType::Choice:
        return AddChoice(list, TextIn(value, "the word of a choice"));
    case MDType::String:
    case MDType::Line:
        return AddValue(list, TextIn(value, "a text"));
    default:
        Refuse("an array or an object for each element");
    }
}

void DeckBuilder::StartObject()
{
    Start(true);
}

void DeckBuilder::StartArray()
{
    Start(false);
}

void DeckBuilder::Start(bool isObject)
{
    const Kind kind = frames_.empty() ? Kind::Top : frames_.back().kind;
    if (frames_.empty()) {
        if (!isObject)
            Refuse("an object with 'keywords'");
        return frames_.push_back({Kind::Top});
    }
    if (kind == Kind::Top) {
        if (isObject || frames_.back().key != "keywords")
            Refuse("'keywords' as an array");
        isWhole_ = true;
        return frames_.push_back({Kind::Keywords});
    }
    if (kind != Kind::Keywords)
        return StartData(isObject);
    if (!isObject)
        Refuse("an object for each keyword");
    ++number_;
    name_.clear();
    section_ = SectionType::None;
    syntax_ = nullptr;
    data_.reset();
    frames_.push_back({Kind::Keyword});
}

/// The data of a keyword, or a part of them.
void DeckBuilder::StartData(bool isObject)
{
    if (frames_.back().kind == Kind::Latin1)
        Refuse("a text in 'latin1'");
    IKeywordData* const inner = Inner(isObject);
    frames_.push_back(inner ? Frame{Kind::Data, inner} : Frame{Kind::Latin1});
}

/// Null for an object that stands for a text.
IKeywordData* DeckBuilder::Inner(bool isObject)
{
    const Frame& frame = frames_.back();
    IKeywordData* inner = nullptr;
    if (frame.kind == Kind::Keyword) {
        if (frame.key != "data")
            Refuse("'name', 'section' or 'data'");
        MakeData();
        if (!data_)
            Refuse("no 'data': the keyword has none");
        inner = data_.get();
    } else if (frame.data->GetMD()->GetType() == MDType::Record) {
        if (IsContainer(*AsRecord(*frame.data->GetMD()).GetItemMD(frame.item)))
            inner = static_cast<IKeywordData*>(AsRecord(*frame.data).GetData(frame.item));
    } else if (frame.data->GetMD()->GetType() == MDType::List) {
        IKeywordListData& list = AsList(*frame.data);
        if (IsContainer(*AsList(*list.GetMD()).GetItemMD()))
            inner = static_cast<IKeywordData*>(list.AddData(nullptr));
    }
    const bool isText = !inner || inner->GetMD()->GetType() == MDType::Raw;
    if (isText && isObject)
        return nullptr;
    if (isText || isObject != IsObject(*inner->GetMD()))
        Refuse(isText ? "a value" : IsObject(*inner->GetMD()) ? "an object" : "an array");
    return inner;
}

void DeckBuilder::MakeData()
{
    if (name_.empty())
        Refuse("'name' before 'data'");
    syntax_ = table_.Lookup(name_, section_, true);
    if (!syntax_)
        syntax_ = table_.Lookup(name_, true);
    if (!syntax_)
        throw std::invalid_argument("unknown keyword");
    data_ = syntax_->GetDataMD() ? KeywordDataFactory::Instance().Construct(*syntax_) : nullptr;
}

void DeckBuilder::End()
{
    const Kind kind = frames_.back().kind;
    if (kind == Kind::Keyword)
        EndKeyword();
    frames_.pop_back();
}

void DeckBuilder::EndKeyword()
{
    if (!syntax_)
        MakeData();
    if (!data_)
        return take_(name_ + '\n');
    // What stands for many is called as the deck calls it.
    const std::string text = Core::Decks::WriteKeyword(*data_, target_);
    take_(name_ + text.substr(syntax_->GetName().size()));
    data_.reset();
}

} // namespace Veld::Quor::Tools

#include "tools/deck/DataReader.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/variables/VariablesString.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Where the path leads, by the indices of items and elements.
const IKeywordData& FollowPath(const IKeywordData& root, const std::vector<int>& path)
{
    const IKeywordData* node = &root;
    for (const int index : path) {
        const bool isList = node->GetMD()->GetType() == MDType::List;
        const void* const below = isList
            ? static_cast<const IKeywordListData*>(node)->GetData(static_cast<std::size_t>(index))
            : static_cast<const IKeywordRecordData*>(node)->GetData(index);
        node = static_cast<const IKeywordData*>(below);
    }
    return *node;
}

} // namespace

void DataReader::Pass(std::size_t slots)
{
    position_.slots += slots;
    if (keepsPlaces_)
        notes_.values.insert(notes_.values.end(), slots, value_.spot);
}

/// A slash came in place of the scalar, or of the items of the record.
void DataReader::PassMissing(const DataPlan& plan, std::size_t firstItem)
{
    std::size_t slots = plan.IsScalar() ? 1 : 0;
    for (std::size_t i = firstItem; i < plan.items.size() && plan.type == MDType::Record; ++i)
        slots += plan.items[i].slots;
    position_.slots += slots;
    if (keepsPlaces_)
        notes_.values.insert(notes_.values.end(), slots, Spot{value_.spot.file, value_.spot.offset, 0});
}

void DataReader::NoteComment(const Spot& spot, CommentKind kind)
{
    DataPosition position = position_;
    if (kind == CommentKind::BehindSlash) // which is about to be counted
        ++position.ends;
    notes_.comments.push_back({spot, kind, position});
}

/// The nodes don't move any more. Comments behind the last word belong to what follows.
void DataReader::FinishNotes(const IKeywordData& data)
{
    const auto isBehind = [this](const DataComment& comment) {
        return comment.spot.file != keyword_.spot.file || comment.spot.offset >= GetEnd();
    };
    notes_.comments.erase(
        std::find_if(notes_.comments.begin(), notes_.comments.end(), isBehind), notes_.comments.end());
    if (variablePlaces_.empty())
        return;
    notes_.variables = std::make_unique<DataVariables>();
    for (const VariablePlace& place : std::exchange(variablePlaces_, {})) {
        const IKeywordData& node = FollowPath(data, place.path);
        if (place.key.empty())
            notes_.variables->Add(node, place.index, place.count, place.text);
        else
            notes_.variables->Add(node, place.key, place.text);
    }
}

// Variables

void DataReader::NoteVariable(int index, long long count)
{
    isVariable_ = false;
    variablePlaces_.push_back({path_, index, static_cast<int>(count), {}, std::string(value_.text)});
}

/// Empty, and told, if one of them has no value.
std::optional<std::string> DataReader::ReplaceVariables(const VariablesString& text)
{
    std::string replaced = text.GetString();
    std::size_t behind = 0;
    bool isWhole = true;
    for (const std::string& name : text.GetVariables()) {
        const auto value = variables_.find(name);
        if (value == variables_.end()) {
            TellVariable(name);
            isWhole = false;
            continue;
        }
        const std::size_t begin = replaced.find(name, behind);
        replaced.replace(begin, name.size(), value->second);
        behind = begin + value->second.size();
    }
    return isWhole ? std::optional<std::string>(std::move(replaced)) : std::nullopt;
}

/// Once for each name.
void DataReader::TellVariable(const std::string& name)
{
    std::string resolved;
    if (!text_.GetAliases().resolvePathAliases(name, resolved))
        return;
    ++unknownVariables_;
    if (!toldVariables_.insert(name).second)
        return;
    teller_.Tell(value_.spot, Code::UnknownVariable, fmt::format("the variable {} has no value", name),
        fmt::format("give it one with --set {}=VALUE", name.substr(1)));
}

template <class T>
std::optional<bool> DataReader::ConvertVariables(const DataPlan& item, T& value)
{
    if (isReplaced_ || value_.text.find('$') == std::string_view::npos)
        return std::nullopt;
    const VariablesString text((std::string(value_.text)));
    if (text.GetVariables().empty())
        return std::nullopt;
    isVariable_ = true;
    const auto replaced = ReplaceVariables(text);
    if (!replaced)
        return false;
    const Token original = std::exchange(value_, {Token::Kind::Word, value_.spot, *replaced});
    isReplaced_ = true;
    const bool isConverted = Convert(item, value);
    isReplaced_ = false;
    value_ = original;
    return isConverted;
}

template std::optional<bool> DataReader::ConvertVariables(const DataPlan&, bool&);
template std::optional<bool> DataReader::ConvertVariables(const DataPlan&, int&);
template std::optional<bool> DataReader::ConvertVariables(const DataPlan&, double&);
template std::optional<bool> DataReader::ConvertVariables(const DataPlan&, std::string&);

} // namespace Veld::Quor::Tools::Deck

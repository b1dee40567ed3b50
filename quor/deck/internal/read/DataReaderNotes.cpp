#include "quor/deck/internal/read/DataReader.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/variables/VariablesString.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

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
    if (keepsValueRanges_)
        notes_.values.insert(notes_.values.end(), slots, value_.range);
}

/// A slash came in place of the scalar, or of the items of the record.
void DataReader::PassMissing(const DataPlan& plan, std::size_t firstItem)
{
    std::size_t slots = plan.IsScalar() ? 1 : 0;
    for (std::size_t i = firstItem; i < plan.items.size() && plan.type == MDType::Record; ++i)
        slots += plan.items[i].slots;
    position_.slots += slots;
    if (keepsValueRanges_)
        notes_.values.insert(
            notes_.values.end(), slots, TextRange{value_.range.file, value_.range.offset, 0});
}

void DataReader::NoteComment(const TextRange& range, CommentKind kind)
{
    DataPosition position = position_;
    if (kind == CommentKind::AfterSlash) // which is about to be counted
        ++position.ends;
    notes_.comments.push_back({range, kind, position});
}

/// The nodes don't move any more. Comments after the last word belong to what follows.
void DataReader::FinishNotes(const IKeywordData& data)
{
    const auto isAfter = [this](const DataComment& comment) {
        return comment.range.file != keyword_.range.file || comment.range.offset >= GetEnd();
    };
    notes_.comments.erase(
        std::find_if(notes_.comments.begin(), notes_.comments.end(), isAfter), notes_.comments.end());
    if (variableUses_.empty())
        return;
    notes_.variables = std::make_unique<DataVariables>();
    for (const VariableUse& storage : std::exchange(variableUses_, {})) {
        const IKeywordData& node = FollowPath(data, storage.path);
        if (storage.key.empty())
            notes_.variables->Add(node, storage.index, storage.count, storage.text);
        else
            notes_.variables->Add(node, storage.key, storage.text);
    }
}

// Variables

void DataReader::NoteVariable(int index, long long count)
{
    isVariable_ = false;
    variableUses_.push_back({path_, index, static_cast<int>(count), {}, std::string(value_.text)});
}

/// Empty, and reported, if one of them has no value.
std::optional<std::string> DataReader::ReplaceVariables(const VariablesString& text)
{
    std::string replaced = text.GetString();
    std::size_t after = 0;
    bool isWhole = true;
    for (const std::string& name : text.GetVariables()) {
        const auto value = variables_.find(name);
        if (value == variables_.end()) {
            ReportVariable(name);
            isWhole = false;
            continue;
        }
        const std::size_t begin = replaced.find(name, after);
        replaced.replace(begin, name.size(), value->second);
        after = begin + value->second.size();
    }
    return isWhole ? std::optional<std::string>(std::move(replaced)) : std::nullopt;
}

/// Once for each name.
void DataReader::ReportVariable(const std::string& name)
{
    std::string resolved;
    if (!text_.GetAliases().resolvePathAliases(name, resolved))
        return;
    ++unknownVariables_;
    if (!reportedVariables_.insert(name).second)
        return;
    reporter_.Report(value_.range, Code::UnknownVariable, fmt::format("the variable {} has no value", name),
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
    const Token original = std::exchange(value_, {Token::Kind::Word, value_.range, *replaced});
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

} // namespace Veld::Quor::Core::Decks

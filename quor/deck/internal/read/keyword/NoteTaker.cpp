#include "quor/deck/internal/read/keyword/NoteTaker.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"

#include <algorithm>

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

NoteTaker::NoteTaker(DeckText& text, bool keepsValueRanges)
    : keepsValueRanges_(keepsValueRanges)
{
    text.SetCommentSink([this](const TextRange& range, CommentKind kind) { AddComment(range, kind); });
}

void NoteTaker::Begin()
{
    notes_ = {};
    position_ = {};
}

void NoteTaker::Pass(const TextRange& range, std::size_t slots)
{
    position_.slots += slots;
    if (keepsValueRanges_)
        notes_.values.insert(notes_.values.end(), slots, range);
}

void NoteTaker::PassMissing(const DataPlan& plan, std::size_t firstItem, const TextRange& range)
{
    std::size_t slots = plan.IsScalar() ? 1 : 0;
    for (std::size_t i = firstItem; i < plan.items.size() && plan.type == MDType::Record; ++i)
        slots += plan.items[i].slots;
    Pass({range.file, range.offset, 0}, slots);
}

void NoteTaker::PassEndWord(std::string_view word)
{
    notes_.endWords.emplace_back(word);
    PassEnd();
}

void NoteTaker::AddComment(const TextRange& range, CommentKind kind)
{
    DataPosition position = position_;
    if (kind == CommentKind::AfterSlash) // which is about to be counted
        ++position.ends;
    notes_.comments.push_back({range, kind, position});
}

void NoteTaker::AddVariable(int index, long long count, std::string_view text)
{
    variableUses_.push_back({path_, index, static_cast<int>(count), {}, std::string(text)});
}

void NoteTaker::AddVariable(const std::string& key, const std::string& text)
{
    variableUses_.push_back({path_, 0, 1, key, text});
}

DataNotes NoteTaker::Finish(const IKeywordData& data, const TextRange& end)
{
    const auto isAfter = [&end](const DataComment& comment) {
        return comment.range.file != end.file || comment.range.offset >= end.offset;
    };
    notes_.comments.erase(
        std::find_if(notes_.comments.begin(), notes_.comments.end(), isAfter), notes_.comments.end());
    if (!variableUses_.empty())
        notes_.variables = std::make_unique<DataVariables>();
    for (const VariableUse& use : std::exchange(variableUses_, {})) {
        const IKeywordData& node = FollowPath(data, use.path);
        if (use.key.empty())
            notes_.variables->Add(node, use.index, use.count, use.text);
        else
            notes_.variables->Add(node, use.key, use.text);
    }
    return std::move(notes_);
}

} // namespace Veld::Quor::Core::Decks

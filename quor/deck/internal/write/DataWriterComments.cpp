#include "quor/deck/internal/write/DataWriter.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/write/PlanShape.h"

// The comments between the data of a keyword.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

const DataComment* DataWriter::FindComment() const
{
    const bool isHere = notes_ && nextComment_ < notes_->comments.size()
        && notes_->comments[nextComment_].position.IsUpTo(position_);
    return isHere ? &notes_->comments[nextComment_] : nullptr;
}

/// The slots before the next comment.
std::uint64_t DataWriter::FindNextSlot() const
{
    const bool isThere = notes_ && nextComment_ < notes_->comments.size();
    return isThere ? notes_->comments[nextComment_].position.slots : 0;
}

/// The same for rows as `WriteTabular` writes them.
bool DataWriter::HasCommentWithinRows(const DataPlan& record, const IKeywordListData& list) const
{
    DataPosition position = position_;
    std::size_t next = nextComment_;
    const auto countUpTo = [&](const DataPosition& location) {
        const std::size_t before = next;
        while (notes_ && next < notes_->comments.size() && notes_->comments[next].position.IsUpTo(location))
            ++next;
        return next - before;
    };
    const std::size_t lead = record.items.size() - 1;
    for (std::size_t i = 0; notes_ && i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& data = *static_cast<const IKeywordRecordData*>(list.GetData(i));
        const auto rows = static_cast<const IKeywordListData&>(NestedIn(data, lead)).GetSize();
        const std::size_t slots = record.items.back().items.front().slots;
        countUpTo(position);
        position.slots += lead;
        for (std::int64_t j = 0; j < rows; ++j) {
            position.slots += slots;
            if (countUpTo({position.slots - 1, position.ends}) > 0)
                return true;
            if (j + 1 < rows)
                countUpTo(position);
        }
        if (countUpTo(position) > 0)
            return true;
        ++position.ends;
    }
    return false;
}

/// Whether a comment is between the first and the last word of the record that comes next.
bool DataWriter::HasCommentWithin(const DataPlan& record) const
{
    if (!notes_ || nextComment_ == notes_->comments.size())
        return false;
    const DataPosition& next = notes_->comments[nextComment_].position;
    const std::uint64_t last =
        position_.slots + record.slots - (record.termination == DataPlan::Termination::SLASH ? 0 : 1);
    return next.slots <= last && next.ends <= position_.ends;
}

void DataWriter::WriteComments()
{
    while (const DataComment* const comment = FindComment()) {
        WriteNumbers();
        if (comment->kind == CommentKind::OwnLine)
            lines_.Comment(TextOf(*comment), IsIndented(*comment));
        else
            lines_.After(TextOf(*comment));
        ++nextComment_;
    }
}

std::string DataWriter::TextOf(const DataComment& comment) const
{
    const std::string text(files_.GetText(comment.range));
    const bool isRemark = comment.kind == CommentKind::AfterText && !IsComment(text); // of a keyword
    return isRemark ? "-- " + text : text;
}

bool DataWriter::IsIndented(const DataComment& comment) const
{
    return files_.LineOf(comment.range).second != comment.range.offset;
}

} // namespace Veld::Quor::Core::Decks

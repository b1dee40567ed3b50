#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"

#include <array>
#include <cstddef>
#include <span>

namespace Veld::Quor::Core::Decks {

/// Looks at the records of a keyword's outermost list, a few at a time and soon after they have been read:
/// the processor has them at hand then, and no longer when a long list ends.
class RecordWatch {
public:
    using Record = Core::Keywords::IKeywordRecordData;

    /// The list has one more record, which is whole.
    void Add(const Core::Keywords::IKeywordListData& list)
    {
        list_ = &list;
        if (++count_ == records_.size())
            LookAtLast();
    }

protected:
    RecordWatch() = default;
    RecordWatch(const RecordWatch&) = default;
    RecordWatch& operator=(const RecordWatch&) = default;
    ~RecordWatch() = default;

    /// Those that have come since it was last called. They last until the list changes.
    virtual void LookAt(std::span<const Record* const> records) = 0;

    void LookAtLast()
    {
        for (std::size_t i = 0; i < count_; ++i)
            records_[i] = static_cast<const Record*>(
                static_cast<const Core::Keywords::IKeywordData*>(list_->GetData(first_ + i)));
        const std::span last(records_.data(), count_);
        first_ += count_;
        count_ = 0;
        LookAt(last);
    }
    /// Another list comes.
    void Forget()
    {
        list_ = nullptr;
        first_ = count_ = 0;
    }
    /// Whether all that has come is of the list.
    bool IsOf(const Core::Keywords::IKeywordListData& list) const { return !list_ || list_ == &list; }

private:
    std::array<const Record*, 64> records_ = {}; // as many as the nearest cache holds
    const Core::Keywords::IKeywordListData* list_ = nullptr;
    std::size_t first_ = 0; // of those that haven't been looked at
    std::size_t count_ = 0; // of these
};

} // namespace Veld::Quor::Core::Decks

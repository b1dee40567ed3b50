#pragma once

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

    /// The next one, which is whole.
    void Add(const Record& record)
    {
        records_[count_] = &record;
        if (++count_ == records_.size())
            LookAtLast();
    }

protected:
    RecordWatch() = default;
    RecordWatch(const RecordWatch&) = default;
    RecordWatch& operator=(const RecordWatch&) = default;
    ~RecordWatch() = default;

    /// Those that have come since it was last called.
    virtual void LookAt(std::span<const Record* const> records) = 0;

    void LookAtLast()
    {
        const std::span last(records_.data(), count_);
        count_ = 0;
        LookAt(last);
    }
    void Forget() { count_ = 0; }

private:
    std::array<const Record*, 64> records_ = {}; // as many as the nearest cache holds
    std::size_t count_ = 0;
};

} // namespace Veld::Quor::Core::Decks

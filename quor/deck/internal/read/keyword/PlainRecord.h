#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/values/DataPlan.h"

#include <cstddef>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// A record as most are: on one line, and nothing is to be said of any of its words. All others are left to
/// the reader that knows every case.
class PlainRecord {
public:
    /// Whether the text begins with such a record, which `plan` says may be one. Its values are put into
    /// `record`, a new one of the plan; if it is none, some may be in there.
    bool Read(std::string_view text, const DataPlan& plan, Core::Keywords::IKeywordRecordData& record);

    /// Of the text, up to the slash.
    std::size_t GetLength() const { return length_; }
    /// The last word before the slash, in the text.
    std::string_view GetLast() const { return last_; }
    /// How many items are given, or are defaults before the slash.
    std::size_t GetGiven() const { return given_; }
    /// What repeats of defaults make beyond the words themselves.
    std::size_t GetRepeated() const { return repeated_; }

private:
    std::size_t ReadWord(std::string_view line);
    std::size_t ReadUsual(std::string_view line);
    std::size_t ReadQuoted(std::string_view line);
    std::size_t ReadBare(std::string_view line);
    bool TakeDefaults(std::size_t count);
    bool TakeValue(std::string_view text, bool isQuoted);
    template <class T>
    void Set(T&& value);

    const DataPlan* item_ = nullptr; // the next one
    const DataPlan* itemsEnd_ = nullptr;
    Core::Keywords::IKeywordRecordData* record_ = nullptr;
    std::size_t length_ = 0;
    std::string_view last_;
    std::size_t given_ = 0;
    std::size_t repeated_ = 0;
};

} // namespace Veld::Quor::Core::Decks

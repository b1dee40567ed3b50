#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/values/DataPlan.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A record as most are: on one line, and nothing is to be said of any of its words. All others are left to
/// the reader that knows every case.
class PlainRecord {
public:
    /// Whether the text begins with such a record, which `plan` says may be one. The text must outlive what
    /// was read.
    bool Read(std::string_view text, const DataPlan& plan);

    /// Of the text, up to the slash.
    std::size_t GetLength() const { return length_; }
    /// The last word before the slash.
    std::string_view GetLast() const { return last_; }
    /// How many items are given, or are defaults before the slash.
    std::size_t GetGiven() const { return given_; }
    /// What repeats of defaults make beyond the words themselves.
    std::size_t GetRepeated() const { return repeated_; }

    /// Puts the values into a new record of the plan.
    void Fill(Core::Keywords::IKeywordRecordData& record) const;

private:
    struct Value {
        std::size_t item;
        std::string_view text; // of a text
        double real;
        int whole; // a number, the index of a choice, or whether it is true
    };

    bool ReadWord(std::string_view line);
    bool ReadUsual(std::string_view line);
    bool ReadQuoted(std::string_view line);
    bool ReadBare(std::string_view line);
    bool TakeDefaults(std::size_t count);
    bool TakeValue(std::string_view text, bool isQuoted);

    const DataPlan* plan_ = nullptr;
    std::vector<Value> values_;
    std::size_t length_ = 0;
    std::string_view last_;
    std::size_t given_ = 0;
    std::size_t repeated_ = 0;
};

} // namespace Veld::Quor::Core::Decks

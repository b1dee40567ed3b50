#pragma once

#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/deck/internal/write/TextRow.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// The text of a keyword as it was laid out: lines, repeats and comments stay, and columns where they are.
/// Rows whose columns are not below one another are aligned. What a tidy deck doesn't have is fixed: blanks
/// within quotes, blank texts and needless defaults in records, assignments in quotes, a remark without
/// hyphens.
class KeptText {
public:
    /// `plan`: of the keyword's data. `text`: from its name to the end of its data; `name`: bytes of the
    /// name. `remark`: where a remark without hyphens begins on the line of the name, or 0.
    KeptText(const DataPlan& plan, std::string_view text, std::size_t name, std::size_t remark);

    std::string Write();

private:
    void ReadLine(std::string_view line, bool isFirst);
    std::size_t ReadWord(std::string_view line, std::size_t offset);
    std::string_view Fixed(const DataWord& word, std::string_view spelling);
    void AddSlash(std::size_t offset);
    void AddComment(std::size_t offset, std::string_view hyphens);
    void EndRecord();
    void FindRow(std::size_t before, bool isEnded);
    bool AreOfOneForm(const TextRow& first, const TextRow& second);
    void Align();

    const DataPlan& plan_;
    std::string_view text_;
    std::size_t name_;
    std::size_t remark_;
    std::size_t headers_ = 0; // records before the rows
    const DataPlan* record_; // of rows; null: no line is one
    bool hasItems_; // the values of such a row are the items of the record, and no more

    TextRows rows_;
    LineColumns columns_; // of the line being read
    std::size_t value_ = 0; // of the record, that comes next
    bool isCut_ = false; // the line is shorter: its slash follows
};

} // namespace Veld::Quor::Core::Decks

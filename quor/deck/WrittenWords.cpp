#include "quor/deck/WrittenWords.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/WordText.h"

namespace Veld::Quor::Core::Decks {

std::vector<WrittenWord> FindWords(std::string_view lines)
{
    std::vector<WrittenWord> words;
    LineReader reader(lines);
    for (Line line; reader.Next(line);) {
        const auto start = static_cast<std::size_t>(line.text.data() - lines.data());
        const LineWords found = FindLineWords(line.text);
        for (std::size_t i = 0; i < found.words.size(); ++i) {
            const DataWord& word = found.words[i];
            words.push_back({start + found.offsets[i], word.length, word.text, word.repeat.count,
                word.IsDefault(), word.IsQuoted()});
        }
        if (found.isEnded)
            words.push_back({start + found.end, 1, line.text.substr(found.end, 1), 1, false, false, true});
    }
    return words;
}

} // namespace Veld::Quor::Core::Decks

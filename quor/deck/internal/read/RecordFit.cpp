#include "quor/deck/internal/read/RecordFit.h"

#include "quor/deck/internal/read/ValueReader.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

bool Fits(const DataPlan& record, std::size_t first, std::span<const DataWord> words)
{
    const auto& items = record.items;
    std::size_t next = first;
    for (const DataWord& word : words) {
        for (long long i = 0; i < word.repeat.count; ++i, ++next) {
            if (next >= items.size())
                return false;
            if (!items[next].IsScalar())
                return true;
            if (word.IsDefault() ? !items[next].MayBeMissing() : !CanBeValue(items[next], word))
                return false;
        }
    }
    return std::all_of(items.begin() + static_cast<std::ptrdiff_t>(std::min(next, items.size())), items.end(),
        [](const DataPlan& item) { return !item.IsScalar() || item.MayBeMissing() || !item.isValid; });
}

std::string FindShift(const DataPlan& record, std::size_t index, long long repeats, LineWords line)
{
    if (!line.isEnded || line.words.empty())
        return {};
    line.words.front().repeat.count = repeats;
    if (Fits(record, index + 1, line.words))
        return {};
    if (Fits(record, index, std::span(line.words).subspan(1)))
        return "this value seems to be extra";
    line.words.front().repeat.count = repeats + 1;
    for (std::size_t first = index + 1; first < record.items.size(); ++first) {
        if (Fits(record, first, line.words))
            return first == index + 1
                ? "a value seems to be missing before this one"
                : fmt::format("{} values seem to be missing before this one", first - index);
    }
    return {};
}

} // namespace Veld::Quor::Core::Decks

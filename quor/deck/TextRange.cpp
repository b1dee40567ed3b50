#include "quor/deck/TextRange.h"

#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace Veld::Quor::Core::Decks {

namespace {

/// An insertion comes before what replaces the bytes that follow it.
bool GoesBefore(const TextEdit& a, const TextEdit& b)
{
    if (a.range.offset != b.range.offset)
        return a.range.offset < b.range.offset;
    return a.range.length == 0 && b.range.length > 0;
}

} // namespace

std::string ApplyEdits(std::string_view text, std::vector<TextEdit> edits)
{
    std::stable_sort(edits.begin(), edits.end(), GoesBefore);
    std::string changed;
    std::size_t position = 0;
    for (const TextEdit& edit : edits) {
        const auto& [file, offset, length] = edit.range;
        if (file != edits.front().range.file)
            throw std::invalid_argument("the changes are of more than one file");
        if (offset < position)
            throw std::invalid_argument(fmt::format("changes overlap at byte {} of the text", offset));
        if (offset > text.size() || length > text.size() - offset)
            throw std::invalid_argument(
                fmt::format("a change of {} at byte {} goes beyond the text, which has {}",
                    Counted(length, "byte"), offset, Counted(text.size(), "byte")));
        changed += text.substr(position, offset - position);
        changed += edit.text;
        position = offset + length;
    }
    changed += text.substr(position);
    return changed;
}

} // namespace Veld::Quor::Core::Decks

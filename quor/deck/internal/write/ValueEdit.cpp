#include "quor/deck/internal/write/ValueEdit.h"

#include "quor/deck/internal/text/NumberText.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

bool IsSame(const TextRange& a, const TextRange& b)
{
    return a.file == b.file && a.offset == b.offset && a.length == b.length;
}

/// Whether it is a record of scalars, or a list of such records.
bool IsFlat(const IKeywordDataMD& md)
{
    if (md.GetType() == MDType::List) {
        const IKeywordDataMD* const item = static_cast<const IKeywordListMD&>(md).GetItemMD();
        return item && item->GetType() == MDType::Record && IsFlat(*item);
    }
    if (md.GetType() != MDType::Record)
        return false;
    const auto& record = static_cast<const IKeywordRecordMD&>(md);
    for (int i = 0; i < record.GetSize(); ++i) {
        if (!KeywordUtils::IsItemMDType(record.GetItemMD(i)->GetType()))
            return false;
    }
    return true;
}

/// `word` for so many values; nothing for none. A word of no length is a default.
std::string Repeated(std::size_t count, std::string_view word)
{
    if (count == 1 && !word.empty())
        return std::string(word);
    return count == 0 ? std::string() : fmt::format("{}*{}", count, word);
}

std::string Joined(const std::string& before, std::string_view word, const std::string& after)
{
    return fmt::format(
        "{}{}{}{}{}", before, before.empty() ? "" : " ", word, after.empty() ? "" : " ", after);
}

} // namespace

std::optional<TextEdit> EditValue(
    const KeywordInstance& keyword, const DeckFiles& files, std::size_t slot, std::string_view word)
{
    if (!keyword.notes || slot >= keyword.notes->values.size())
        return std::nullopt;
    const std::vector<TextRange>& ranges = keyword.notes->values;
    const TextRange& range = ranges[slot];
    std::size_t first = slot;
    while (first > 0 && IsSame(ranges[first - 1], range))
        --first;
    if (range.length == 0) {
        if (!IsFlat(*keyword.data->GetMD()))
            return std::nullopt;
        return TextEdit{range, Joined(Repeated(slot - first, {}), word, {}) + ' '};
    }
    std::size_t after = slot + 1;
    while (after < ranges.size() && IsSame(ranges[after], range))
        ++after;
    std::string_view old = files.GetText(range);
    old.remove_prefix(FindRepeat(old).length);
    return TextEdit{range, Joined(Repeated(slot - first, old), word, Repeated(after - slot - 1, old))};
}

} // namespace Veld::Quor::Core::Decks

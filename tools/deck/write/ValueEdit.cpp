#include "tools/deck/write/ValueEdit.h"

#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "tools/deck/NumberText.h"

#include <fmt/format.h>

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

bool IsSame(const Spot& a, const Spot& b)
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

std::string Joined(const std::string& before, std::string_view word, const std::string& behind)
{
    return fmt::format(
        "{}{}{}{}{}", before, before.empty() ? "" : " ", word, behind.empty() ? "" : " ", behind);
}

} // namespace

std::optional<Edit> EditValue(
    const DeckKeyword& keyword, const DeckFiles& files, std::size_t slot, std::string_view word)
{
    if (!keyword.notes || slot >= keyword.notes->values.size())
        return std::nullopt;
    const std::vector<Spot>& spots = keyword.notes->values;
    const Spot& spot = spots[slot];
    std::size_t first = slot;
    while (first > 0 && IsSame(spots[first - 1], spot))
        --first;
    if (spot.length == 0) {
        if (!IsFlat(*keyword.data->GetMD()))
            return std::nullopt;
        return Edit{spot, Joined(Repeated(slot - first, {}), word, {}) + ' '};
    }
    std::size_t behind = slot + 1;
    while (behind < spots.size() && IsSame(spots[behind], spot))
        ++behind;
    std::string_view old = files.GetText(spot);
    old.remove_prefix(FindRepeat(old).length);
    return Edit{spot, Joined(Repeated(slot - first, old), word, Repeated(behind - slot - 1, old))};
}

std::string Apply(const Edit& edit, const DeckFiles& files)
{
    std::string text(files.GetText(edit.spot.file));
    return text.replace(edit.spot.offset, edit.spot.length, edit.text);
}

} // namespace Veld::Quor::Tools::Deck

#include "quor/deck/internal/compare/DataComparison.h"

#include "quor/data/Access.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/deck/internal/read/data/VisitData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string_view>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

constexpr const char* absent = "absent";

const IKeywordDataMD* ItemOf(const IKeywordListData& list)
{
    return static_cast<const IKeywordListMD&>(*list.GetMD()).GetItemMD();
}

std::string Below(const std::string& path, const std::string& name)
{
    return path.empty() || name.empty() ? path + name : path + ' ' + name;
}

std::string Element(const std::string& path, std::size_t index)
{
    return fmt::format("{}[{}]", path, index + 1);
}

std::string ElementText(const IKeywordListData& list, std::size_t i)
{
    const IKeywordDataMD& md = *ItemOf(list);
    if (KeywordUtils::IsItemMDType(md.GetType()) && IsUnknown(list, i))
        return "unknown";
    if (KeywordUtils::IsItemMDType(md.GetType()))
        return list.IsDefaulted(i) ? "default" : ToText(md, ElementValue(md, list.GetData(i)));
    if (md.GetType() == MDType::Record)
        return RecordText(*static_cast<const IKeywordRecordData*>(list.GetData(i)));
    return fmt::format("a table of {}",
        Counted(static_cast<std::size_t>(static_cast<const IKeywordListData*>(list.GetData(i))->GetSize()),
            "row"));
}

/// Of rows that differ in a list, more are reported as one change.
constexpr std::size_t mostRows = 3;

/// `pairs`: of rows that differ.
ItemChange RowsChange(
    const IKeywordListData& a, const IKeywordListData& b, const Pairs& pairs, const std::string& path)
{
    const auto [i, j] = pairs.front();
    ArrayChange change;
    change.isOfRows = true;
    change.sizeBefore = static_cast<std::size_t>(a.GetSize());
    change.sizeAfter = static_cast<std::size_t>(b.GetSize());
    change.first = std::min(i, j) + 1;
    change.differing = static_cast<std::size_t>(std::count_if(pairs.begin(), pairs.end(),
        [](const auto& pair) { return pair.first != unpaired && pair.second != unpaired; }));
    return {
        path, i == unpaired ? absent : ElementText(a, i), j == unpaired ? absent : ElementText(b, j), change};
}

/// The line around `offset`.
std::string LineAt(const std::string& text, std::size_t offset)
{
    const std::size_t before = offset == 0 ? std::string::npos : text.rfind('\n', offset - 1);
    const std::size_t begin = before == std::string::npos ? 0 : before + 1;
    return begin >= text.size() ? absent : text.substr(begin, text.find('\n', begin) - begin);
}

double NumberOf(const ScalarValue& value)
{
    const auto* const integer = std::get_if<int>(&value);
    return integer ? *integer : std::get<double>(value);
}

} // namespace

bool DataComparison::AreEqual(const IKeywordData* a, const IKeywordData* b)
{
    changes_ = nullptr;
    return a && b ? CompareData(*a, *b, {}) : a == b;
}

std::vector<ItemChange> DataComparison::Compare(const IKeywordData& a, const IKeywordData& b)
{
    std::vector<ItemChange> changes;
    changes_ = &changes;
    CompareData(a, b, {});
    changes_ = nullptr;
    return changes;
}

bool DataComparison::CompareData(const IKeywordData& a, const IKeywordData& b, const std::string& path)
{
    if (KeywordDataEqual(a, b))
        return true;
    return VisitData(
        a, [&](const auto& first) { return CompareNodes(first, static_cast<decltype(first)>(b), path); });
}

bool DataComparison::CompareNodes(
    const IKeywordRecordData& a, const IKeywordRecordData& b, const std::string& path)
{
    const auto& md = static_cast<const IKeywordRecordMD&>(*a.GetMD());
    bool isEqual = true;
    for (int i = 0; i < md.GetSize() && (isEqual || changes_); ++i) {
        const MD& item = *md.GetItemMD(i);
        const std::string below = changes_ ? Below(path, ItemName(item)) : std::string();
        const bool isSame = KeywordUtils::IsItemMDType(item.GetType())
            ? CompareScalars(item, ItemValue(item, a.GetData(i)), ItemValue(item, b.GetData(i)), below)
            : CompareData(*static_cast<const IKeywordData*>(a.GetData(i)),
                *static_cast<const IKeywordData*>(b.GetData(i)), below);
        isEqual = isEqual && isSame;
    }
    return isEqual;
}

bool DataComparison::CompareScalars(
    const MD& md, const ScalarValue& a, const ScalarValue& b, const std::string& path)
{
    bool isSame = MeanSame(md, a, b);
    if (!isSame && !isStrict_ && IsGiven(a) != IsGiven(b)) {
        const ScalarValue fallback = DefaultOf(md, simulator_).value;
        isSame = MeanSame(md, IsGiven(a) ? a : fallback, IsGiven(b) ? b : fallback);
    }
    if (isSame || !changes_)
        return isSame;
    return Report({path, ScalarText(md, a), ScalarText(md, b)});
}

bool DataComparison::CompareNodes(const List& a, const List& b, const std::string& path)
{
    const MDType::Enum type = KeywordUtils::GetMDType(ItemOf(a));
    if (type == MDType::Integer || type == MDType::Real)
        return CompareNumbers(a, b, path);
    std::vector<ItemChange>* const changes = std::exchange(changes_, nullptr);
    const Pairs pairs = PairUp(static_cast<std::size_t>(a.GetSize()), static_cast<std::size_t>(b.GetSize()),
        [&](std::size_t i, std::size_t j) { return CompareElements(a, i, b, j, {}); });
    changes_ = changes;
    if (!changes_)
        return pairs.empty();
    if (type == MDType::Record && pairs.size() > mostRows)
        return Report(RowsChange(a, b, pairs, path));
    for (const auto& [i, j] : pairs) {
        if (i == unpaired)
            Report({Element(path, j), absent, ElementText(b, j)});
        else if (j == unpaired)
            Report({Element(path, i), ElementText(a, i), absent});
        else
            CompareElements(a, i, b, j, Element(path, i));
    }
    return pairs.empty();
}

bool DataComparison::CompareElements(
    const List& a, std::size_t i, const List& b, std::size_t j, const std::string& path)
{
    const MD& md = *ItemOf(a);
    if (!KeywordUtils::IsItemMDType(md.GetType()))
        return CompareData(*static_cast<const IKeywordData*>(a.GetData(i)),
            *static_cast<const IKeywordData*>(b.GetData(j)), path);
    const auto value = [&md](const List& list, std::size_t index) {
        return list.IsDefaulted(index) ? ScalarValue() : ElementValue(md, list.GetData(index));
    };
    return CompareScalars(md, value(a, i), value(b, j), path);
}

bool DataComparison::CompareNumbers(const List& a, const List& b, const std::string& path)
{
    const MD& md = *ItemOf(a);
    const bool mayBeUnknown = HasUnknown(a) || HasUnknown(b);
    ArrayChange change;
    change.sizeBefore = static_cast<std::size_t>(a.GetSize());
    change.sizeAfter = static_cast<std::size_t>(b.GetSize());
    for (std::size_t i = 0; i < std::min(change.sizeBefore, change.sizeAfter); ++i) {
        const ScalarValue before = ElementValue(md, a.GetData(i));
        const ScalarValue after = ElementValue(md, b.GetData(i));
        const bool isAsGiven = a.IsDefaulted(i) == b.IsDefaulted(i);
        if ((a.IsDefaulted(i) && isAsGiven) || (before == after && (isAsGiven || !isStrict_)))
            continue;
        change.first = change.differing++ == 0 ? i + 1 : change.first;
        if (!mayBeUnknown || !(IsUnknown(a, i) || IsUnknown(b, i)))
            change.greatest = std::max(change.greatest, std::abs(NumberOf(after) - NumberOf(before)));
    }
    if (change.differing == 0 && change.sizeBefore == change.sizeAfter)
        return true;
    if (!changes_)
        return false;
    const std::size_t first = change.first;
    return Report({path, first > 0 ? ElementText(a, first - 1) : "",
        first > 0 ? ElementText(b, first - 1) : "", change});
}

bool DataComparison::CompareNodes(const IKeywordMapData& a, const IKeywordMapData& b, const std::string& path)
{
    struct Pair {
        const MD* md = nullptr;
        ScalarValue before;
        ScalarValue after;
    };
    std::map<std::string, Pair> pairs; // their orders may differ
    const auto add = [&pairs](const IKeywordMapData& map, ScalarValue Pair::*side) {
        for (int i = 0; i < map.GetSize(); ++i) {
            const auto value = map.GetValue(i);
            Pair& pair = pairs[ItemName(*map.GetItemMD(i))];
            pair.md = map.GetItemMD(i);
            pair.*side = value ? ScalarValue(*value) : ScalarValue();
        }
    };
    add(a, &Pair::before);
    add(b, &Pair::after);
    bool isEqual = true;
    for (const auto& [key, pair] : pairs)
        isEqual = CompareScalars(*pair.md, pair.before, pair.after, Below(path, key)) && isEqual;
    return isEqual;
}

bool DataComparison::CompareNodes(const IKeywordRawData& a, const IKeywordRawData& b, const std::string& path)
{
    const std::string& before = a.GetData();
    const std::string& after = b.GetData();
    const auto [end, other] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto offset = static_cast<std::size_t>(end - before.begin());
    return before == after || Report({Below(path, "text"), LineAt(before, offset), LineAt(after, offset)});
}

bool DataComparison::Report(ItemChange change)
{
    if (changes_)
        changes_->push_back(std::move(change));
    return false;
}

std::string DataComparison::ScalarText(const MD& md, const ScalarValue& value) const
{
    if (IsGiven(value))
        return ToText(md, value);
    const DefaultValue fallback = DefaultOf(md, simulator_);
    return fallback.isThere ? fmt::format("default ({})", ToText(md, fallback)) : absent;
}

} // namespace Veld::Quor::Core::Decks

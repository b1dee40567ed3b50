#include "quor/deck/internal/compare/ArrayOperations.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/compare/RecordItems.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/syntax/ICellPropertyInfo.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using MDType = IKeywordDataMD::MDType;

namespace {

constexpr double notKnown = std::numeric_limits<double>::quiet_NaN();
/// Of all arrays. More are not worked out: they would take too much memory.
constexpr double mostCells = 5e7;

constexpr const char* noGrid = "the size of the grid isn't known, or too large";

constexpr const char* directions[] = {"NX", "NY", "NZ"};
constexpr const char* bounds[] = {"I1", "I2", "J1", "J2", "K1", "K2"};

/// The array that has the numbers of a family of regions.
std::string RegionArrayOf(const IKeywordRecordData& record)
{
    const std::string family = FindWord(record, "FAMILY");
    return family == "F" ? "FLUXNUM" : family == "O" ? "OPERNUM" : "MULTNUM";
}

/// The array that the record works on.
std::string TargetOf(const IKeywordRecordData& record)
{
    const std::string target = FindName(record, "TARGET");
    return target.empty() ? FindName(record, "ARRAY") : target;
}

} // namespace

/// The only names of keywords and of their items that this knows; what they do, no document says.
const ArrayOperations::Operation* ArrayOperations::FindOperation(const std::string& keyword)
{
    static constexpr Operation operations[] = {{"BOX", Kind::Box}, {"ENDBOX", Kind::EndBox},
        {"EQUALS", Kind::Set}, {"ADD", Kind::Add}, {"MULTIPLY", Kind::Multiply}, {"MINVALUE", Kind::AtLeast},
        {"MAXVALUE", Kind::AtMost}, {"COPY", Kind::Copy}, {"EQUALREG", Kind::Set}, {"ADDREG", Kind::Add},
        {"MULTIREG", Kind::Multiply}, {"COPYREG", Kind::Copy}, {"COPYBOX", Kind::Other},
        {"OPERATE", Kind::Other}, {"OPERATER", Kind::Other}};
    const auto* const operation = std::find_if(std::begin(operations), std::end(operations),
        [&keyword](const Operation& row) { return keyword == row.keyword; });
    return operation == std::end(operations) ? nullptr : operation;
}

ArrayOperations::ArrayOperations(const DeckContents& deck, bool withGiven)
    : deck_(deck)
    , dimensions_(deck.language, deck.GetTarget().simulator)
{
    for (const KeywordInstance& keyword : deck.keywords) {
        if (withGiven && keyword.data && keyword.syntax->GetCellPropertyInfo())
            GetArray(deck.NameOf(keyword));
        if (!keyword.data || !FindOperation(keyword.syntax->GetName())
            || !IsListOfRecords(keyword.data->GetMD(), {}))
            continue;
        const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
        for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
            const auto& record = *static_cast<const Record*>(list.GetData(i));
            GetArray(TargetOf(record));
            if (const std::string source = FindName(record, "SOURCE"); !source.empty())
                GetArray(source);
            if (FindItem(record, "REGION", MDType::Integer).md)
                GetArray(RegionArrayOf(record));
        }
    }
}

/// The deck may name an array by another of its names.
ArrayOperations::Array& ArrayOperations::GetArray(const std::string& name)
{
    const auto [array, isNew] = arrays_.try_emplace(deck_.language.FindName(name));
    if (isNew)
        array->second.number = arrays_.size();
    return array->second;
}

void ArrayOperations::Follow(const KeywordInstance& keyword)
{
    if (arrays_.empty())
        return;
    if (keyword.section == SectionType::RUNSPEC && keyword.data)
        dimensions_.Add(keyword.syntax->GetName(), *keyword.data, noIndex);
    if (keyword.section != section_)
        EnterSection(keyword.section);
    if (IsInLocalGrid(keyword))
        return;
    keyword_ = &keyword;
    const Operation* const operation = FindOperation(keyword.syntax->GetName());
    if (!keyword.isSound) {
        for (auto& [name, array] : arrays_) { // whichever it works on
            if (operation || name == deck_.NameOf(keyword))
                Forget(array, fmt::format("{} has errors", keyword.syntax->GetName()));
        }
    } else if (!operation) {
        SetValues(deck_.NameOf(keyword), keyword);
    } else if (operation->kind == Kind::EndBox) {
        box_ = WholeGrid();
    } else if (operation->kind == Kind::Box) {
        if (IsRecordOf(keyword.data->GetMD(), {}))
            box_ = BoxOf(static_cast<const Record&>(*keyword.data), WholeGrid());
    } else if (IsListOfRecords(keyword.data->GetMD(), {})) {
        Box box = box_;
        const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
        for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
            Apply(operation->kind, *static_cast<const Record*>(list.GetData(i)), box);
    }
}

void ArrayOperations::EnterSection(SectionType::Enum section)
{
    section_ = section;
    if (!isGridKnown_ && section != SectionType::RUNSPEC) {
        double cells = static_cast<double>(arrays_.size());
        for (std::size_t i = 0; i < grid_.size(); ++i) {
            grid_[i] = std::max(dimensions_.Find(directions[i]).value_or(0), 0LL);
            cells *= static_cast<double>(grid_[i]);
        }
        isGridKnown_ = cells > 0 && cells <= mostCells;
    }
    box_ = WholeGrid();
}

void ArrayOperations::Forget(Array& array, const std::string& why)
{
    array.unknown = why;
    std::fill(array.values.begin(), array.values.end(), notKnown);
}

/// `box`: of the record before, whose bounds hold on.
void ArrayOperations::Apply(Kind kind, const Record& record, Box& box)
{
    box = BoxOf(record, box);
    Array& array = GetArray(TargetOf(record));
    array.last = keyword_->name;
    const std::string& keyword = keyword_->syntax->GetName();
    if (std::find(array.keywords.begin(), array.keywords.end(), keyword) == array.keywords.end())
        array.keywords.push_back(keyword);
    if (!isGridKnown_ || kind == Kind::Other)
        return Forget(array, isGridKnown_ ? fmt::format("{} isn't worked out", keyword) : noGrid);
    array.values.resize(static_cast<std::size_t>(grid_[0] * grid_[1] * grid_[2]), notKnown);
    const std::string name = FindName(record, "SOURCE");
    const Array* const source = name.empty() ? nullptr : &GetArray(name);
    if (source && source->values.empty())
        array.unknown = fmt::format("{} has no values before {}", name, keyword);
    else if (source && !source->unknown.empty())
        array.unknown = source->unknown;
    Work(kind, array, record, box, source);
}

void ArrayOperations::Work(Kind kind, Array& array, const Record& record, const Box& box, const Array* source)
{
    const RecordItem given = FindItem(record, "VALUE", MDType::Real);
    const double value = IsGiven(given.value) ? std::get<double>(given.value) : notKnown;
    if (kind != Kind::Copy && std::isnan(value))
        array.unknown = fmt::format("a value of {} isn't known", keyword_->syntax->GetName());
    const bool isOfRegion = FindItem(record, "REGION", MDType::Integer).md != nullptr;
    const std::vector<double>* const regions = isOfRegion ? &GetArray(RegionArrayOf(record)).values : nullptr;
    const double region = FindIndex(record, "REGION");
    if (regions && regions->empty())
        array.unknown = fmt::format("{} has no values", RegionArrayOf(record));
    ForEachCell(box, [&](std::size_t cell, std::size_t) {
        double& result = array.values[cell];
        if (regions && (regions->empty() || std::isnan((*regions)[cell])))
            result = notKnown;
        else if (regions && (*regions)[cell] != region)
            return;
        else if (kind == Kind::Copy)
            result = !source || source->values.empty() ? notKnown : source->values[cell];
        else if (kind == Kind::Set)
            result = value;
        else if (kind == Kind::Add)
            result += value;
        else if (kind == Kind::Multiply)
            result *= value;
        else if (!std::isnan(result))
            result = kind == Kind::AtLeast ? std::max(result, value) : std::min(result, value);
    });
}

/// The array's own keyword. One that lacks layers has those above it.
void ArrayOperations::SetValues(const std::string& name, const KeywordInstance& keyword)
{
    const auto found = arrays_.find(name);
    const bool isReal = keyword.data && IsListOf(keyword.data->GetMD(), MDType::Real);
    if (found == arrays_.end() || !isGridKnown_
        || (!isReal && !(keyword.data && IsListOf(keyword.data->GetMD(), MDType::Integer))))
        return;
    Array& array = found->second;
    array.values.resize(static_cast<std::size_t>(grid_[0] * grid_[1] * grid_[2]), notKnown);
    array.last = keyword.name;
    if (std::find(array.keywords.begin(), array.keywords.end(), name) == array.keywords.end())
        array.keywords.push_back(name);
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    const auto size = static_cast<std::size_t>(list.GetSize());
    const ICellPropertyInfo* const cell = keyword.syntax->GetCellPropertyInfo();
    const auto layer = static_cast<std::size_t>((box_[1] - box_[0] + 1) * (box_[3] - box_[2] + 1));
    const bool isRepeated = cell && cell->CopyLayerAboveByDefault() && size >= layer && layer > 0;
    const bool hasUnknown = HasUnknown(list);
    if (hasUnknown)
        array.unknown = fmt::format("a value of {} isn't known", keyword.syntax->GetName());
    ForEachCell(box_, [&](std::size_t at, std::size_t inBox) {
        const std::size_t index = isRepeated && inBox >= size ? size - layer + inBox % layer : inBox;
        if (index >= size || list.IsDefaulted(index))
            return;
        const bool isKnown = !hasUnknown || !IsUnknown(list, index);
        array.values[at] = !isKnown ? notKnown
            : isReal                ? *static_cast<const double*>(list.GetData(index))
                                    : *static_cast<const int*>(list.GetData(index));
    });
}

ArrayOperations::Box ArrayOperations::WholeGrid() const
{
    return {1, grid_[0], 1, grid_[1], 1, grid_[2]};
}

/// Bounds beyond the grid are those of the grid: they were reported.
ArrayOperations::Box ArrayOperations::BoxOf(const Record& record, const Box& around) const
{
    Box box = around;
    for (std::size_t i = 0; i < box.size(); ++i) {
        const int bound = FindIndex(record, bounds[i]);
        if (bound > 0)
            box[i] = std::min<long long>(bound, grid_[i / 2]);
    }
    return box;
}

/// Whether the keyword is in a scope other than a box.
bool ArrayOperations::IsInLocalGrid(const KeywordInstance& keyword) const
{
    for (std::uint32_t scope = keyword.scope; scope != noIndex; scope = deck_.scopes[scope].around) {
        const KeywordInstance& opener = deck_.keywords[deck_.scopes[scope].opener];
        const Operation* const operation = FindOperation(opener.syntax->GetName());
        if (!operation || operation->kind != Kind::Box)
            return true;
    }
    return false;
}

template <class Visit>
void ArrayOperations::ForEachCell(const Box& box, Visit visit) const
{
    std::size_t inBox = 0;
    for (long long k = box[4]; k <= box[5]; ++k) {
        for (long long j = box[2]; j <= box[3]; ++j) {
            for (long long i = box[0]; i <= box[1]; ++i)
                visit(static_cast<std::size_t>(((k - 1) * grid_[1] + j - 1) * grid_[0] + i - 1), inBox++);
        }
    }
}

} // namespace Veld::Quor::Core::Decks

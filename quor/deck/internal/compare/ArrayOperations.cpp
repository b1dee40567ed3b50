#include "quor/deck/internal/compare/ArrayOperations.h"

#include "quor/data/Access.h"
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
constexpr Role::Enum bounds[] = {
    Role::FirstI, Role::LastI, Role::FirstJ, Role::LastJ, Role::FirstK, Role::LastK};
constexpr Role::Enum operations[] = {Role::Box, Role::EndOfBox, Role::ArrayIsSet, Role::ArrayIsAddedTo,
    Role::ArrayIsMultiplied, Role::ArrayIsLimitedFromBelow, Role::ArrayIsLimitedFromAbove,
    Role::ArrayIsCopied, Role::ArrayIsChangedOtherwise};

} // namespace

std::optional<Role::Enum> ArrayOperations::FindOperation(const IKeywordSyntax& syntax) const
{
    const RolesOfKeyword& roles = deck_.language.RolesOf(syntax);
    const auto* const operation = std::find_if(
        std::begin(operations), std::end(operations), [&](Role::Enum role) { return roles.Has(role); });
    return operation == std::end(operations) ? std::nullopt : std::optional(*operation);
}

/// Of a list of records whose items have roles.
template <class Visit>
void ArrayOperations::ForEachRecord(const KeywordInstance& keyword, Visit visit)
{
    const KeywordRoles* const roles = plans_.Find(*keyword.syntax);
    if (!roles || !keyword.data || !IsListOfRecords(keyword.data->GetMD(), {}))
        return;
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        visit(RecordItems(*static_cast<const Record*>(list.GetData(i)), roles->record));
}

/// The array that has the numbers of a family of regions.
const std::string& ArrayOperations::RegionArrayOf(const RecordItems& items) const
{
    const std::string family = items.FindWord(Role::FamilyOfRegion);
    return regionArrays_[family == "F" ? 1 : family == "O" ? 2 : 0];
}

ArrayOperations::ArrayOperations(const DeckContents& deck, RolePlans& plans, bool withGiven)
    : deck_(deck)
    , plans_(plans)
    , dimensions_(deck.language, deck.GetTarget().simulator)
    , regionArrays_{deck.language.FindNameOf(Role::RegionsM), deck.language.FindNameOf(Role::RegionsF),
          deck.language.FindNameOf(Role::RegionsO)}
{
    for (const KeywordInstance& keyword : deck.keywords) {
        if (withGiven && keyword.data && keyword.syntax->GetCellPropertyInfo())
            GetArray(deck.NameOf(keyword));
        if (!FindOperation(*keyword.syntax))
            continue;
        ForEachRecord(keyword, [&](const RecordItems& items) {
            GetArray(items.FindName(Role::NameOfArray));
            if (const std::string source = items.FindName(Role::ArrayThatIsCopied); !source.empty())
                GetArray(source);
            if (items.Has(Role::Region))
                GetArray(RegionArrayOf(items));
        });
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
    const std::optional<Role::Enum> operation = FindOperation(*keyword.syntax);
    if (!keyword.isSound) {
        for (auto& [name, array] : arrays_) { // whichever it works on
            if (operation || name == deck_.NameOf(keyword))
                Forget(array, fmt::format("{} has errors", keyword.syntax->GetName()));
        }
    } else if (!operation) {
        SetValues(deck_.NameOf(keyword), keyword);
    } else if (*operation == Role::EndOfBox) {
        box_ = WholeGrid();
    } else if (*operation == Role::Box) {
        const KeywordRoles* const roles = plans_.Find(*keyword.syntax);
        if (roles && keyword.data && IsRecordOf(keyword.data->GetMD(), {}))
            box_ = BoxOf({static_cast<const Record&>(*keyword.data), roles->record}, WholeGrid());
    } else {
        Box box = box_;
        ForEachRecord(keyword, [&](const RecordItems& items) { Apply(*operation, items, box); });
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
void ArrayOperations::Apply(Role::Enum operation, const RecordItems& items, Box& box)
{
    box = BoxOf(items, box);
    Array& array = GetArray(items.FindName(Role::NameOfArray));
    array.last = keyword_->name;
    const std::string& keyword = keyword_->syntax->GetName();
    if (std::find(array.keywords.begin(), array.keywords.end(), keyword) == array.keywords.end())
        array.keywords.push_back(keyword);
    if (!isGridKnown_ || operation == Role::ArrayIsChangedOtherwise)
        return Forget(array, isGridKnown_ ? fmt::format("{} isn't worked out", keyword) : noGrid);
    array.values.resize(static_cast<std::size_t>(grid_[0] * grid_[1] * grid_[2]), notKnown);
    const std::string name = items.FindName(Role::ArrayThatIsCopied);
    const Array* const source = name.empty() ? nullptr : &GetArray(name);
    if (source && source->values.empty())
        array.unknown = fmt::format("{} has no values before {}", name, keyword);
    else if (source && !source->unknown.empty())
        array.unknown = source->unknown;
    Work(operation, array, items, box, source);
}

void ArrayOperations::Work(
    Role::Enum operation, Array& array, const RecordItems& items, const Box& box, const Array* source)
{
    const double value = items.FindNumber(Role::ValueForArray).value_or(notKnown);
    if (operation != Role::ArrayIsCopied && std::isnan(value))
        array.unknown = fmt::format("a value of {} isn't known", keyword_->syntax->GetName());
    const std::string& regionArray = RegionArrayOf(items);
    const std::vector<double>* const regions =
        items.Has(Role::Region) ? &GetArray(regionArray).values : nullptr;
    const double region = items.FindIndex(Role::Region);
    if (regions && regions->empty())
        array.unknown = fmt::format("{} has no values", regionArray);
    ForEachCell(box, [&](std::size_t cell, std::size_t) {
        double& result = array.values[cell];
        if (regions && (regions->empty() || std::isnan((*regions)[cell])))
            result = notKnown;
        else if (regions && (*regions)[cell] != region)
            return;
        else if (operation == Role::ArrayIsCopied)
            result = !source || source->values.empty() ? notKnown : source->values[cell];
        else if (operation == Role::ArrayIsSet)
            result = value;
        else if (operation == Role::ArrayIsAddedTo)
            result += value;
        else if (operation == Role::ArrayIsMultiplied)
            result *= value;
        else if (!std::isnan(result))
            result = operation == Role::ArrayIsLimitedFromBelow ? std::max(result, value)
                                                                : std::min(result, value);
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
    const bool isRepeated = cell && cell->CopyLayerAboveByDefault() && size >= layer;
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
ArrayOperations::Box ArrayOperations::BoxOf(const RecordItems& items, const Box& around) const
{
    Box box = around;
    for (std::size_t i = 0; i < box.size(); ++i) {
        const int bound = items.FindIndex(bounds[i]);
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
        if (!deck_.language.RolesOf(*opener.syntax).Has(Role::Box))
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

#include "quor/deck/internal/physics/Wells.h"

#include "quor/deck/internal/physics/RecordWalk.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/foundation/service/Optional.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

template <class T>
const Optional<T>& ItemOf(const IKeywordRecordData& record, int item)
{
    return *static_cast<const Optional<T>*>(record.GetData(item));
}

/// From 1; 0 if the record has none.
std::size_t IndexOf(const IKeywordRecordData& record, int item)
{
    const auto& number = ItemOf<int>(record, item);
    return number && *number > 0 ? static_cast<std::size_t>(*number) : 0;
}

} // namespace

void Wells::FollowHeads(const KeywordInstance& keyword, const RecordRoles& roles)
{
    const int name = roles.Find(Role::NameOfWell);
    const int i = roles.Find(Role::HeadI);
    const int j = roles.Find(Role::HeadJ);
    const int depth = roles.Find(Role::DepthOfWell);
    ForEachElement(*keyword.data, [&](std::size_t at, const IKeywordData& data) {
        const auto& record = static_cast<const Record&>(data);
        if (const auto value = depth >= 0 ? ItemOf<double>(record, depth) : Optional<double>())
            CheckDepth(keyword, at, depth, *value);
        if (AreCellsGiven() && std::min({name, i, j}) >= 0 && ItemOf<std::string>(record, name))
            heads_[ToUpper(*ItemOf<std::string>(record, name))] = {IndexOf(record, i), IndexOf(record, j),
                FindValue(facts_.GetDeck(), keyword, {at, i}),
                static_cast<std::uint32_t>(facts_.GetDeck().keywords.size() - 1)};
    });
}

/// The reference depth of a well is in the reservoir, or above it up to the surface: T. Ertekin, J. H.
/// Abou-Kassem and G. R. King, Basic Applied Reservoir Simulation, 2001, chapter 6.
void Wells::CheckDepth(const KeywordInstance& keyword, std::size_t record, int item, double depth) const
{
    constexpr double leastDatum = 50; // m or feet: one that is no mere reference
    const auto [least, greatest] = facts_.GetDatumDepths();
    const bool isHeight = -depth > 0.5 * least && -depth < 2 * greatest;
    const bool isBelow = depth > 5 * greatest && least > 6 * leastDatum;
    if (least < leastDatum || !(isHeight || isBelow))
        return;
    facts_.Report(FindValue(facts_.GetDeck(), keyword, {record, item}), Code::WellDepth,
        fmt::format("{}: a depth of {} is far from the datum of the reservoir at {}",
            keyword.syntax->GetName(), depth, greatest),
        isHeight ? "depths increase downwards; remove the sign" : "check the number of digits");
}

/// The pore volume of an inactive cell is zero, and nothing flows through it: D. W. Peaceman, Fundamentals of
/// Numerical Reservoir Simulation, 1977, chapter 1.
void Wells::FollowConnections(const KeywordInstance& keyword, const RecordRoles& roles)
{
    constexpr Role::Enum indices[] = {
        Role::ConnectionI, Role::ConnectionJ, Role::ConnectionFirstK, Role::ConnectionLastK};
    std::array<int, 4> items = {};
    std::transform(std::begin(indices), std::end(indices), items.begin(),
        [&roles](Role::Enum role) { return roles.Find(role); });
    const int name = roles.Find(Role::NameOfWell);
    if (!AreCellsGiven() || name < 0 || std::count(items.begin(), items.end(), -1) > 0)
        return;
    ForEachElement(*keyword.data, [&](std::size_t at, const IKeywordData& data) {
        const auto& record = static_cast<const Record&>(data);
        Cells cells = {};
        std::transform(
            items.begin(), items.end(), cells.begin(), [&record](int item) { return IndexOf(record, item); });
        if (cells[0] == 0 && cells[1] == 0 && ItemOf<std::string>(record, name))
            ReportHead(keyword, ToUpper(*ItemOf<std::string>(record, name)), cells);
        else if (IsInactive(cells))
            ReportCells(keyword, {at, items[0]}, cells);
    });
}

bool Wells::IsInactive(const Cells& cells) const
{
    const auto [i, j, first, last] = cells;
    const auto& sizes = active_.GetSizes();
    if (i == 0 || j == 0 || first == 0 || last < first || i > sizes[0] || j > sizes[1] || last > sizes[2])
        return false;
    for (std::size_t k = first; k <= last; ++k) {
        if (active_.IsActive(i - 1, j - 1, k - 1))
            return false;
    }
    return true;
}

/// If the well is where no cell of the connection is active. Once a well: its next connections have the same
/// reason.
void Wells::ReportHead(const KeywordInstance& keyword, const std::string& well, const Cells& cells)
{
    const auto head = heads_.find(well);
    if (head == heads_.end())
        return;
    const auto [i, j, range, definition] = head->second;
    if (!IsInactive({i, j, cells[2], cells[3]}))
        return;
    facts_.Report(range, Code::InactiveConnection,
        fmt::format("{}: no cell of {} {} {} to {} is active, where {} connects the well",
            facts_.GetDeck().keywords[definition].syntax->GetName(), i, j, cells[2], cells[3],
            keyword.syntax->GetName()),
        "correct the indices of the well, or make a cell active", Related(keyword, "the connection is here"));
    heads_.erase(head);
}

void Wells::ReportCells(
    const KeywordInstance& keyword, const ValuePosition& position, const Cells& cells) const
{
    const auto [i, j, first, last] = cells;
    const std::string& name = keyword.syntax->GetName();
    facts_.Report(FindValue(facts_.GetDeck(), keyword, position), Code::InactiveConnection,
        first == last ? fmt::format("{}: cell {} {} {} is not active", name, i, j, first)
                      : fmt::format("{}: no cell of {} {} {} to {} is active", name, i, j, first, last),
        "correct the indices of the connection, or make a cell active",
        Related(*facts_.FindKeyword(Role::ActiveCells), "the active cells are here"));
}

} // namespace Veld::Quor::Core::Decks

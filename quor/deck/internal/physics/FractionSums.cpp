#include "quor/deck/internal/physics/FractionSums.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/physics/RecordWalk.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <fmt/format.h>

#include <cmath>
#include <numeric>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

constexpr double mostRounding = 0.01;

} // namespace

/// K. S. Pedersen and P. L. Christensen, Phase Behavior of Petroleum Reservoir Fluids, 2006, chapter 2: a
/// composition has all components of a fluid.
void CheckFractionSums(const PhysicsFacts& facts, const KeywordInstance& keyword, const RecordRoles& roles)
{
    bool isReported = false;
    ForEachElement(*keyword.data, [&](std::size_t element, const IKeywordData& data) {
        const auto check = [&](const IKeywordRecordData& record, const RecordRoles& inner, std::size_t,
                               std::uint32_t slot) {
            const int item = inner.Find(Role::Fractions);
            const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
            if (isReported || item < 0)
                return;
            const auto& list = *static_cast<const IKeywordListData*>(record.GetData(item));
            if (HasUnknown(list))
                return;
            const auto fractions = As<double>(list);
            const double sum = std::accumulate(fractions.begin(), fractions.end(), 0.0);
            if (fractions.empty() || std::abs(sum - 1) <= mostRounding)
                return;
            isReported = true;
            facts.Report(FindSlot(facts.GetDeck(), keyword, element, slot + static_cast<std::size_t>(item)),
                Code::FractionSum,
                fmt::format("{}: the sum of {} is {:.4g}; expected 1", keyword.syntax->GetName(),
                    ItemName(*md.GetItemMD(item)), sum),
                "the fractions of all components are the whole fluid");
        };
        RecordWalk(check).Walk(data, roles);
    });
}

} // namespace Veld::Quor::Core::Decks

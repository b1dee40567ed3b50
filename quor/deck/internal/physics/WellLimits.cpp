#include "quor/deck/internal/physics/WellLimits.h"

#include "quor/deck/internal/physics/RecordWalk.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/ValueRange.h"
#include "quor/foundation/service/Optional.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

/// A producer without a limit may go down to the pressure of the surface.
void WellLimits::Follow(const KeywordInstance& keyword, const RecordRoles& roles)
{
    const int production = roles.Find(Role::LimitOfProduction);
    const int item = production >= 0 ? production : roles.Find(Role::LimitOfInjection);
    ForEachElement(*keyword.data, [&](std::size_t at, const IKeywordData& data) {
        if (KeywordUtils::GetMDType(data.GetMD()) != IKeywordDataMD::MDType::Record)
            return; // a table in a table
        const auto& record = static_cast<const IKeywordRecordData&>(data);
        const auto& limit = *static_cast<const Service::Optional<double>*>(record.GetData(item));
        if (production < 0) {
            if (limit && *limit > 0)
                FollowInjector(record, {at, item}, *limit);
        } else if (limit.ValueOr(0) < leastOfProducers_) {
            leastOfProducers_ = limit.ValueOr(0);
            producers_ = static_cast<std::uint32_t>(facts_.GetDeck().keywords.size() - 1);
        }
    });
}

void WellLimits::FollowInjector(
    const IKeywordRecordData& record, const ValuePosition& position, double pressure)
{
    if (leastOfInjectors_ && leastOfInjectors_->pressure <= pressure)
        return;
    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
    const auto& keywords = facts_.GetDeck().keywords;
    leastOfInjectors_ = {pressure, FindValue(facts_.GetDeck(), keywords.back(), position),
        static_cast<std::uint32_t>(keywords.size() - 1), ItemName(*md.GetItemMD(position.item))};
}

/// Fluid flows from injectors to producers: T. Ertekin, J. H. Abou-Kassem and G. R. King, Basic Applied
/// Reservoir Simulation, 2001, chapter 6.
void WellLimits::EndSection()
{
    if (!leastOfInjectors_ || !producers_ || leastOfInjectors_->pressure >= leastOfProducers_)
        return;
    const auto& keywords = facts_.GetDeck().keywords;
    const auto& [pressure, range, keyword, item] = *leastOfInjectors_;
    facts_.Report(range, Code::ImplausibleValue,
        fmt::format("{}: {} is {}, below {}, the least limit of the producers",
            keywords[keyword].syntax->GetName(), item, pressure, leastOfProducers_),
        "check the number of digits, and the unit", Related(keywords[*producers_], "the limit is here"));
    leastOfInjectors_.reset();
}

} // namespace Veld::Quor::Core::Decks

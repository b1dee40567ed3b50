#pragma once

#include "quor/deck/internal/physics/PhysicsFacts.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <limits>
#include <optional>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Follows the limits of pressure of wells: reports one of an injector that is below those of all producers.
class WellLimits {
public:
    explicit WellLimits(const PhysicsFacts& facts)
        : facts_(facts)
    {
    }

    void Follow(const KeywordInstance& keyword, const RecordRoles& roles);
    void EndSection();

private:
    struct Limit {
        double pressure;
        TextRange range;
        std::uint32_t keyword;
        std::string item;
    };

    void FollowInjector(
        const Keywords::IKeywordRecordData& record, const ValuePosition& position, double pressure);

    const PhysicsFacts& facts_;
    double leastOfProducers_ = std::numeric_limits<double>::infinity();
    std::optional<Limit> leastOfInjectors_;
    std::optional<std::uint32_t> producers_; // the keyword of the least
};

} // namespace Veld::Quor::Core::Decks

#include "quor/deck/internal/physics/PhysicsFacts.h"

#include "quor/deck/internal/rules/ValueRange.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using Keywords::UnitSystem;

const KeywordInstance* PhysicsFacts::FindKeyword(Role::Enum role) const
{
    const auto found = keywords_.find(role);
    return found == keywords_.end() ? nullptr : &deck_.keywords[found->second.back()];
}

std::optional<UnitSystem::Enum> PhysicsFacts::FindUnits() const
{
    if (const KeywordInstance* const keyword = FindKeyword(Role::Units)) {
        const std::vector<std::uint32_t>& all = keywords_.find(Role::Units)->second;
        if (std::any_of(all.begin(), all.end(),
                [&](std::uint32_t other) { return deck_.keywords[other].syntax != keyword->syntax; }))
            return std::nullopt; // two systems contradict each other
        bool isSystem = false;
        const UnitSystem::Enum system = UnitSystem::FromString(keyword->syntax->GetName(), &isSystem);
        return isSystem ? std::optional(system) : std::nullopt;
    }
    const bool isBegun =
        !deck_.keywords.empty() && deck_.keywords.front().section == Keywords::SectionType::RUNSPEC;
    return isSure_ && isBegun ? std::optional(UnitSystem::METRIC) : std::nullopt;
}

const std::vector<RoleTable>* PhysicsFacts::FindTables(const std::vector<Role::Enum>& roles) const
{
    const auto hasAll = [&roles](const std::vector<RoleTable>& tables) {
        return !tables.empty() && std::all_of(roles.begin(), roles.end(), [&](Role::Enum role) {
            return tables.front().Find(role) != nullptr;
        });
    };
    const auto found = std::find_if(tables_.rbegin(), tables_.rend(), hasAll);
    return found == tables_.rend() ? nullptr : &*found;
}

const std::string& PhysicsFacts::NameOf(const RoleTable& table) const
{
    return deck_.keywords[table.keyword].syntax->GetName();
}

void PhysicsFacts::KeepDatumDepths()
{
    ForEachTable([this](const RoleTable& table) {
        const Column* const depths = table.Find(Role::DepthOfDatum);
        if (!depths)
            return;
        const auto [least, greatest] = std::minmax_element(depths->values.begin(), depths->values.end());
        const bool isFirst = datumDepths_ == std::pair<double, double>();
        datumDepths_ = {isFirst ? *least : std::min(*least, datumDepths_.first),
            isFirst ? *greatest : std::max(*greatest, datumDepths_.second)};
    });
}

void PhysicsFacts::ReportUnits(const TextRange& range, const std::string& message, UnitSystem::Enum fit)
{
    const KeywordInstance* const units = FindKeyword(Role::Units);
    const std::string& system = UnitSystem::ToString(*FindUnits());
    areUnitsReported_ = true;
    Report(range, Code::WrongUnits, message,
        units ? fmt::format(
            "plausible in {} units, but the deck is in {} units", UnitSystem::ToString(fit), system)
              : fmt::format("plausible in {} units, but the deck names no system of units, which means {}",
                  UnitSystem::ToString(fit), system),
        units ? Decks::Related(*units, fmt::format("{} is here", system)) : std::vector<Related>());
}

PhysicsFacts::Related PhysicsFacts::RelatedTo(
    const RoleTable& table, const Column& column, std::size_t row, const std::string& what) const
{
    return {RangeOf(table, column, row), what};
}

} // namespace Veld::Quor::Core::Decks

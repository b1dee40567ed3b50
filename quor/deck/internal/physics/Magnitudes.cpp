#include "quor/deck/internal/physics/Magnitudes.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/physics/RecordWalk.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/ValueRange.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/Units.h"

#include <fmt/format.h>

#include <optional>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

const std::string* MeasurementOf(const IKeywordDataMD& md)
{
    return static_cast<const IKeywordRealMD&>(md).GetMeasurement();
}

/// The system of units in which the number would be plausible; empty if there is none.
std::optional<UnitSystem::Enum> FindFit(
    const MagnitudeRule& rule, const std::string* measurement, double value)
{
    for (const UnitSystem::Enum system : {UnitSystem::METRIC, UnitSystem::FIELD}) {
        const auto metric =
            measurement ? Units::Convert(*measurement, value, system, UnitSystem::METRIC) : std::nullopt;
        if (metric && *metric >= rule.least && *metric <= rule.greatest)
            return system;
    }
    return std::nullopt;
}

} // namespace

/// Nothing is known of a zero, which often stands for no number.
bool Magnitudes::IsOdd(const MagnitudeRule& rule, const IKeywordDataMD& md, double value)
{
    const auto [limits, isNew] = limits_.try_emplace({&rule, MeasurementOf(md)});
    if (isNew)
        limits->second = LimitsOf(rule, MeasurementOf(md));
    return value != 0 && (value < limits->second.least || value > limits->second.greatest);
}

Magnitudes::Limits Magnitudes::LimitsOf(const MagnitudeRule& rule, const std::string* measurement) const
{
    const auto convert = [&](double metric) {
        const auto value = measurement
            ? Units::Convert(*measurement, metric, UnitSystem::METRIC, *facts_.FindUnits())
            : std::nullopt;
        return value.value_or(metric);
    };
    return {convert(rule.least), convert(rule.greatest)};
}

/// The ranges that fluids and rocks have: W. D. McCain, The Properties of Petroleum Fluids, 1990.
bool Magnitudes::HasOdd(const KeywordInstance& keyword, const KeywordRoles& roles)
{
    Number odd = {};
    if (!facts_.FindUnits() || (!roles.magnitude && roles.record.IsEmpty()))
        return false;
    const bool isFound = roles.magnitude ? FindOddOfLists(*keyword.data, *roles.magnitude, odd)
                                         : FindOddOfRecords(keyword, roles.record, odd);
    return isFound && Report(keyword, odd);
}

bool Magnitudes::FindOddOfRecords(const KeywordInstance& keyword, const RecordRoles& roles, Number& odd)
{
    std::size_t at = 0;
    const auto find = [&](const IKeywordRecordData& record, const RecordRoles& inner, std::size_t,
                          std::uint32_t slot) {
        for (const RecordRoles::Magnitude& magnitude : inner.magnitudes) {
            const auto& value = *static_cast<const Optional<double>*>(record.GetData(magnitude.item));
            if (odd.rule || !value)
                continue;
            const IKeywordDataMD& md =
                *static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(magnitude.item);
            if (IsOdd(*magnitude.rule, md, *value))
                odd = {magnitude.rule, &md, *value, at, slot + static_cast<std::size_t>(magnitude.item)};
        }
    };
    ForEachElement(*keyword.data, [&](std::size_t element, const IKeywordData& data) {
        at = element;
        if (!odd.rule)
            RecordWalk(find).Walk(data, roles);
    });
    return odd.rule;
}

/// Of a list of real numbers, or a list of such lists.
bool Magnitudes::FindOddOfLists(const IKeywordData& data, const MagnitudeRule& rule, Number& odd)
{
    const bool isOfReals = IsListOf(data.GetMD(), IKeywordDataMD::MDType::Real);
    if (isOfReals && HasUnknown(static_cast<const IKeywordListData&>(data)))
        return false;
    if (isOfReals) {
        const IKeywordDataMD& md = *static_cast<const IKeywordListMD&>(*data.GetMD()).GetItemMD();
        const auto values = As<double>(static_cast<const IKeywordListData&>(data));
        IsOdd(rule, md, 0); // for the limits
        const Limits limits = limits_[{&rule, MeasurementOf(md)}];
        for (std::size_t i = 0; i < values.size(); ++i) {
            if ((values[i] < limits.least || values[i] > limits.greatest) && IsOdd(rule, md, values[i])) {
                odd = {&rule, &md, values[i], odd.element, i};
                return true;
            }
        }
    } else if (IsListOf(data.GetMD(), IKeywordDataMD::MDType::List)) {
        ForEachElement(data, [&](std::size_t element, const IKeywordData& list) {
            if (!odd.rule) {
                odd.element = element;
                FindOddOfLists(list, rule, odd);
            }
        });
    }
    return odd.rule;
}

/// Whether there was a reason to.
bool Magnitudes::Report(const KeywordInstance& keyword, const Number& odd)
{
    const auto fit = FindFit(*odd.rule, MeasurementOf(*odd.md), odd.value);
    if (!fit && !odd.rule->isAlone)
        return false;
    if (fit && facts_.AreUnitsReported())
        return true;
    const UnitSystem::Enum system = *facts_.FindUnits();
    const std::string* const measurement = MeasurementOf(*odd.md);
    const Unit* const unit = measurement ? Units::Find(*measurement, system) : nullptr;
    const Limits limits = limits_[{odd.rule, measurement}];
    const bool isOfList = odd.rule->items.empty();
    const std::string message = fmt::format("{}{}{} is {}{}{}; expected {:.5g} to {:.5g}",
        keyword.syntax->GetName(), isOfList ? "" : ": ", isOfList ? "" : ItemName(*odd.md), odd.value,
        unit ? " " : "", unit ? unit->name : "", limits.least, limits.greatest);
    const TextRange range = isOfList && IsListOf(keyword.data->GetMD(), IKeywordDataMD::MDType::Real)
        ? FindValue(facts_.GetDeck(), keyword, {odd.slot})
        : FindSlot(facts_.GetDeck(), keyword, odd.element, odd.slot);
    if (fit)
        facts_.ReportUnits(range, message, *fit);
    else
        facts_.Report(range, Code::ImplausibleValue, message, "check the value and its unit");
    return true;
}

} // namespace Veld::Quor::Core::Decks

#include "quor/Keywords.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

/// The unit of a measurement in each system.
std::string NamesOf(const std::string& measurement)
{
    std::string names;
    for (const auto& system : UnitSystem::EnumInfos()) {
        const Unit* const unit = Units::Find(measurement, system.value);
        names += std::string(names.empty() ? "" : ", ") + (unit ? unit->name : "-");
    }
    return names;
}

class UnitNames : public testing::TestWithParam<Row> { };
class Conversion : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(UnitNames, AreThoseOfTheSystems)
{
    EXPECT_EQ(NamesOf(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Measurements, UnitNames, testing::ValuesIn(Rows(R"(
First: absolute_temperature => K, R, K, K
Last: water_gas_ratio => sm3/sm3, stb/Mscf, scm3/scm3, sm3/sm3
Pressure: pressure => bar, psi, atm, atm
Alternatives: surface_rate => sm3/day, stb/day or Mscf/day, scm3/hr, sm3/day
NoCertainUnit: tracer_rate => -, -, -, -
OfAHost: Porosity => -, -, -, -
None:  => -, -, -, -
)")),
    CaseName<Row>);

/// `measurement FROM TO value => value`, and back.
TEST_P(Conversion, GoesBothWays)
{
    const auto parts = Split(GetParam().text, " ");
    const auto from = UnitSystem::FromString(parts.at(1));
    const auto to = UnitSystem::FromString(parts.at(2));
    const double before = std::stod(parts.at(3));
    const double after = std::stod(GetParam().expected);
    EXPECT_NEAR(Units::Convert(parts.at(0), before, from, to).value(), after, 1e-9 * std::abs(after));
    EXPECT_NEAR(Units::Convert(parts.at(0), after, to, from).value(), before, 1e-9 * std::abs(before));
    const Unit& unit = *Units::Find(parts.at(0), from);
    const Unit& other = *Units::Find(parts.at(0), to);
    EXPECT_NEAR(before * unit.factor + unit.offset, after * other.factor + other.offset,
        1e-9 * std::abs(before * unit.factor + unit.offset));
}

INSTANTIATE_TEST_SUITE_P(Handbook, Conversion, testing::ValuesIn(Rows(R"(
Atmosphere: pressure LAB FIELD 1 => 14.6959487755134
Bar: pressure PVT-M METRIC 1 => 1.01325
SameUnit: pressure LAB PVT-M 0.1 => 0.1
Boiling: temperature FIELD METRIC 212 => 100
Freezing: temperature LAB FIELD -40 => -40
Critical: absolute_temperature METRIC FIELD 304.2 => 547.56
Difference: temperature_difference METRIC FIELD 10 => 18
Foot: length FIELD LAB 1 => 30.48
Acre: area FIELD METRIC 43560 => 4046.8564224
Barrel: liquid_surface_rate FIELD METRIC 1 => 0.158987294928
BarrelsAnHour: liquid_surface_rate FIELD LAB 1 => 6624.470622
Mscf: gas_surface_rate FIELD METRIC 1 => 28.316846592
GasOilRatio: gas_oil_ratio FIELD METRIC 1 => 178.1076066790353
GasVolumeFactor: gas_formation_volume_factor FIELD METRIC 1 => 0.005614583333333333
Water: density METRIC FIELD 1000 => 62.4279605761446
Darcy: permeability FIELD LAB 250 => 250
Thickness: permeability_thickness FIELD METRIC 100 => 30.48
Transmissibility: transmissibility FIELD METRIC 1 => 2.3059157584203
LabTransmissibility: transmissibility METRIC LAB 1 => 42218.75
Index: productivity_index FIELD METRIC 1 => 2.3059157584203
Compressibility: compressibility FIELD METRIC 3e-6 => 4.3511321319063e-5
Gradient: pressure_gradient FIELD METRIC 0.433 => 0.09794717545741
Tension: surface_tension FIELD LAB 1 => 175126.8352464
Calorie: heat_capacity FIELD METRIC 1 => 4.1868
Conductivity: thermal_conductivity FIELD METRIC 1 => 6.2306447989370
Molar: molar_volume FIELD METRIC 379.48 => 23.6901624794354
PoundsABarrel: concentration FIELD METRIC 1 => 2.8530101742118
Skin: non_darcy_coefficient FIELD METRIC 1 => 0.03531466672148859
Valve: device_strength FIELD METRIC 1 => 85.9862891663165
Modulus: elastic_modulus FIELD METRIC 1 => 6.894757293168
Price: gas_price FIELD METRIC 2.5 => 0.0882866668037215
Reaction: molar_energy FIELD METRIC 1 => 2.326
)")),
    CaseName<Row>);

TEST(Conversion, IsRefusedWhereTheUnitIsNotCertain)
{
    const auto convert = [](const char* measurement, UnitSystem::Enum from, UnitSystem::Enum to) {
        return Units::Convert(measurement, 2, from, to);
    };
    EXPECT_EQ(convert("surface_rate", UnitSystem::METRIC, UnitSystem::FIELD), std::nullopt);
    EXPECT_EQ(convert("surface_rate", UnitSystem::FIELD, UnitSystem::LAB), std::nullopt);
    EXPECT_EQ(convert("map_length", UnitSystem::METRIC, UnitSystem::LAB), 2);
    EXPECT_EQ(convert("tracer_rate", UnitSystem::METRIC, UnitSystem::METRIC), std::nullopt);
    EXPECT_EQ(convert("pressure", UnitSystem::METRIC, UnitSystem::Enum(4)), std::nullopt);
    EXPECT_EQ(convert("pressure", UnitSystem::Enum(-1), UnitSystem::METRIC), std::nullopt);
}

#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace Veld::Quor::Tests;

namespace {

std::string Real(const std::string& name, const std::string& quantity, const std::string& more = {})
{
    return "<item name='" + name + "'><real><quantity name='" + quantity + "'/>" + more + "</real></item>";
}

/// Three keywords: of items, of a list, and of a quantity that the library doesn't know.
const std::string language = "<keyword name='STATE'><data><record>"
    + Real("PRES", "pressure",
        "<default type='specified' val='2'><override name='Sedge' type='specified' val='3'/></default>")
    + Real("VISC", "viscosity", "<default type='specified' val='0.5'/>")
    + Real("RATE", "surface_rate", "<default type='specified' val='0'/>") + Real("WIDTH", "parsecs")
    + Real("TEMP", "temperature", "<default type='specified' val='0'/>")
    + Real("LEAST", "pressure", "<default type='specified' val='1E-6'/>")
    + "</record></data></keyword><keyword name='HEAT'><data><list><real><quantity "
      "name='temperature'/></real></list></data></keyword><keyword name='FAR'><data><record>"
    + Real("WIDTH", "parsecs") + "</record></data></keyword>";

class Measured : public testing::TestWithParam<Row> { };

} // namespace

/// The lines that a command prints, from the data on.
TEST_P(Measured, NamesUnits)
{
    const std::string out = RunOn(language, GetParam().text).out;
    const std::size_t data = out.find("  data: ");
    EXPECT_EQ(
        data == std::string::npos ? out : out.substr(data), GetParam().expected + (out.empty() ? "" : "\n"));
}

INSTANTIATE_TEST_SUITE_P(Keywords, Measured, testing::ValuesIn(Rows(R"(
AllSystems: show STATE =>
      data: record, ends with a slash
        #  item   type  measurement   default
        1  PRES   real  pressure      2 bar
             default by simulator: Sedge 3 bar
        2  VISC   real  viscosity     0.5
        3  RATE   real  surface_rate  0
        4  WIDTH  real  parsecs       none
        5  TEMP   real  temperature   0 degC
        6  LEAST  real  pressure      1e-06 bar
      units of      METRIC   FIELD                LAB      PVT-M
      pressure      bar      psi                  atm      atm
      surface_rate  sm3/day  stb/day or Mscf/day  scm3/hr  sm3/day
      temperature   degC     degF                 degC     degC
      viscosity     cP       cP                   cP       cP
OneSystem: show STATE --units field =>
      data: record, ends with a slash
        #  item   type  unit                 default
        1  PRES   real  psi                  29.0075
             default by simulator: Sedge 43.5113
        2  VISC   real  cP                   0.5
        3  RATE   real  stb/day or Mscf/day  0
        4  WIDTH  real                       none
        5  TEMP   real  degF                 32
        6  LEAST  real  psi                  1e-06
SystemOfTheDocuments: show STATE --units METRIC =>
      data: record, ends with a slash
        #  item   type  unit     default
        1  PRES   real  bar      2
             default by simulator: Sedge 3
        2  VISC   real  cP       0.5
        3  RATE   real  sm3/day  0
        4  WIDTH  real           none
        5  TEMP   real  degC     0
        6  LEAST  real  bar      1e-06
List: show HEAT --units PVT-M =>
      data: list of reals, ends with a slash
        each: real, degC, default none
UnknownQuantity: show FAR =>
      data: record, ends with its last item
        #  item   type  measurement  default
        1  WIDTH  real  parsecs      none
Measurements: list --measurements =>
    measurement   keywords  METRIC   FIELD                LAB      PVT-M
    parsecs              2
    pressure             1  bar      psi                  atm      atm
    surface_rate         1  sm3/day  stb/day or Mscf/day  scm3/hr  sm3/day
    temperature          2  degC     degF                 degC     degC
    viscosity            1  cP       cP                   cP       cP
NoMeasurements: list --measurements --cell =>
Json: list --measurements --text HEAT --format json =>
    {
      "schema_version": 1,
      "measurements": [
        {
          "measurement": "temperature",
          "keywords": 1,
          "units": {
            "METRIC": "degC",
            "FIELD": "degF",
            "LAB": "degC",
            "PVT-M": "degC"
          }
        }
      ]
    }
)")),
    CaseName<Row>);

TEST(Units, OfItemsAreInJson)
{
    const std::string out = RunOn(language, "show STATE --format json | tr -d ' \\n'").out;
    EXPECT_TRUE(Holds(
        out, R"("measurement":"pressure","units":{"METRIC":"bar","FIELD":"psi","LAB":"atm","PVT-M":"atm"})"));
    EXPECT_TRUE(Holds(out, R"("measurement":"parsecs","units":null)"));
}

TEST(Units, OfADeckAreInItsSummary)
{
    const TemporaryDirectory folder;
    for (const auto& [keyword, units, unit] :
        {std::array{"", "METRIC (default)", "  m "}, std::array{"FIELD\n", "FIELD", "  ft "}}) {
        const std::string deck =
            folder.Write("a.data", std::string("RUNSPEC\n") + keyword + "DIMENS\n 1 1 1 /\nGRID\nDX\n 7 /\n");
        const std::string out = RunQuor("info " + Quote(deck)).out;
        EXPECT_TRUE(Holds(out, std::string("units: ") + units + "\n")) << out;
        EXPECT_TRUE(Holds(out, unit)) << out;
    }
}

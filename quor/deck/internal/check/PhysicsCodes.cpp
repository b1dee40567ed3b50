#include "quor/deck/internal/check/PhysicsCodes.h"

#include "quor/deck/FindingCodes.h"
#include "quor/deck/internal/check/CodeTable.h"

namespace Veld::Quor::Core::Decks {

std::vector<CodeInfo> PhysicsCodes()
{
    constexpr auto error = Severity::Error;
    constexpr auto warning = Severity::Warning;
    constexpr Target any;
    constexpr bool strict = true;

    // Code, name, severity, meaning, remedy, a wrong deck and the right one, target, strict, source.
    static constexpr CodeRow<Code> rows[] = {
        {Code::SaturationEnd, "saturation-end", warning,
            "A table of saturation functions does not end where a phase begins to flow.",
            "Begin the table with the row at which the phase does not flow.",
            "RUNSPEC\nOIL\nWATER\nPROPS\nSWOF\n 0.2 0.1 1 0\n 0.8 0.6 0 0 /\n",
            "RUNSPEC\nOIL\nWATER\nPROPS\nSWOF\n 0.2 0 1 0\n 0.8 0.6 0 0 /\n", any, !strict,
            "K. Aziz and A. Settari, Petroleum Reservoir Simulation, 1979, chapter 2"},
        {Code::SaturationMismatch, "saturation-mismatch", warning,
            "Two saturation functions of one region contradict each other.",
            "Write the same permeability to oil at connate water into both tables, and saturations that can "
            "be there at once.",
            "RUNSPEC\nOIL\nWATER\nGAS\nPROPS\nSWOF\n 0.2 0 1 0\n 0.8 0.6 0 0 /\nSGOF\n 0 0 0.8 0\n 0.8 1 0 0 "
            "/\n",
            "RUNSPEC\nOIL\nWATER\nGAS\nPROPS\nSWOF\n 0.2 0 1 0\n 0.8 0.6 0 0 /\nSGOF\n 0 0 1 0\n 0.8 1 0 0 "
            "/\n",
            any, !strict,
            "H. L. Stone, Probability Model for Estimating Three-Phase Relative Permeability, Journal of "
            "Petroleum Technology, February 1970"},
        {Code::CapillaryOrder, "capillary-order", warning,
            "The capillary pressure of gas decreases while its saturation increases.",
            "Put the rows in order, and check the sign of the capillary pressure.",
            "RUNSPEC\nOIL\nGAS\nPROPS\nSGOF\n 0 0 1 0.2\n 0.8 1 0 0 /\n",
            "RUNSPEC\nOIL\nGAS\nPROPS\nSGOF\n 0 0 1 0\n 0.8 1 0 0.2 /\n", any, !strict,
            "L. P. Dake, Fundamentals of Reservoir Engineering, 1978, chapter 10"},
        {Code::ContactOrder, "contact-order", warning,
            "The contact of gas and oil is below that of oil and water.",
            "Correct the depths. Without oil between gas and water write the same depth twice.",
            "RUNSPEC\nOIL\nWATER\nGAS\nSOLUTION\nEQUIL\n 2000 200 2100 0 2200 /\n",
            "RUNSPEC\nOIL\nWATER\nGAS\nSOLUTION\nEQUIL\n 2000 200 2100 0 2000 /\n", any, !strict,
            "L. P. Dake, Fundamentals of Reservoir Engineering, 1978, chapter 1"},
        {Code::DatumDepth, "datum-depth", warning,
            "The pressure is not given at the contact of gas and oil, where the oil is saturated.",
            "Give depth and pressure of the contact, or add a table of dissolved gas against depth.",
            "RUNSPEC\nOIL\nGAS\nDISGAS\nSOLUTION\nEQUIL\n 2100 200 2300 0 2000 /\n",
            "RUNSPEC\nOIL\nGAS\nDISGAS\nSOLUTION\nEQUIL\n 2000 200 2300 0 2000 /\n", any, !strict,
            "L. P. Dake, Fundamentals of Reservoir Engineering, 1978, chapters 1 and 2"},
        {Code::FluidZero, "fluid-zero", error, "A volume factor or a viscosity is 0.",
            "Write the value of the fluid.", "RUNSPEC\nWATER\nPROPS\nPVTW\n 200 1 4e-5 0 /\n",
            "RUNSPEC\nWATER\nPROPS\nPVTW\n 200 1 4e-5 0.5 /\n", any, !strict,
            "W. D. McCain, The Properties of Petroleum Fluids, 1990, chapters 6 and 10"},
        {Code::FluidTrend, "fluid-trend", warning,
            "A property of a fluid changes with pressure or content in the wrong direction.",
            "Check the values of the rows, and the order of the columns.",
            "RUNSPEC\nGAS\nPROPS\nPVDG\n 100 0.01 0.02\n 200 0.005 0.01 /\n",
            "RUNSPEC\nGAS\nPROPS\nPVDG\n 100 0.01 0.01\n 200 0.005 0.02 /\n", any, !strict,
            "W. D. McCain, The Properties of Petroleum Fluids, 1990, chapters 6 and 10"},
        {Code::TotalCompressibility, "total-compressibility", warning,
            "Oil and the gas that dissolves in it would expand together when pressure rises.",
            "Check the volume factors of both, and the contents of dissolved gas.",
            "RUNSPEC\nOIL\nGAS\nDISGAS\nPROPS\nPVTO\n 50 100 1.2 1 /\n 60 120 1.4 0.9\n 200 1.38 1 /\n/\n"
            "PVDG\n 50 0.02 0.01\n 200 0.005 0.02 /\n",
            "RUNSPEC\nOIL\nGAS\nDISGAS\nPROPS\nPVTO\n 50 100 1.2 1 /\n 60 120 1.25 0.9\n 200 1.2 1 /\n/\n"
            "PVDG\n 50 0.02 0.01\n 200 0.005 0.02 /\n",
            any, !strict,
            "K. H. Coats, Simulation of Gas Condensate Reservoir Performance, Journal of Petroleum "
            "Technology, October 1985"},
        {Code::WrongUnits, "wrong-units", warning,
            "A number is plausible in another system of units only. It is reported once for each deck.",
            "Convert the number, and check all others, or select the system of units in RUNSPEC.",
            "RUNSPEC\nFIELD\nOIL\nPROPS\nDENSITY\n 850 1000 1 /\n",
            "RUNSPEC\nMETRIC\nOIL\nPROPS\nDENSITY\n 850 1000 1 /\n", any, !strict,
            "W. D. McCain, The Properties of Petroleum Fluids, 1990, appendix A"},
        {Code::ImplausibleValue, "implausible-value", warning,
            "A number is far beyond those of fluids, rocks and wells, or contradicts one of another well. "
            "One of "
            "a keyword is reported.",
            "Check the number of digits, and the unit.", "RUNSPEC\nWATER\nPROPS\nPVTW\n 200 1 4e-5 320 /\n",
            "RUNSPEC\nWATER\nPROPS\nPVTW\n 200 1 4e-5 0.32 /\n", any, !strict,
            "W. D. McCain, The Properties of Petroleum Fluids, 1990"},
        {Code::WellDepth, "well-depth", warning,
            "The depth of a well is far from the datum of the reservoir.",
            "Check the sign and the number of digits.",
            "RUNSPEC\nSOLUTION\nEQUIL\n 2000 200 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 -2000 OIL /\n/\n",
            "RUNSPEC\nSOLUTION\nEQUIL\n 2000 200 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 2000 OIL /\n/\n", any,
            !strict,
            "T. Ertekin, J. H. Abou-Kassem and G. R. King, Basic Applied Reservoir Simulation, 2001, chapter "
            "6"},
        {Code::FractionSum, "fraction-sum", warning,
            "The fractions of the components are not the whole of a fluid.",
            "Correct the fractions, so that their sum is 1.",
            "RUNSPEC\nCOMPS\n 2 /\nSOLUTION\nZMFVD\n 2000 0.5 0.4 /\n",
            "RUNSPEC\nCOMPS\n 2 /\nSOLUTION\nZMFVD\n 2000 0.5 0.5 /\n", any, !strict,
            "K. S. Pedersen and P. L. Christensen, Phase Behavior of Petroleum Reservoir Fluids, 2006, "
            "chapter "
            "2"},
        {Code::CellJump, "cell-jump", warning,
            "A depth is more than 500 metres from those beside it, or 200 if it seems to lack a digit.",
            "Check the number of digits.", "RUNSPEC\nDIMENS\n 2 1 1 /\nGRID\nTOPS\n 3050 305 /\n",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nGRID\nTOPS\n 3050 3051 /\n", any, !strict,
            "D. K. Ponting, Corner Point Geometry in Reservoir Simulation, European Conference on the "
            "Mathematics of Oil Recovery, 1989"},
        {Code::InvertedCell, "inverted-cell", warning, "The bottom of a cell is above its top.",
            "Check the order and the sign of the depths.",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nZCORN\n 4*2010 4*2000 /\n",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nZCORN\n 4*2000 4*2010 /\n", any, !strict,
            "D. K. Ponting, Corner Point Geometry in Reservoir Simulation, European Conference on the "
            "Mathematics of Oil Recovery, 1989"},
        {Code::InactiveConnection, "inactive-connection", warning,
            "All cells of a connection of a well are inactive.",
            "Correct the indices of the connection, or make a cell active.",
            "RUNSPEC\nDIMENS\n 1 1 2 /\nGRID\nACTNUM\n 0 1 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n"
            "COMPDAT\n P1 1 1 1 1 /\n/\n",
            "RUNSPEC\nDIMENS\n 1 1 2 /\nGRID\nACTNUM\n 0 1 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n"
            "COMPDAT\n P1 1 1 2 2 /\n/\n",
            any, !strict, "D. W. Peaceman, Fundamentals of Numerical Reservoir Simulation, 1977, chapter 1"},
    };
    static_assert(
        HasRowForEach(rows, Code::InactiveConnection, static_cast<std::size_t>(Code::SaturationEnd)),
        "a code and its row are not in the same position");
    return InfosOf(rows);
}

} // namespace Veld::Quor::Core::Decks

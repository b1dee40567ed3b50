#include "tests/deck/DeckRow.h"
#include "tests/support/Cases.h"

using namespace Veld::Quor::Tests;

namespace {

INSTANTIATE_TEST_SUITE_P(Saturations, DeckFindings,
    testing::Values(DeckRow{"EndsOfEachTable", R"(RUNSPEC
TABDIMS
 3 /
PROPS
SWOF
 0.2 0.1 1 0
 0.5 2* 0 -- interpolated
 0.8 0.6 0.05 0 /
 0.2 0 1 0
 0.8 0.6 0.00005 0 /
/
SGOF
 0 0 1 0
 0.8 1 0.3 0 /
 0.1 0 1 0
 0.8 1 0 0 /
/
)",
                        "d:6:6: warning: SWOF: the lowest KRW of table 1 is 0.1; expected 0 [saturation-end] "
                        "| a phase does not flow at its lowest saturation\n"
                        "d:8:10: warning: SWOF: the lowest KROW of table 1 is 0.05; expected 0 "
                        "[saturation-end] | a phase does not flow at its lowest saturation\n"
                        "d:14:8: warning: SGOF: the lowest KROG of table 1 is 0.3; expected 0 "
                        "[saturation-end] | a phase does not flow at its lowest saturation\n"
                        "d:15:2: warning: SGOF: the first SG of table 2 is 0.1; expected 0 [saturation-end] "
                        "| the table has a row without free gas"},
        DeckRow{"EndsWithLiquid",
            "RUNSPEC\nPROPS\nSLGOF\n 0.2 0.9 0 0\n 0.9 0.1 1 0 /\nSOF3\n 0 0.1 0\n 0.8 1 1 /\n",
            "d:5:6: warning: SLGOF: the lowest KRG of table 1 is 0.1; expected 0 [saturation-end] | a phase "
            "does not flow at its lowest saturation\n"
            "d:5:2: warning: SLGOF: the last SL of table 1 is 0.9; expected 1 [saturation-end] | the table "
            "has a row without free gas\n"
            "d:7:4: warning: SOF3: the lowest KROW of table 1 is 0.1; expected 0 [saturation-end] | a phase "
            "does not flow at its lowest saturation"},
        DeckRow{"OilOfBothTables", R"(RUNSPEC
PROPS
SLGOF
 0.1 1 0 0
 1 0 0.8 0 /
SWOF
 0.2 0 1 0
 1 1 0 0 /
)",
            "d:5:6: warning: SLGOF: KROG of table 1 is 0.8 without gas, but KROW of SWOF is 1 at connate "
            "water [saturation-mismatch] | both are the permeability to oil at connate water; write the same "
            "value (d:7:8: KROW is 1 here)\n"
            "d:4:2: warning: SLGOF: SL of table 1 begins at 0.1, but SW of SWOF begins at 0.2 "
            "[saturation-mismatch] | liquid is oil and connate water; it is at least as much as the water "
            "(d:7:2: SW is 0.2 here)"},
        DeckRow{"OilOfTwoPhases", "RUNSPEC\nPROPS\nSWFN\n 0.2 0 0\n 1 1 0 /\nSOF3\n 0 0 0\n 0.7 0.9 0.9 /\n",
            "d:8:2: warning: SOF3: SO of table 1 ends at 0.7, but SW of SWFN begins at 0.2; expected a sum "
            "of 1 "
            "[saturation-mismatch] | the highest saturation is 1 less that of connate water (d:4:2: SW is "
            "0.2 "
            "here)"},
        DeckRow{"SumsOfThreePhases", R"(RUNSPEC
PROPS
SWFN
 0.2 0 0
 1 1 0 /
SGFN
 0 0 0
 0.9 1 0 /
SOF3
 0 0 0
 0.9 1 0.9 /
)",
            "d:11:8: warning: SOF3: KROW and KROG of table 1 end with 1 and 0.9; expected the same value "
            "[saturation-mismatch] | both are the permeability to oil at connate water without gas\n"
            "d:8:2: warning: SGFN: SG of table 1 reaches 0.9, but SW of SWFN begins at 0.2; expected a sum "
            "of at most 1 [saturation-mismatch] | the highest saturation is 1 less that of connate water "
            "(d:4:2: SW is 0.2 here)\n"
            "d:11:2: warning: SOF3: SO of table 1 reaches 0.9, but SW of SWFN begins at 0.2; expected a sum "
            "of at most 1 [saturation-mismatch] | the highest saturation is 1 less that of connate water "
            "(d:4:2: SW is 0.2 here)"},
        DeckRow{"WhatIsUnknownMayCorrectIt",
            "RUNSPEC\nPROPS\nXYZZYX\n/\nSWOF\n 0.2 0 1 0\n 1 1 0 0 /\nSGOF\n 0 0 0.8 0\n 0.8 1 0 0 /\n",
            "d:3:1: error: unknown keyword 'XYZZYX' [unknown-keyword]"},
        DeckRow{"CapillaryPressureAgainstLiquid",
            "RUNSPEC\nPROPS\nSLGOF\n 0.2 1 0 0.1\n 0.5 2* 1*\n 0.8 0.1 0.5 0.2\n 1 0 1 0 /\n",
            "d:6:14: warning: SLGOF: PCOG of table 1 increases from 0.1 to 0.2 while SL increases "
            "[capillary-order] | capillary pressure increases with the saturation of gas"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Equilibrium, DeckFindings,
    testing::Values(
        DeckRow{"ContactsOfEachRegion",
            "RUNSPEC\nOIL\nGAS\nWATER\nDISGAS\nEQLDIMS\n 3 /\nSOLUTION\nEQUIL\n 2000 200 2100 0 2200 0 1 "
            "/\n 2100 200 2100 0 2000 /\n 2100 200 2100 0 2000 0 1 /\n",
            "d:10:18: warning: EQUIL: GOC of region 1 is 2200, below OWC at 2100 [contact-order] | gas is "
            "above oil, and oil above water; without oil, write the same depth twice\n"
            "d:11:2: warning: EQUIL: DEPTH of region 2 is 2100, but GOC is 2000; expected the same depth "
            "without a table of dissolved gas [datum-depth] | write the pressure at the contact, or add a "
            "table of dissolved gas"},
        DeckRow{"OfTwoPhases", "RUNSPEC\nGAS\nWATER\nSOLUTION\nEQUIL\n 2000 200 2100 0 2200 /\n"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Fluids, DeckFindings,
    testing::Values(DeckRow{"Zero", "RUNSPEC\nOIL\nPROPS\nPVDO\n 100 1.1 0\n 200 0 0 /\n",
                        "d:6:6: error: PVDO: BO of table 1 is 0; expected a value above 0 [fluid-zero] | "
                        "write the value of the fluid\n"
                        "d:5:10: error: PVDO: VISO of table 1 is 0; expected a value above 0 [fluid-zero] | "
                        "write the value of the fluid"},
        DeckRow{"TrendsOfLiveOil", R"(RUNSPEC
OIL
GAS
DISGAS
TABDIMS
 1 2 /
PROPS
PVTO
 10 100 1.2 1 /
 20 90 1.1 0.9
   150 1.05 1.0
   200 1.0 1.1 /
/
 10 100 1.1 1.2 /
 20 150 1.2 1.1
   200 1.15 1.0 /
/
)",
            "d:10:5: warning: PVTO: PRESSURE of table 1 decreases from 100 to 90 while RS increases from 10 "
            "to 20 [fluid-trend] | check the values of both rows, and the order of the columns\n"
            "d:16:13: warning: PVTO: VISO of table 2 decreases from 1.1 to 1 while PRESSURE increases from "
            "150 to 200 [fluid-trend] | check the values of both rows, and the order of the columns"},
        DeckRow{"TrendsOfWetGas",
            "RUNSPEC\nOIL\nGAS\nVAPOIL\nPROPS\nPVTG\n 100 0.0001 0.005 0.02\n  0 0.0055 0.01 /\n 200 0.0002 "
            "0.006 0.01\n  0 0.0062 0.01 /\n/\n",
            "d:9:19: warning: PVTG: VISG of table 1 decreases from 0.02 to 0.01 while PRESSURE increases "
            "from 100 to 200 [fluid-trend] | check the values of both rows, and the order of the columns"},
        DeckRow{"Fractions",
            "RUNSPEC\nCOMPS\n 3 /\nSOLUTION\nZMFVD\n 2000 0.5 0.3 0.1\n 2100 0.5 0.3 0.3 /\n",
            "d:6:7: warning: ZMFVD: the sum of ZMF is 0.9; expected 1 [fraction-sum] | the fractions of all "
            "components are the whole fluid"},
        DeckRow{"Compressibility", R"(RUNSPEC
OIL
GAS
DISGAS
PROPS
PVDG
 100 0.01 0.01
 200 0.005 0.02 /
PVTO
 50 100 1.2 1 /
 60 150 1.3 0.9
   200 1.25 1 /
/
)",
            "d:11:9: warning: PVTO: BO of table 1 rises by 0.1 from RS 50 to 60, more than the 0.08 of the "
            "gas that dissolves; oil and gas together would expand under pressure [total-compressibility] "
            "| check both rows, and the volume factor of the gas (d:7:6: the volume factor of the gas is "
            "here)"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Magnitudes, DeckFindings,
    testing::Values(DeckRow{"AreReportedOnce",
                        "RUNSPEC\nFIELD\nPROPS\nDENSITY\n 850 1000 1 /\nSOLUTION\nEQUIL\n 2000 200 /\n",
                        "d:5:2: warning: DENSITY: OIL is 850 lb/ft3; expected 24.971 to 78.035 [wrong-units] "
                        "| plausible in METRIC units, but the deck is in FIELD units (d:2:1: FIELD is here)"},
        DeckRow{"InTheUnitsOfNoName", "RUNSPEC\nSOLUTION\nEQUIL\n 12000 4000 /\n",
            "d:4:8: warning: EQUIL: PRESSURE is 4000 bar; expected 0 to 2500 [wrong-units] | plausible in "
            "FIELD units, but the deck names no system of units, which means METRIC"},
        DeckRow{"OfAnInjectorBelowTheProducers",
            "SCHEDULE\nWCONPROD\n P1 OPEN BHP 5* 90 /\n/\nWCONINJE\n I1 WATER OPEN BHP 2* 20 /\n/\n",
            "d:6:23: warning: WCONINJE: BHP is 20, below 90, the least limit of the producers "
            "[implausible-value] | check the number of digits, and the unit (d:2:1: the limit is here)"},
        DeckRow{"OfAContactAboveTheSurface", "RUNSPEC\nOIL\nWATER\nSOLUTION\nEQUIL\n 2000 200 -2050 /\n",
            "d:6:11: warning: EQUIL: OWC of region 1 is -2050, but DEPTH is 2000 [contact-order] | depths "
            "increase downwards; remove the sign"},
        DeckRow{"OfABranchWithoutRows", "RUNSPEC\nOIL\nGAS\nPROPS\nPVTO\n 10 50 1.2 1 /\n 20 /\n/\n", ""},
        DeckRow{"OfMoreCellsThanAreCounted",
            "RUNSPEC\nDIMENS\n 33996 37171 1824726041 /\nGRID\nTOPS\n 1000 90000 /\n",
            "d:6:13: error: TOPS: too few values (expected 2305843009213693956, found 2) [wrong-size] | the "
            "size is "
            "NX*NY*NZ"},
        DeckRow{"OfPressureByDepth", "RUNSPEC\nFIELD\nSOLUTION\nEQUIL\n 8400 330 8500 /\n",
            "d:5:7: warning: EQUIL: PRESSURE is 330 psi at a depth of 8400 ft; expected about 3713 "
            "[wrong-units] | plausible in METRIC units, but the deck is in FIELD units (d:2:1: FIELD is "
            "here)"},
        DeckRow{"OneOfAKeyword", R"(RUNSPEC
OIL
GAS
DISGAS
COMPS
 2 /
DIMENS
 2 1 1 /
GRID
NTG
 0.5 1.8 /
PROPS
ACF
 0.2 2515 /
PVTO
 10 100 1.1 1.2 /
 20 150 1.2 1.1
   200 1.15 1.3E9
   300 1.1 1.4E9 /
/
)",
            "d:11:6: warning: NTG is 1.8; expected 0 to 1 [implausible-value] | check the value and its "
            "unit\n"
            "d:14:6: warning: ACF is 2515; expected -1 to 5 [implausible-value] | check the value and its "
            "unit\n"
            "d:18:13: warning: PVTO: VISO is 1300000000 cP; expected 0.01 to 1e+07 [implausible-value] | "
            "check the value and its unit"},
        DeckRow{"InUnknownUnits", "RUNSPEC\nXYZZYX\nSOLUTION\nEQUIL\n 8000 4000 /\n",
            "d:2:1: error: unknown keyword 'XYZZYX' [unknown-keyword]"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Cells, DeckFindings,
    testing::Values(DeckRow{"AreInsideOut", R"(RUNSPEC
DIMENS
 2 1 2 /
GRID
ZCORN
 2*10 2*20 2*10 2*20
 2*20 2*10 2*20 2*10
 2*20 2*10 2*20 2*10
 8*5 /
ACTNUM
 1 1 0 1 /
)",
                        "d:6:7: warning: ZCORN: the bottom of cell 2 1 1 is above its top, as in 2 active "
                        "cells in all [inverted-cell] | depths increase downwards, and the depths of tops "
                        "are before those of bottoms"},
        DeckRow{"AreFarFromOthers", R"(RUNSPEC
DIMENS
 3 1 1 /
GRID
TOPS
 305 3050 3050 /
ZCORN
 12*2000
 5*2010 20100 6*2010 /
)",
            "d:9:9: warning: ZCORN: a corner of cell 3 1 1 at 20100 is far from its other corners "
            "[cell-jump] | check the number of digits\n"
            "d:6:2: warning: TOPS: depth 305 of cell 1 1 1 is far from 3050 of cell 2 1 1 beside it "
            "[cell-jump] | check the number of digits"},
        DeckRow{"OfNoTopsWhereInactive",
            "RUNSPEC\nDIMENS\n 3 2 3 /\nGRID\nTOPS\n 10*3050 0 7*3050 /\nACTNUM\n 10*1 0 7*1 /\n"},
        DeckRow{"AreInactiveAtAWell", R"(RUNSPEC
DIMENS
 2 1 3 /
GRID
ACTNUM
 1 0 1 0 0 1 /
EQUALS
 TOPS 3000 /
/
SCHEDULE
WELSPECS
 P1 G 2 1 1* OIL /
/
COMPDAT
 P1 2 1 1 3 /
 P1 2 1 1 2 /
 P1 2* 1 2 /
/
COMPDAT
 P1 1 1 3 3 /
/
)",
            "d:16:5: warning: COMPDAT: no cell of 2 1 1 to 2 is active [inactive-connection] | correct the "
            "indices of the connection, or make a cell active (d:5:1: the active cells are here)\n"
            "d:12:7: warning: WELSPECS: no cell of 2 1 1 to 2 is active, where COMPDAT connects the well "
            "[inactive-connection] | correct the indices of the well, or make a cell active (d:14:1: the "
            "connection is here)\n"
            "d:20:5: warning: COMPDAT: cell 1 1 3 is not active [inactive-connection] | correct the indices "
            "of the connection, or make a cell active (d:5:1: the active cells are here)"},
        DeckRow{"AreFarFromWells",
            "RUNSPEC\nSOLUTION\nEQUIL\n 2000 200 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 -2010 OIL /\n P2 G 1 1 "
            "20000 OIL /\n P3 G 1 1 0 OIL /\n/\n",
            "d:7:11: warning: WELSPECS: a depth of -2010 is far from the datum of the reservoir at 2000 "
            "[well-depth] | depths increase downwards; remove the sign\n"
            "d:8:11: warning: WELSPECS: a depth of 20000 is far from the datum of the reservoir at 2000 "
            "[well-depth] | check the number of digits"},
        DeckRow{"AreMadeActive",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nACTNUM\n 0 /\nEQUALS\n 'actnum' 1 /\n/\nSCHEDULE\nWELSPECS\n "
            "P1 "
            "G 1 1 1* OIL /\n/\nCOMPDAT\n P1 1 1 1 1 /\n/\n"}),
    CaseName<DeckRow>);

} // namespace

"""The deck that the tests of the language server open: two files, and a table that is no part of them."""

MAIN = """RUNSPEC
TITLE
  A small deck
DIMENS
  3 3 2 /
OIL
WATER
METRIC
START
  1 JAN 2024 /
WELLDIMS
  5 5 2 5 /
GRID
DX
  18*100 /
DY
  18*100 /
DZ
  18*10 /
TOPS
  9*2000 /
PORO
  9*0.2 9*0.25 /
PERMX
  18*100 /
COPY
  PERMX PERMY /
/
SOLUTION
SUMMARY
SCHEDULE
INCLUDE
  'wells.inc' /
DATES
  1 FEB 2024 /
/
WCONPROD
-- well  state  control  oil
  'P1'   OPEN   ORAT     900  4* 120 /
  P2     SHUT   LRAT     2*   800 /
/
DATES
  1 MAR 2024 /
/
WCONPROD
  P1 OPEN ORAT 800 4* 120 /
/
END
"""

WELLS = """-- Wells: \u00f8\U0001f6e2 is no name
WELSPECS
  P1 NORTH 1 1 2000 OIL /
  P2 NORTH 3 3 2000 OIL /
/
COMPDAT
  'P1' 2* 1 2 OPEN 2* 0.2 /
  'P2' 2* 1 2 OPEN 2* 0.2 /
/
"""

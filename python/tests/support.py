"""Decks for the tests: the values in them are read here and nowhere else."""

from pathlib import Path

SOURCE = Path(__file__).parents[2]
DECKS = SOURCE / "examples" / "decks"
FIELD = DECKS / "field" / "field.data"

#: A small deck of two wells and two report steps.
SMALL = """RUNSPEC
DIMENS
  2 3 2 /   -- a comment
OIL
METRIC
START
  1 JAN 2024 /
GRID
PORO
  6*0.25 6*0.3 /
ACTNUM
  12*1 /
SCHEDULE
WELSPECS
  P1 FIELD 1 1 1* OIL /
  I1 FIELD 2 3 1* WATER /
/
WCONPROD
  P1 OPEN ORAT 800 /
/
DATES
  1 APR 2024 /
/
WCONPROD
  P1 OPEN ORAT 750 2* 900 /
/
DATES
  1 JUL 2024 /
/
"""

"""The units of measurements."""

from __future__ import annotations

from collections.abc import Iterator, Mapping
from difflib import get_close_matches
from functools import lru_cache
from typing import TYPE_CHECKING, SupportsFloat

from . import _core
from ._errors import QuorKeyError, check_type

if TYPE_CHECKING:
    import pandas


@lru_cache(maxsize=1)
def _table() -> dict[str, dict[str, str]]:
    return _core.measurements()


class Units(Mapping[str, Mapping[str, str]]):
    """The unit of each measurement in each system: ``deck.units["pressure"]["FIELD"]``."""

    def __init__(self, system: str) -> None:
        self.system = system  #: the one that the deck is in

    def __getitem__(self, measurement: str) -> Mapping[str, str]:
        units = _table().get(measurement)
        if units is None:
            near = get_close_matches(str(measurement), _table(), 1)
            hint = f"; did you mean '{near[0]}'?" if near else ""
            raise QuorKeyError(f"unknown measurement '{measurement}'{hint}")
        return units

    def __iter__(self) -> Iterator[str]:
        return iter(_table())

    def __len__(self) -> int:
        return len(_table())

    def convert(self, value: float, measurement: str, to: str, source: str | None = None) -> float:
        """A value of the deck (or of the system ``source``) in the unit of the system ``to``."""
        self[measurement]  # raises, with names that are near
        check_type(value, SupportsFloat, "a number")
        check_type(to, str, "the name of a system of units")
        return _core.convert(measurement, float(value), source or self.system, to)

    def frame(self) -> pandas.DataFrame:
        """All as a table of pandas: a row a measurement, a column a system."""
        from ._frames import load_pandas

        frame: pandas.DataFrame = load_pandas().DataFrame.from_dict(_table(), orient="index")
        return frame

    def __repr__(self) -> str:
        return f"<Units of {len(self)} measurements, deck in {self.system}>"

"""Records as tables of pandas, which is loaded when a table is first asked for."""

from __future__ import annotations

from collections.abc import Sequence
from typing import TYPE_CHECKING, Any

import numpy as np

from . import _core
from ._errors import QuorError

if TYPE_CHECKING:
    import pandas


def load_pandas() -> Any:
    try:
        import pandas
    except ImportError as error:
        raise QuorError("frames need pandas, which isn't installed; records and arrays work without it") from error
    return pandas


def frame(keywords: Sequence[_core.Keyword], defaults: bool) -> pandas.DataFrame:
    """The records of keywords of one name."""
    pandas = load_pandas()
    columns, (dates, files, lines, tables) = _core.columns(keywords, defaults)
    table: dict[str, Any] = {row[0]: _column(pandas, *row[1:]) for row in columns}
    table["date"] = _dates(pandas, dates)
    table["file"] = pandas.Categorical(files)
    table["line"] = lines
    if np.any(tables):
        table["table"] = tables
    return pandas.DataFrame(table)


def _column(pandas: Any, kind: str, values: Any, missing: Any, words: list[str]) -> Any:
    """Integers and bools have missing values of their own; a real one that is missing is NaN."""
    if kind == "Choice":
        return pandas.Categorical.from_codes(np.where(missing, -1, values) if len(missing) else [], words)
    if kind == "Integer":
        return pandas.arrays.IntegerArray(np.array(values, np.int32), np.array(missing, bool))
    if kind == "Boolean":
        return pandas.arrays.BooleanArray(np.array(values, bool), np.array(missing, bool))
    if kind == "Real":
        return values
    return pandas.Series(values, dtype=object)


def _dates(pandas: Any, dates: list[Any]) -> Any:
    """Years that pandas can't hold (after 2262) stay as they are."""
    try:
        return pandas.to_datetime(pandas.Series(dates, dtype="datetime64[ns]"))
    except pandas.errors.OutOfBoundsDatetime:
        return pandas.Series(dates, dtype=object)

"""From files and texts to decks."""

from __future__ import annotations

import os
from collections.abc import Iterator, Mapping
from contextlib import contextmanager
from contextvars import ContextVar
from types import NoneType
from typing import Any, SupportsIndex

from . import _core
from ._deck import Deck, Options
from ._errors import check_type, flag

_variables: ContextVar[Mapping[str, str]] = ContextVar("quor.variables", default={})


def read(
    path: str | os.PathLike[str],
    simulator: str | None = None,
    mode: str | None = None,
    variables: Mapping[str, object] | None = None,
    *,
    strict: bool = False,
    max_findings: int = 200,
) -> Deck:
    """Reads a deck with all the files that it includes.

    ``simulator`` and ``mode`` say where it is to run ("Carrow", "BlackOil"); without them what is valid for any
    is accepted. ``variables`` replace the ``$NAME`` in the deck. What is wrong in the deck is in its
    ``findings``; a file that can't be read raises ``QuorError``. Other threads run meanwhile.
    """
    options = _options(simulator, mode, variables, strict, max_findings)
    return Deck(_core.read(os.fsencode(path), *options), options)


def loads(
    text: str | bytes,
    simulator: str | None = None,
    mode: str | None = None,
    variables: Mapping[str, object] | None = None,
    *,
    name: str | os.PathLike[str] = "deck.data",
    strict: bool = False,
    max_findings: int = 200,
) -> Deck:
    """Reads a deck from a text. ``name`` is its path: findings name it, and the files that the deck includes are
    searched for in its folder."""
    options = _options(simulator, mode, variables, strict, max_findings)
    check_type(text, (str, bytes, bytearray, memoryview), "the text of a deck")
    data = text.encode("utf-8", "surrogateescape") if isinstance(text, str) else bytes(text)
    return Deck(_core.read_texts([(os.fsencode(name), data)], *options), options)


@contextmanager
def variables(**values: object) -> Iterator[None]:
    """The variables of all decks that are read in the block: ``with quor.variables(CASE=1): ...``. Those that are
    given to ``read`` itself come first."""
    token = _variables.set({**_variables.get(), **_texts(values)})
    try:
        yield
    finally:
        _variables.reset(token)


def _options(
    simulator: str | None,
    mode: str | None,
    variables: Mapping[str, object] | None,
    strict: bool,
    max_findings: int,
) -> Options:
    check_type(simulator, (str, NoneType), "the name of a simulator")
    check_type(mode, (str, NoneType), "the name of a mode")
    is_strict = flag(strict, "strict")
    check_type(max_findings, SupportsIndex, "a whole number as max_findings")
    if max_findings < 0:
        raise ValueError(f"max_findings is {max_findings}, expected 0 or more")
    merged = {**_variables.get(), **_texts(variables or {})}
    return simulator or "", mode or "", merged, max_findings, is_strict


def with_variables(options: Mapping[str, Any]) -> dict[str, Any]:
    """The options with the variables of the block, for reads on other threads and processes."""
    given = _texts(options.get("variables") or {})
    return {**options, "variables": {**_variables.get(), **given}}


def _texts(values: Mapping[str, object]) -> dict[str, str]:
    check_type(values, Mapping, "a dict of variables and their values")
    for name in values:
        check_type(name, str, "the name of a variable")
    return {name.removeprefix("$"): str(value) for name, value in values.items()}

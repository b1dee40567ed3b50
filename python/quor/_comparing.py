"""Two decks, and one deck on two simulators."""

from __future__ import annotations

from types import NoneType

from . import _core
from ._deck import Deck
from ._errors import check_type
from ._values import Change, Loss


def diff(a: Deck, b: Deck) -> list[Change]:
    """What differs between the data of two decks, in the order of sections and dates. Comments, layout and
    inclusions don't matter."""
    for deck in (a, b):
        check_type(deck, Deck, "a deck, as quor.read returns it")
    return [Change(*row) for row in _core.diff(a._now(), b._now())]


def port(deck: Deck, to: str, mode: str | None = None) -> list[Loss]:
    """What the deck loses on another simulator, ``to``. Read the deck for the simulator that it runs on now."""
    check_type(deck, Deck, "a deck, as quor.read returns it")
    check_type(to, str, "the name of a simulator")
    check_type(mode, (str, NoneType), "the name of a mode")
    return [Loss(*row) for row in _core.losses(deck._now(), to, mode or "")]

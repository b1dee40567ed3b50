"""Decks of reservoir simulators: read, look, change, compare.

>>> import quor
>>> deck = quor.read("FIELD.data", simulator="Carrow")
>>> deck["PORO"].array.mean()
>>> deck.frame("WCONPROD")
"""

from ._comparing import diff, port
from ._core import Item, Keyword, KeywordInfo, Record
from ._deck import Deck
from ._errors import QuorError, QuorKeyError
from ._language import Language, language
from ._many import check_many, map_decks
from ._reading import loads, read, variables
from ._units import Units
from ._values import Change, Finding, Group, Loss, Quantity, Step, Well

__all__ = [
    "Change",
    "Deck",
    "Finding",
    "Group",
    "Item",
    "Keyword",
    "KeywordInfo",
    "Language",
    "Loss",
    "Quantity",
    "QuorError",
    "QuorKeyError",
    "Record",
    "Step",
    "Units",
    "Well",
    "check_many",
    "diff",
    "language",
    "loads",
    "map_decks",
    "port",
    "read",
    "variables",
]

"""A deck and what can be asked of it and changed in it."""

from __future__ import annotations

import os
from collections.abc import Iterable, Iterator, Mapping, Sequence
from datetime import date, datetime
from pathlib import Path
from types import NoneType
from typing import TYPE_CHECKING, Any, SupportsIndex, Union

from . import _core, _files
from ._core import Keyword
from ._errors import QuorKeyError, check_type, flag
from ._state import State, date_text
from ._units import Units
from ._values import Finding, Group, Step, Well

if TYPE_CHECKING:
    import pandas

#: simulator, mode, variables, how many findings are kept, whether strict codes are reported
Options = tuple[str, str, dict[str, str], int, bool]
Date = Union[str, date, datetime]


class Deck:
    """A deck: keywords in the order of reading, report steps, findings and the texts of its files.

    ``quor.read`` makes it. ``deck["PORO"]`` is the last keyword of a name, ``deck.all("WCONPROD")`` all of
    them. Keywords, records and arrays that were taken from a deck stay as they are when the deck is changed,
    and valid when it is deleted. Threads may look at one deck at once; one may change it.
    """

    def __init__(self, core: _core.Deck, options: Options) -> None:
        self._state = State(core)
        self._options = options

    # What it has.

    def __len__(self) -> int:
        """How many keywords it has."""
        return len(self._now())

    def __iter__(self) -> Iterator[Keyword]:
        """Its keywords, in the order of reading."""
        core = self._now()
        return (core.at(i) for i in range(len(core)))

    def __contains__(self, name: object) -> bool:
        return isinstance(name, str) and self._now().has(name)

    def __getitem__(self, name: str) -> Keyword:
        """The last keyword of that name, without regard to case. Raises ``KeyError`` with names that are near."""
        check_type(name, str, "the name of a keyword")
        return self._now().get(name)

    def all(self, name: str) -> list[Keyword]:
        """All keywords of that name, in the order of reading; empty if there are none."""
        check_type(name, str, "the name of a keyword")
        return self._now().all(name)

    def section(self, name: str) -> list[Keyword]:
        """All keywords of a section, "GRID" or another."""
        check_type(name, str, "the name of a section")
        return self._now().section(name.upper())

    def after(self, step: Step) -> list[Keyword]:
        """The keywords after a report step, up to the next."""
        check_type(step, Step, "one of the steps of the deck")
        return self._now().after_step(step.number - 1)

    def frame(self, name: str, *, section: str | None = None, defaults: bool = True) -> pandas.DataFrame:
        """The records of all keywords of that name as a table: a row a record.

        The columns are the items, then ``date``, ``file`` and ``line`` (and ``table``, from 1, if the records
        are in tables). Numbers are in the units of the deck; choices are categories. What isn't given has its
        default, with ``defaults=False`` none.
        """
        from ._frames import frame

        check_type(section, (str, NoneType), "the name of a section")
        keywords = [k for k in self.all(name) if section is None or k.section == section.upper()]
        if not keywords:
            self[name]  # raises, with names that are near
            raise QuorKeyError(f"{name} is not in section {section}")
        return frame(keywords, flag(defaults, "defaults"))

    @property
    def findings(self) -> list[Finding]:
        """What is wrong in the deck, and notes; at most ``max_findings`` of ``read``."""
        return [Finding(*row) for row in self._now().findings()]

    @property
    def is_clean(self) -> bool:
        """Whether it has no errors and no warnings."""
        return all(finding.severity == "note" for finding in self.findings)

    @property
    def steps(self) -> list[Step]:
        """The report steps, in their order."""
        return [Step(*row[:4]) for row in self._now().steps()]

    @property
    def start(self) -> datetime | None:
        """When the simulation starts; None if the deck doesn't say it."""
        return self._now().start()

    @property
    def sections(self) -> list[str]:
        """The sections that it has, in their order."""
        return self._now().sections()

    @property
    def files(self) -> list[str]:
        """The paths of its files, each once, in the order of reading: the deck itself first."""
        return [row[0] for row in self._now().texts()]

    @property
    def title(self) -> str:
        return str(self._state.summary()[0])

    @property
    def wells(self) -> list[Well]:
        """The wells, in the order in which they are introduced."""
        return [Well(*row) for row in self._state.summary()[2]]

    @property
    def groups(self) -> list[Group]:
        """The groups, those below another after it."""
        return [Group(*row) for row in self._state.summary()[3]]

    @property
    def sizes(self) -> dict[str, dict[str, int]]:
        """The whole numbers of the keywords of RUNSPEC: ``deck.sizes["DIMENS"]["NX"]``."""
        return {name: dict(items) for name, items in self._state.summary()[4].items()}

    @property
    def units(self) -> Units:
        """The units of all measurements, and which system the deck is in."""
        return Units(str(self._state.summary()[1]))

    @property
    def simulator(self) -> str | None:
        """For which it was read; None for any."""
        return self._options[0] or None

    # Changes. No byte but those of the change becomes another one.

    def set(self, what: str | Keyword, value: Any) -> None:
        """Sets a value by its address, or the values of an array.

        ``deck.set("WCONPROD[P1].ORAT@2024-04-01", 900.0)``; None leaves a value to its default.
        ``deck.set("PORO", array)`` replaces all values of the array, in the order of the deck; ``what`` may be
        one of ``deck.all("PORO")`` too. An address that matches none or several raises ``QuorError`` with
        what to write instead.
        """
        check_type(what, (str, Keyword), "an address, or a keyword of the deck")
        is_text = isinstance(value, (str, bytes, Mapping))
        is_array = isinstance(value, Iterable) and not is_text and getattr(value, "shape", None) != ()
        if isinstance(what, Keyword) or is_array:
            self._state.set_array(what, value)
        else:
            self._state.set_value(what, value)

    def add(
        self,
        name: str,
        records: Mapping[str, object] | Sequence[object] | str | None = None,
        *,
        date: Date | None = None,
        section: str | None = None,
    ) -> None:
        """Adds a keyword with its data at the end of a report step, or of a section.

        ``deck.add("WCONPROD", {"WELL": "P1", "CONTROL": "ORAT", "ORAT": 900.0}, date="2024-04-01")``. ``records``
        are a dict for each record, numbers for an array, or a text as a deck has it. ``date`` is the date of a
        report step or of the start; without it the keyword comes at the end of ``section``, or of the first
        section of the deck in which it is valid.
        """
        check_type(name, str, "the name of a keyword")
        check_type(section, (str, NoneType), "the name of a section")
        if date is not None and section and section.upper() != "SCHEDULE":
            raise ValueError(f"a keyword with a date is in SCHEDULE, not in {section}: give a date or a section")
        self._state.add(name, records, None if date is None else date_text(date), section and section.upper())

    def remove(self, what: str | Keyword) -> None:
        """Removes a keyword, or one of its records by the address: ``deck.remove("WCONPROD[P1]@2024-04-01")``."""
        check_type(what, (str, Keyword), "a keyword of the deck, its name, or the address of a record")
        self._state.remove(what)

    def format(self, normalize: bool = False) -> Deck:
        """Aligns the columns of all files, and keeps data and comments. ``normalize`` writes each value in one
        form. Returns the deck itself."""
        self._state.format(flag(normalize, "normalize"))
        return self

    def undo(self, count: int = 1) -> None:
        """Takes the last changes back, byte for byte: one for each call of ``set``, ``add``, ``remove`` and
        ``format``. Raises ``QuorError`` if there are no more."""
        check_type(count, SupportsIndex, "a whole number of changes")
        if count < 0:
            raise ValueError(f"count is {count}, expected 0 or more")
        for _ in range(count):
            self._state.undo()

    # Texts.

    def text(self, file: str | None = None) -> str:
        """The deck as one text, included files in place of their inclusions; or the text of one of its ``files``
        as it is. Bytes that are no UTF-8 are kept as Python keeps them in paths."""
        return self._bytes(file).decode("utf-8", "surrogateescape")

    def write(self, path: str | os.PathLike[str]) -> None:
        """Writes ``text()``: the whole deck as one file."""
        _files.replace(Path(os.fsdecode(path)), self._bytes(None))

    def write_tree(self, folder: str | os.PathLike[str]) -> Path:
        """Writes all files into a folder as they are below the folder of the deck, each where the inclusions expect
        it. Returns the path of the deck there. Raises ``QuorError``, and writes nothing, if a file is elsewhere."""
        return _files.write_tree(self._now().texts(), Path(os.fsdecode(folder)))

    def copy(self) -> Deck:
        """Another deck that is changed for itself. It shares the data, so that it costs nothing."""
        return Deck(self._now(), self._options)

    __copy__ = copy

    def __deepcopy__(self, memo: object) -> Deck:
        return self.copy()

    def __reduce__(self) -> tuple[Any, ...]:
        texts = [(os.fsencode(name), data) for name, data, *_ in self._now().texts()]
        return _from_texts, (texts, self._options)

    def __repr__(self) -> str:
        counts = f"{len(self)} keywords, {len(self.steps)} report steps, {len(self.findings)} findings"
        return f"<Deck {self.files[0]}: {counts}>"

    def _repr_html_(self) -> str:
        from ._html import deck

        facts = [
            ("title", self.title),
            ("sections", ", ".join(self.sections)),
            ("keywords", len(self)),
            ("files", len(self.files)),
            ("start", self.start or ""),
            ("report steps", len(self.steps)),
            ("wells", len(self.wells)),
            ("units", self.units.system),
        ]
        return deck(self.files[0], facts, self.findings)

    def _now(self) -> _core.Deck:
        return self._state.now()

    def _bytes(self, file: str | None) -> bytes:
        core = self._now()
        if file is None:
            return core.whole_text()
        for name, data, *_ in core.texts():
            if name == file:
                return data
        raise QuorKeyError(f"the deck has no file '{file}'")


def _from_texts(texts: list[tuple[bytes, bytes]], options: Options) -> Deck:
    return Deck(_core.read_texts(texts, *options), options)

"""A deck and what can be asked of it and changed in it."""

from __future__ import annotations

import os
from codecs import BOM_UTF8
from collections.abc import Iterator, Mapping, Sequence
from datetime import date, datetime
from pathlib import Path
from typing import TYPE_CHECKING, Any, Union

from . import _core, _files
from ._core import Keyword
from ._errors import QuorError, QuorKeyError
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
        self._core = core
        self._origin = core  # of which keywords may still be used: its text is that of `_core`
        self._options = options
        self._values: list[tuple[str, object]] = []  # set since `_core` was read
        self._editor: _core.Editor | None = None  # with these values; None: they are still to be set
        self._history: list[tuple[list[_core.Edit], list[tuple[str, object]]]] = []  # what reverts `_core`, and its values
        self._isEditable = False
        self._summary: tuple[Any, ...] | None = None

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
        return self._now().get(name)

    def all(self, name: str) -> list[Keyword]:
        """All keywords of that name, in the order of reading; empty if there are none."""
        return self._now().all(name)

    def section(self, name: str) -> list[Keyword]:
        """All keywords of a section, "GRID" or another."""
        return self._now().section(name)

    def after(self, step: Step) -> list[Keyword]:
        """The keywords after a report step, up to the next."""
        return self._now().after_step(step.number - 1)

    def frame(self, name: str, *, section: str | None = None, defaults: bool = True) -> pandas.DataFrame:
        """The records of all keywords of that name as a table: a row a record.

        The columns are the items, then ``date``, ``file`` and ``line`` (and ``table``, from 1, if the records
        are in tables). Numbers are in the units of the deck; choices are categories. What isn't given has its
        default, with ``defaults=False`` none.
        """
        from ._frames import frame

        keywords = [k for k in self.all(name) if section is None or k.section == section]
        if not keywords:
            self[name]  # raises, with names that are near
            raise QuorKeyError(f"{name} is not in section {section}")
        return frame(keywords, defaults)

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
        return str(self._summarized()[0])

    @property
    def wells(self) -> list[Well]:
        """The wells, in the order in which they are introduced."""
        return [Well(*row) for row in self._summarized()[2]]

    @property
    def groups(self) -> list[Group]:
        """The groups, those below another after it."""
        return [Group(*row) for row in self._summarized()[3]]

    @property
    def sizes(self) -> dict[str, dict[str, int]]:
        """The whole numbers of the keywords of RUNSPEC: ``deck.sizes["DIMENS"]["NX"]``."""
        return {name: dict(items) for name, items in self._summarized()[4].items()}

    @property
    def units(self) -> Units:
        """The units of all measurements, and which system the deck is in."""
        return Units(str(self._summarized()[1]))

    @property
    def simulator(self) -> str | None:
        """For which it was read; None for any."""
        return self._options[0] or None

    # Changes. No byte but those of the change becomes another one.

    def set(self, what: str | Keyword, value: object) -> None:
        """Sets a value by its address, or the values of an array.

        ``deck.set("WCONPROD[P1].ORAT@2024-04-01", 900.0)``; None leaves a value to its default.
        ``deck.set("PORO", array)`` replaces all values of the array, in the order of the deck; ``what`` may be
        one of ``deck.all("PORO")`` too. An address that matches none or several raises ``QuorError`` with
        what to write instead.
        """
        is_array = isinstance(value, (list, tuple)) or bool(getattr(value, "shape", False))
        if isinstance(what, Keyword) or is_array:
            import numpy as np

            editor = self._fresh()
            editor.set_array(self._one(what), np.asarray(value))
            self._apply(editor)
            return
        editor = self._pending()
        changes_addresses = editor.set_value(what, value)
        self._values.append((what, value))
        if changes_addresses:
            self._now()

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
        editor = self._fresh()
        where = section or ("SCHEDULE" if date is not None else _core.section_for(self._core, name))
        if isinstance(records, str):
            text: str | bytes = f"{name}\n{records}\n"
        else:
            text = _core.keyword_text(self._core, name, where, records)
        if date is None:
            editor.add_at_end(where, text)
        else:
            self._add_at(editor, _text_of(date), text)
        self._apply(editor)

    def remove(self, what: str | Keyword) -> None:
        """Removes a keyword, or one of its records by the address: ``deck.remove("WCONPROD[P1]@2024-04-01")``."""
        editor = self._fresh()
        if isinstance(what, Keyword) or not any(mark in what for mark in "[.@#"):
            editor.remove_keyword(self._one(what))
        else:
            keyword, index = _core.find_record(self._core, what)
            if len(keyword.records) == 1 and "[" not in what:
                editor.remove_keyword(keyword)
            else:
                editor.remove_record(keyword, index)
        self._apply(editor)

    def format(self, normalize: bool = False) -> Deck:
        """Aligns the columns of all files, and keeps data and comments. ``normalize`` writes each value in one
        form. Returns the deck itself."""
        core = self._now()
        before = {name: data for name, data, *_ in core.texts()}
        self._replace(_core.reread(core, _core.formatted(core, normalize)))
        after = {name: len(data.removeprefix(BOM_UTF8)) for name, data, *_ in self._core.texts()}
        whole = [(os.fsencode(name), 0, after[name], data.removeprefix(BOM_UTF8)) for name, data in before.items()]
        self._history.append((whole, []))
        return self

    def undo(self, count: int = 1) -> None:
        """Takes the last changes back, byte for byte: one for each call of ``set``, ``add``, ``remove`` and
        ``format``. Raises ``QuorError`` if there are no more."""
        for _ in range(count):
            if not self._values:
                if not self._history:
                    raise QuorError("the deck has no change to undo")
                reverse, values = self._history.pop()
                self._replace(_core.apply(self._core, reverse))
                self._values = values
            self._editor = None
            del self._values[-1:]

    # Texts.

    def text(self, file: str | None = None) -> str:
        """The deck as one text, included files in place of their inclusions; or the text of one of its ``files``
        as it is. Bytes that are no UTF-8 are kept as Python keeps them in paths."""
        return self._bytes(file).decode("utf-8", "surrogateescape")

    def write(self, path: str | os.PathLike[str]) -> None:
        """Writes ``text()``: the whole deck as one file."""
        _files.replace(Path(path), self._bytes(None))

    def write_tree(self, folder: str | os.PathLike[str]) -> Path:
        """Writes all files into a folder as they are below the folder of the deck, each where the inclusions expect
        it. Returns the path of the deck there. Raises ``QuorError``, and writes nothing, if a file is elsewhere."""
        return _files.write_tree(self._now().texts(), Path(folder))

    def copy(self) -> Deck:
        """Another deck that is changed for itself. It shares the data, so that it costs nothing."""
        copy = Deck(self._now(), self._options)
        copy._isEditable = self._isEditable
        return copy

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

        return deck(self)

    # How changes are made: an editor collects those of values; all else is read at once.

    def _now(self) -> _core.Deck:
        if self._values:
            self._apply(self._pending())
        return self._core

    def _pending(self) -> _core.Editor:
        if self._editor is None:
            self._make_editable()
            self._editor = _core.Editor(self._core)
            for address, value in self._values:
                self._editor.set_value(address, value)
        return self._editor

    def _fresh(self) -> _core.Editor:
        self._now()
        self._make_editable()
        return _core.Editor(self._core)

    def _make_editable(self) -> None:
        if not self._isEditable:
            self._origin = self._core
            self._core = _core.reread(self._core, [])
            self._isEditable = True

    def _apply(self, editor: _core.Editor) -> None:
        reverse, values = editor.reverse(), self._values
        self._replace(editor.read())
        self._history.append((reverse, values))

    def _replace(self, core: _core.Deck) -> None:
        self._core = self._origin = core
        self._isEditable = True
        self._summary = None
        self._editor = None
        self._values = []

    def _one(self, what: str | Keyword) -> Keyword:
        """The one keyword that is meant, in the deck as it is now."""
        if isinstance(what, Keyword):
            return self._core.at(what.index) if what._deck is self._origin else what
        found = self._core.all(what)
        if len(found) > 1:
            lines = ", ".join(f"{k.file}:{k.line}" for k in found[:3])
            raise QuorError(f"the deck has {len(found)} keywords {what} ({lines}); choose one of deck.all('{what}')")
        return self._core.get(what)

    def _add_at(self, editor: _core.Editor, when: str, text: str | bytes) -> None:
        steps = self._core.steps()
        dates = [_text_of(row[1]) for row in steps if row[1] is not None]
        for index in reversed(range(len(steps))):
            if steps[index][1] is not None and _text_of(steps[index][1]) == when:
                editor.add_in_step(index, text)
                return
        start = self._core.start()
        if start is None or _text_of(start) != when:
            known = ", ".join(dates[:3]) + (", ..." if len(dates) > 3 else "")
            raise QuorError(f"the deck has no report step at {when} (it has {known or 'none'})")
        schedule = self._core.section("SCHEDULE")
        first = steps[0][4] if steps else schedule[-1].index + 1
        editor.add_after([k for k in schedule if k.index < first][-1], text)

    def _bytes(self, file: str | None) -> bytes:
        core = self._now()
        if file is None:
            return core.whole_text()
        for name, data, *_ in core.texts():
            if name == file:
                return data
        raise QuorKeyError(f"the deck has no file '{file}'")

    def _summarized(self) -> tuple[Any, ...]:
        core = self._now()
        if self._summary is None:
            self._summary = _core.summary(core)
        return self._summary


def _from_texts(texts: list[tuple[bytes, bytes]], options: Options) -> Deck:
    return Deck(_core.read_texts(texts, *options), options)


def _text_of(when: Date) -> str:
    """As addresses have it: the time of day only if it isn't midnight."""
    if isinstance(when, str):
        return when.strip()
    return str(when).removesuffix(" 00:00:00")

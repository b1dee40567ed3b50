"""How a deck is changed.

A deck as it was read never changes; a change makes another one out of the changed texts. Values are collected in an
editor, and the deck is read again when something is asked of it; all other changes are read at once.
"""

from __future__ import annotations

import os
from codecs import BOM_UTF8
from typing import Any

from . import _core
from ._core import Keyword
from ._errors import QuorError


class State:
    """The deck as it is now, the changes that are to come, and what reverts those that were made."""

    def __init__(self, core: _core.Deck) -> None:
        self._core = core
        self._origin = core  # of which keywords may still be used: its text is that of `_core`
        self._values: list[tuple[str, object]] = []  # set since `_core` was read
        self._editor: _core.Editor | None = None  # with these values; None: they are still to be set
        self._history: list[tuple[list[_core.Edit], list[tuple[str, object]]]] = []  # what reverts, and which values
        self._summary: tuple[Any, ...] | None = None

    def now(self) -> _core.Deck:
        if self._values:
            self._apply(self._pending())
        return self._core

    def summary(self) -> tuple[Any, ...]:
        core = self.now()
        if self._summary is None:
            self._summary = _core.summary(core)
        return self._summary

    def set_value(self, address: str, value: Any) -> None:
        if hasattr(value, "dtype"):
            value = float(str(value)) if value.dtype.kind == "f" else value.item()
        changes_addresses = self._pending().set_value(_bytes(address), value)
        self._values.append((address, value))
        if changes_addresses:
            self.now()

    def set_array(self, what: str | Keyword, values: Any) -> None:
        import numpy as np

        array = np.asarray(values if hasattr(values, "__len__") else list(values))
        if array.dtype in (np.float16, np.float32):
            array = array.astype(str).astype(float)  # in the digits that they have
        editor = self._fresh()
        editor.set_array(self._one(what), array)
        self._apply(editor)

    def add(self, name: str, records: object, when: str | None, section: str | None) -> None:
        editor = self._fresh()
        where = section or ("SCHEDULE" if when is not None else _core.section_for(self._core, name))
        if isinstance(records, str):
            text = _bytes(f"{name}\n{records}\n")
        else:
            text = _core.keyword_text(self._core, name, where, records)
        if when is None:
            editor.add_at_end(where, text)
        else:
            self._add_at(editor, when, text)
        self._apply(editor)

    def remove(self, what: str | Keyword) -> None:
        editor = self._fresh()
        if isinstance(what, Keyword) or not any(mark in what for mark in "[.@#"):
            editor.remove_keyword(self._one(what))
        else:
            keyword, index = _core.find_record(self._core, _bytes(what))
            if index is None:
                editor.remove_keyword(keyword)
            else:
                editor.remove_record(keyword, index)
        self._apply(editor)

    def format(self, normalize: bool) -> None:
        core = self.now()
        before = [(os.fsencode(name), data.removeprefix(BOM_UTF8)) for name, data, *_ in core.texts()]
        self._replace(_core.reread(core, _core.formatted(core, normalize)))
        sizes = [len(data.removeprefix(BOM_UTF8)) for _, data, *_ in self._core.texts()]
        self._history.append(([(name, 0, size, data) for (name, data), size in zip(before, sizes)], []))

    def undo(self) -> None:
        if not self._values:
            if not self._history:
                raise QuorError("the deck has no change to undo")
            reverse, values = self._history.pop()
            self._replace(_core.apply(self._core, reverse))
            self._values = values
        self._editor = None
        del self._values[-1:]

    def _pending(self) -> _core.Editor:
        if self._editor is None:
            self._make_editable()
            self._editor = _core.Editor(self._core)
            for address, value in self._values:
                self._editor.set_value(_bytes(address), value)
        return self._editor

    def _fresh(self) -> _core.Editor:
        self.now()
        self._make_editable()
        return _core.Editor(self._core)

    def _make_editable(self) -> None:
        if not self._core.is_editable():
            self._origin = self._core
            self._core = _core.reread(self._core, [])

    def _apply(self, editor: _core.Editor) -> None:
        reverse, values = editor.reverse(), self._values
        self._replace(editor.read())
        self._history.append((reverse, values))

    def _replace(self, core: _core.Deck) -> None:
        self._core = self._origin = core
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

    def _add_at(self, editor: _core.Editor, when: str, text: bytes) -> None:
        steps = self._core.steps()
        dates = [date_text(row[1]) for row in steps]
        if when in dates:
            editor.add_in_step(len(dates) - 1 - dates[::-1].index(when), text)
            return
        start = self._core.start()
        if start is None or date_text(start) != when:
            known = ", ".join(dates[:3]) + (", ..." if len(dates) > 3 else "")
            raise QuorError(f"the deck has no report step at {when} (it has {known or 'none'})")
        schedule = self._core.section("SCHEDULE")
        first = steps[0][4] if steps else schedule[-1].index + 1
        editor.add_after([k for k in schedule if k.index < first][-1], text)


def _bytes(text: str) -> bytes:
    """As the deck has them: a name may have bytes that are no UTF-8."""
    return text.encode("utf-8", "surrogateescape")


def date_text(date: object) -> str:
    """As addresses have it: with the time of day only if it isn't midnight."""
    return str(date).strip().removesuffix(" 00:00:00")

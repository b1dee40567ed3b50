"""Values without a deck: small, comparable, and cheap to send to another process."""

from __future__ import annotations

from dataclasses import dataclass, field
from datetime import datetime
from typing import NamedTuple


@dataclass(frozen=True)
class Finding:
    """One thing that is wrong, or worth a note. Lines and columns count from 1, columns in bytes."""

    code: str  #: stable, for programs to use
    severity: str  #: "error", "warning" or "note"
    message: str  #: one sentence
    hint: str  #: how to fix it; may be empty
    file: str
    line: int
    column: int
    end_column: int  #: after the last byte that the finding is about
    excerpt: str = field(default="", repr=False)  #: the part of the line around it
    included_from: tuple[tuple[str, int], ...] = field(default=(), repr=False)  #: innermost first
    more: int = field(default=0, repr=False)  #: how many others are like it

    def __str__(self) -> str:
        hint = f"; {self.hint}" if self.hint else ""
        return (
            f"{self.file}:{self.line}:{self.column}: {self.severity}: {self.message}{hint} [{self.code}]"
        )


@dataclass(frozen=True)
class Step:
    """A report that the deck asks for."""

    number: int  #: from 1
    date: datetime | None  #: None before the first date of the deck
    file: str
    line: int


@dataclass(frozen=True)
class Well:
    """A well that the deck introduces."""

    name: str
    group: str  #: the last one that it was put into; may be empty
    control: str  #: the last one; may be empty
    completions: int  #: cells in which it was ever completed
    since: datetime | None  #: when it was introduced


@dataclass(frozen=True)
class Group:
    """A group of wells, or of other groups."""

    name: str
    parent: str  #: empty at the top
    depth: int  #: below the top
    wells: int  #: its own


@dataclass(frozen=True)
class Change:
    """One difference between two decks, seen from the first."""

    kind: str  #: "changed", "added" or "removed"
    section: str
    step: str  #: the date, or the number of the report; empty outside SCHEDULE and before the first
    keyword: str  #: empty: the report step itself
    identity: str  #: such as the well; may be empty
    item: str  #: the path to it; empty unless it is changed
    before: str
    after: str
    differing: int  #: of an array: how many elements differ
    before_at: tuple[str | None, int | None]  #: file and line in the first deck
    after_at: tuple[str | None, int | None]  #: file and line in the second deck

    def __str__(self) -> str:
        where = " ".join(part for part in (self.section, self.step) if part)
        what = f"{self.keyword}[{self.identity}]" if self.identity else self.keyword or "report step"
        if self.kind != "changed":
            return f"{where}: {what} {self.kind}"
        return f"{where}: {what} {self.item}: {self.before} -> {self.after}"


@dataclass(frozen=True)
class Loss:
    """Something that another simulator doesn't accept, or reads in another way."""

    kind: str  #: "keyword-not-valid", "item-not-valid", "choice-not-valid", "no-default", "other-default", ...
    keyword: str
    section: str
    item: str  #: may be empty
    detail: str  #: of a choice its word, of a default "this -> that"
    count: int  #: how often the deck has it
    file: str  #: of the first
    line: int
    locations: tuple[tuple[str, int], ...] = field(default=(), repr=False)  #: file and line of all


class Quantity(NamedTuple):
    """A value with its unit; the unit is None for a plain number."""

    value: float | None
    unit: str | None

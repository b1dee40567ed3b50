"""What a notebook shows of decks and keywords."""

from __future__ import annotations

from collections.abc import Iterable, Sequence
from html import escape
from typing import Any

from ._core import Keyword, Record
from ._errors import QuorError
from ._values import Finding

MOST_ROWS = 20


def deck(name: str, facts: Sequence[tuple[str, object]], findings: Sequence[Finding]) -> str:
    """A deck in a few lines, and its first findings."""
    head = f"<p><b>{escape(name)}</b></p>{_table([], [*facts, ('findings', len(findings))])}"
    if not findings:
        return head
    rows = ((f"{f.file}:{f.line}", f.severity, f.message, f.code) for f in findings)
    return head + _table(["where", "severity", "message", "code"], rows)


def keyword(shown: Keyword) -> str:
    """Its records as a table, or its values in short."""
    where = shown.date.date().isoformat() + ", " if shown.date else ""
    head = f"<p><b>{escape(shown.name)}</b> {where}{escape(shown.file)}:{shown.line}</p>"
    try:
        value = shown.value
    except QuorError as error:  # such as a value that isn't known
        return f"{head}<pre>{escape(error.message)}</pre>"
    if value is None:
        return head
    if hasattr(value, "dtype"):
        unit = f" {escape(shown.unit)}" if shown.unit else ""
        return f"{head}<pre>{escape(repr(value))}{unit}</pre>"
    if isinstance(value, (dict, str)) or (isinstance(value, list) and not (value and _records(shown))):
        return f"{head}<pre>{escape(str(value))}</pre>"
    records = _records(shown)
    names = records[0].keys() if records else []
    return head + _table(names, ([_cell(record[name]) for name in names] for record in records))


def _records(shown: Keyword) -> list[Record]:
    """Empty for lists of plain values."""
    try:
        return shown.records
    except QuorError:
        return []


def _cell(value: Any) -> object:
    if value is None:
        return ""
    return f"{len(value)} rows" if isinstance(value, list) else value


def _table(names: Sequence[str], rows: Iterable[Sequence[object]]) -> str:
    body = []
    for count, row in enumerate(rows):
        if count == MOST_ROWS:
            body.append("<tr><td>...</td></tr>")
            break
        body.append("<tr>" + "".join(f"<td>{escape(str(cell))}</td>" for cell in row) + "</tr>")
    head = "".join(f"<th>{escape(name)}</th>" for name in names)
    return f"<table><thead><tr>{head}</tr></thead><tbody>{''.join(body)}</tbody></table>"

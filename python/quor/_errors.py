"""What the package raises."""

from __future__ import annotations

from typing import Any


class QuorError(Exception):
    """A deck can't be read, changed or written, or it doesn't have what was asked for.

    ``file``, ``line`` and ``column`` say where, each None if there is no such place; lines and columns count
    from 1.
    """

    def __init__(
        self, message: str, file: str | None = None, line: int | None = None, column: int | None = None
    ) -> None:
        super().__init__(message)
        self.message = message
        self.file = file
        self.line = line
        self.column = column

    def __str__(self) -> str:
        if self.file is None or self.line is None:
            return self.message
        return f"{self.file}:{self.line}: {self.message}"

    def __reduce__(self) -> tuple[type[QuorError], tuple[Any, ...]]:
        return type(self), (self.message, self.file, self.line, self.column)


def check_type(value: object, kinds: type | tuple[type, ...], expected: str) -> None:
    """Raises ``TypeError`` in the words of the caller, where the extension would show its own functions."""
    if not isinstance(value, kinds):
        raise TypeError(f"expected {expected}, not {type(value).__name__}")


def flag(value: Any, name: str) -> bool:
    """A bool of Python or of numpy, whose own is no ``bool``."""
    plain = value.item() if getattr(value, "shape", None) == () else value
    check_type(plain, bool, f"True or False as {name}")
    return bool(plain)


class QuorKeyError(QuorError, KeyError):
    """A keyword, an item or a name that isn't there; the message has names that are near."""

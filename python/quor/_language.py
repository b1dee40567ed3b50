"""The language of decks: its keywords and their items."""

from __future__ import annotations

from collections.abc import Iterator
from functools import lru_cache

from . import _core
from ._core import KeywordInfo


class Language:
    """All keywords by name. ``language["WCONPROD"].items[3].name``, ``.type``, ``.default("Carrow")``."""

    def __init__(self) -> None:
        _core.load_language()
        self._keywords = {info.name: info for info in _core.all_keywords()}

    def __getitem__(self, name: str) -> KeywordInfo:
        """Raises ``KeyError`` with a name that is near. Names with a wildcard are found by any that they stand for."""
        return self._keywords.get(name.upper()) or _core.look_up(name.upper())

    def __contains__(self, name: object) -> bool:
        return isinstance(name, str) and name.upper() in self._keywords

    def __iter__(self) -> Iterator[str]:
        return iter(sorted(self._keywords))

    def __len__(self) -> int:
        return len(self._keywords)

    def search(self, text: str) -> list[KeywordInfo]:
        """Keywords that have all words of the text in their name or description, without regard to case."""
        words = text.lower().split()
        return [
            self._keywords[name]
            for name in self
            if all(word in f"{name} {self._keywords[name].description}".lower() for word in words)
        ]

    @property
    def simulators(self) -> list[str]:
        return _core.simulators()

    def __repr__(self) -> str:
        return f"<Language of {len(self)} keywords>"


@lru_cache(maxsize=1)
def language() -> Language:
    """The language, loaded once for a process."""
    return Language()

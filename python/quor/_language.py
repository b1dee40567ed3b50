"""The language of decks: its keywords and their items."""

from __future__ import annotations

from collections.abc import Iterator
from functools import lru_cache

from . import _core
from ._core import KeywordInfo
from ._errors import check_type


class Language:
    """All keywords by name. ``language["WCONPROD"].items[3].name``, ``.type``, ``.default("Carrow")``."""

    def __init__(self) -> None:
        _core.load_language()
        self._keywords: dict[str, list[KeywordInfo]] = {}
        for info in _core.all_keywords():
            self._keywords.setdefault(info.name, []).append(info)

    def __getitem__(self, name: str) -> KeywordInfo:
        """The first of that name, as ``all`` has them. Raises ``KeyError`` with a name that is near."""
        return self.all(name)[0]

    def all(self, name: str) -> list[KeywordInfo]:
        """All keywords of that name: some are others in another of the ``sections``. Names with a wildcard are
        found by any that they stand for. Raises ``KeyError`` with a name that is near."""
        check_type(name, str, "the name of a keyword")
        return list(self._keywords.get(name.upper(), ())) or [_core.look_up(name.upper())]

    def __contains__(self, name: object) -> bool:
        return isinstance(name, str) and name.upper() in self._keywords

    def __iter__(self) -> Iterator[str]:
        return iter(sorted(self._keywords))

    def __len__(self) -> int:
        return len(self._keywords)

    def search(self, text: str) -> list[KeywordInfo]:
        """Keywords that have all words of the text in their name or description, without regard to case."""
        check_type(text, str, "words to search for")
        words = text.lower().split()
        return [
            info
            for name in self
            for info in self._keywords[name]
            if all(word in f"{name} {info.description}".lower() for word in words)
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

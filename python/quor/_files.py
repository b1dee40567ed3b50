"""Files as they are saved: whole, or not at all."""

from __future__ import annotations

import os
import tempfile
from collections.abc import Sequence
from pathlib import Path

from ._errors import QuorError


def replace(path: Path, data: bytes) -> None:
    """Writes a file in one step: others see the old bytes or the new ones. A link stays one, and the permissions
    of an existing file are kept."""
    target = Path(os.path.realpath(path))
    try:
        handle, name = tempfile.mkstemp(prefix=f".{target.name}.", dir=target.parent)
        try:
            with os.fdopen(handle, "wb") as file:
                file.write(data)
            os.chmod(name, target.stat().st_mode & 0o7777 if target.exists() else 0o666 & ~_umask())
            os.replace(name, target)
        except BaseException:
            os.unlink(name)
            raise
    except OSError as error:
        raise QuorError(f"can't write '{path}': {error.strerror}", str(path)) from error


def write_tree(texts: Sequence[tuple[str, bytes, str, int]], folder: Path) -> Path:
    """Writes files, given as path, bytes and the name by which they are included. The deck is the first."""
    root = os.path.dirname(os.path.abspath(texts[0][0]))
    targets: list[tuple[Path, bytes]] = []
    for name, data, included_as, _ in texts:
        if os.path.isabs(included_as):
            if _is_changed(name, data):
                raise QuorError(f"'{name}' is changed, but included by its absolute path: write it to that place", name)
            continue  # the copy of the deck includes it too
        inner = os.path.relpath(os.path.abspath(name), root)
        if inner.split(os.sep)[0] == os.pardir:
            raise QuorError(f"'{name}' is outside the folder of the deck, and would be missing beside a copy", name)
        targets.append((folder / inner, data))
    for path, data in targets:
        try:
            path.parent.mkdir(parents=True, exist_ok=True)
        except OSError as error:
            raise QuorError(f"can't make the folder '{path.parent}': {error.strerror}", str(path)) from error
        replace(path, data)
    return targets[0][0]


def _is_changed(name: str, data: bytes) -> bool:
    try:
        return Path(name).read_bytes() != data
    except OSError:
        return True


def _umask() -> int:
    mask = os.umask(0)
    os.umask(mask)
    return mask

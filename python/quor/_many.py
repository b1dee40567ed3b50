"""Many decks at once: on threads, on processes, or on any other executor, such as that of a cluster.

What is sent to a worker is a path and options, and what comes back are values; decks stay where they are read.
"""

from __future__ import annotations

import os
from collections import deque
from collections.abc import Callable, Iterable, Iterator, Mapping
from concurrent.futures import BrokenExecutor, Executor, Future, ProcessPoolExecutor, ThreadPoolExecutor
from functools import partial
from operator import index
from types import NoneType
from typing import Any, SupportsIndex, TypeVar, Union

from ._deck import Deck
from ._errors import QuorError, check_type
from ._reading import read, with_variables
from ._values import Finding

Path = Union[str, "os.PathLike[str]"]
Result = TypeVar("Result")


def check_many(
    paths: Iterable[Path], jobs: int | None = None, executor: Executor | None = None, **options: Any
) -> Iterator[tuple[Path, list[Finding]]]:
    """Checks many decks, and yields each path with its findings, in the order of the paths.

    Without an executor it runs on ``jobs`` threads (as many as the machine has processors): they share one load
    of the language; a process of another executor loads it once. ``options`` are those of ``read``. A deck that
    can't be read has one finding, ``include-missing``, without a line. An executor that breaks, since a worker
    was killed, raises its ``BrokenExecutor`` after the results before it.
    """
    _check_paths(paths)
    _check_executor(jobs, executor)
    return _in_order(_findings, paths, jobs, executor, with_variables(options))


def map_decks(
    function: Callable[[Deck], Result],
    paths: Iterable[Path],
    executor: Executor | None = None,
    jobs: int | None = None,
    **options: Any,
) -> Iterator[tuple[Path, Result]]:
    """Reads each deck where the executor runs it, calls the function with it, and yields each path with the
    result, in the order of the paths. What the function raises is raised here. It must return values, no deck."""
    _check_paths(paths)
    if not callable(function):
        raise TypeError(f"expected a function of a deck, not {type(function).__name__}")
    if executor is not None and not isinstance(executor, ThreadPoolExecutor) and _holds_deck(function, executor):
        raise TypeError("the function holds a deck, which would be sent: let it read the deck, or give it values")
    _check_executor(jobs, executor)
    return _in_order(_Call(function), paths, jobs, executor, with_variables(options))


class _Call:
    """To be sent: a function of a module, with the function of the user."""

    def __init__(self, function: Callable[[Deck], Any]) -> None:
        self._function = function

    def __call__(self, path: Path, options: Mapping[str, Any]) -> Any:
        result = self._function(read(path, **options))
        if _has_deck(result):
            raise TypeError("the function returned a deck: return what is needed of it, or its text()")
        return result


def _has_deck(value: object) -> bool:
    if isinstance(value, Mapping):
        return _has_deck(list(value.values()))
    return isinstance(value, Deck) or isinstance(value, (list, tuple, set, frozenset)) and any(map(_has_deck, value))


def _holds_deck(function: Any, executor: Executor) -> bool:
    """Whether a deck would be sent with the function: in its object, its arguments, or the names around it."""
    if isinstance(function, partial):
        return _has_deck([function.args, function.keywords]) or _holds_deck(function.func, executor)
    cells = [cell.cell_contents for cell in getattr(function, "__closure__", None) or ()]
    if getattr(function, "__module__", None) == "__main__" and not isinstance(executor, ProcessPoolExecutor):
        # A cluster sends functions of a script or notebook whole, with the globals that they use.
        names = getattr(getattr(function, "__code__", None), "co_names", ())
        cells += [function.__globals__[name] for name in names if name in function.__globals__]
    owner = getattr(getattr(function, "__self__", None), "__dict__", {})
    defaults = getattr(function, "__defaults__", None), getattr(function, "__kwdefaults__", None)
    return _has_deck([cells, getattr(function, "__self__", None), dict(owner), defaults])


def _check_paths(paths: object) -> None:
    """A path by itself would be taken for its letters."""
    if isinstance(paths, (str, bytes, os.PathLike)):
        raise TypeError(f"expected the paths of decks, not a single one: write [{os.fspath(paths)!r}]")
    check_type(paths, Iterable, "the paths of decks")


def _check_executor(jobs: object, executor: object) -> None:
    if executor is not None and not callable(getattr(executor, "submit", None)):
        raise TypeError(f"expected an executor, as concurrent.futures has them, not {type(executor).__name__}")
    check_type(jobs, (SupportsIndex, NoneType), "a number of jobs")
    if isinstance(jobs, SupportsIndex) and index(jobs) < 0:
        raise ValueError(f"jobs is {jobs}, expected 0 or more")


def _findings(path: Path, options: Mapping[str, Any]) -> list[Finding]:
    try:
        return read(path, **options).findings
    except QuorError as error:
        return [Finding("include-missing", "error", error.message, "", os.fspath(path), 0, 0, 0)]


def _in_order(
    call: Callable[[Path, Mapping[str, Any]], Result],
    paths: Iterable[Path],
    jobs: int | None,
    executor: Executor | None,
    options: Mapping[str, Any],
) -> Iterator[tuple[Path, Result]]:
    """Keeps some calls for each worker on their way, so that the results of a million decks don't wait."""
    if executor is not None:
        yield from _through(executor, call, paths, 8 * jobs if jobs else 1000, options)
        return
    jobs = jobs or os.cpu_count() or 1
    with ThreadPoolExecutor(jobs, "quor") as threads:
        yield from _through(threads, call, paths, 2 * jobs, options)


class _Marked:
    """To be sent: a call whose own exceptions can be told from those of the executor."""

    def __init__(self, call: Callable[[Path, Mapping[str, Any]], Any]) -> None:
        self._call = call

    def __call__(self, path: Path, options: Mapping[str, Any]) -> Any:
        try:
            return self._call(path, options)
        except Exception as error:
            error.__dict__["_is_of_call"] = True
            raise


def _result_of(path: Path, future: Future[Result], again: Callable[[], Future[Result]]) -> Result:
    """What a cluster loses with a worker is asked for again: it may report the loss, as an error of any kind. An
    executor that is broken accepts nothing more."""
    for _ in range(2):
        try:
            return future.result()
        except BrokenExecutor as error:
            error.add_note(f"'{os.fspath(path)}' is the first deck without a result: it, or one after it, ended a worker")
            raise
        except Exception as error:
            if getattr(error, "_is_of_call", False):
                raise
            future = again()
    return future.result()


def _through(
    executor: Executor,
    call: Callable[[Path, Mapping[str, Any]], Result],
    paths: Iterable[Path],
    ahead: int,
    options: Mapping[str, Any],
) -> Iterator[tuple[Path, Result]]:
    waiting: deque[tuple[Path, Future[Result]]] = deque()
    marked = _Marked(call)

    def first() -> tuple[Path, Result]:
        path, future = waiting.popleft()
        return path, _result_of(path, future, lambda: executor.submit(marked, path, options))

    def submit(path: Path) -> Future[Result]:
        try:
            return executor.submit(marked, path, options)
        except BrokenExecutor as error:  # after the results that it has
            future: Future[Result] = Future()
            future.set_exception(error)
            return future

    try:
        for path in paths:
            waiting.append((path, submit(path)))
            if len(waiting) > ahead:
                yield first()
        while waiting:
            yield first()
    finally:
        for _, future in waiting:
            future.cancel()

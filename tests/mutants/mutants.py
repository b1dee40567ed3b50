#!/usr/bin/env python3
"""Makes small faults in the sources, one at a time, and shows which of them no test finds.

A fault is a negated condition, a boundary off by one, a dropped statement, a swapped operator, constant, enumerator
or pair of arguments: see places.py. For each, the suites of tests that run its line are run, the quickest first.
Faults that don't compile count for nothing. A run that is ended (Ctrl-C) prints what it has found, and goes on where
it stopped when it is run again.
"""

import argparse
import collections
import hashlib
import itertools
import json
import pathlib
import random
import signal
import sys
import threading
import time

from places import KINDS, enumerations, places
from trees import Tree

LEAST_OF_A_FLOOR = 20


def key_of(place, text):
    """The place by its line of code, which stays when lines above it come and go; `#2` is the second such line."""
    start, end = text.rfind("\n", 0, place.start) + 1, text.find("\n", place.start)
    before = text[start:end].strip()
    after = text[start : place.start] + place.after + (text[place.end : end] if place.end < end else "")
    earlier = sum(line.strip() == before for line in text[:start].splitlines())
    return place.path + (f" #{earlier + 1}" if earlier else ""), before, after.split("\n")[0].strip()


def candidates(source, seed):
    """Places by floor and kind, and the texts of their sources.

    The order is of the seed and of each place: a change of the sources leaves the others in the sample.
    """
    files = sorted((source / "quor").rglob("*.cpp"))
    texts = {str(f.relative_to(source)): f.read_text() for f in files}
    enums = enumerations([*texts.values(), *(f.read_text() for f in sorted((source / "quor").rglob("*.h")))])
    found = collections.defaultdict(list)
    for path, text in texts.items():
        for place in places(path, text, enums):
            found[place.floor(), place.kind].append(place)
    for row in found.values():
        row.sort(key=lambda place: hashlib.sha256(f"{seed} {key_of(place, texts[place.path])}".encode()).digest())
    return found, texts


def slots(texts, count, seed):
    """Floor and kind of each fault that is wanted: by the lines of the floor, each kind as often.

    They are shuffled: those of a run that is ended are a sample of all.
    """
    lines = collections.Counter()
    for path, text in texts.items():
        lines[pathlib.PurePath(path).parts[1]] += text.count("\n")
    wanted = []
    for floor, size in sorted(lines.items()):
        count_of_floor = max(LEAST_OF_A_FLOOR, round(count * size / lines.total()))
        wanted += [(floor, kind) for kind in itertools.islice(itertools.cycle(KINDS), count_of_floor)]
    random.Random(seed).shuffle(wanted)
    return wanted


def explained(path):
    """Faults that no caller can tell from the source as it is: (path, line of code, line after) -> reason."""
    rows = {}
    blocks = [b.splitlines() for b in path.read_text().split("\n\n") if b.strip() and not b.startswith("#")]
    for block in blocks:
        if len(block) < 4 or not block[1].startswith("- ") or not block[2].startswith("+ "):
            raise SystemExit(f"{path}: expected a path, '- LINE OF CODE', '+ LINE AFTER' and a reason, not\n" + "\n".join(block))
        rows[block[0], block[1][2:], block[2][2:]] = " ".join(block[3:])
    return rows


class Run:
    """The faults of a run, those of an earlier one that was ended included."""

    def __init__(self, options):
        self.source = options.source.resolve()
        self.folder = options.folder.resolve()
        self.found, self.texts = candidates(self.source, options.seed)
        self.slots = slots(self.texts, options.places, options.seed)
        self.wanted = sum(min(n, len(self.found[slot])) for slot, n in collections.Counter(self.slots).items())
        self.is_ended = False
        self.explained = explained(pathlib.Path(__file__).with_name("explained.txt"))
        self.results_file = self.folder / "results.jsonl"
        self.results = {}
        self.tests = {}
        self.lock = threading.Lock()
        self.done = []

    def key(self, place):
        return key_of(place, self.texts[place.path])

    def read(self, state=None):
        """Reads what an earlier run has kept; true if it was of this state, or none is given.

        Else a source or a test has changed since: the lines must be measured again, and faults that were not found
        are tried again.
        """
        file = self.folder / "covered.json"
        kept = json.loads(file.read_text()) if file.exists() else {}
        same = state is None or kept.get("state") == state
        if self.results_file.exists():
            for row in map(json.loads, self.results_file.read_text().splitlines()):
                if same or row["by"] is not None:
                    self.results[tuple(row["place"])] = row["by"]
        self.tests = kept.get("tests", {}) if same else {}
        return same

    def cover(self, tree):
        """Which parts of the tests run which lines: measured, or as an earlier run has kept it."""
        state = tree.state()
        if self.read(state):
            return
        for test in tree.tests:
            start = time.monotonic()
            for name, seconds, lines in tree.parts(test):
                self.tests[name] = {"seconds": seconds, "lines": {p: sorted(n) for p, n in lines.items()}}
            print(f"{test}: measured in {time.monotonic() - start:.0f} s", flush=True)
        (self.folder / "covered.json").write_text(json.dumps({"state": state, "tests": self.tests}))

    def tests_of(self, place):
        """The parts of tests that run the line, the quickest first. None: it may be a table or a bound, which is on no
        line that is counted; then those that run the file."""
        of_file = {name: t["lines"][place.path] for name, t in self.tests.items() if place.path in t["lines"]}
        of_line = [name for name, lines in of_file.items() if place.line in lines]
        return sorted((self.tests[name]["seconds"], name) for name in of_line or of_file)

    def is_run(self, place):
        return any(place.line in t["lines"].get(place.path, []) for t in self.tests.values())

    def next(self):
        """The next place of the next slot, or none: (slot, place)."""
        with self.lock:
            while self.slots and not self.is_ended:
                slot = self.slots.pop()
                if self.found[slot]:
                    return slot, self.found[slot].pop()
        return None

    def work(self, tree):
        """Tries one place after the other; without a tree those alone whose results are known."""
        while item := self.next():
            slot, place = item
            key = self.key(place)
            if key in self.results:
                by = self.results[key]
            elif not tree:
                continue
            else:
                by = tree.attempt(place, self.texts[place.path], self.tests_of(place))
            with self.lock:
                if key not in self.results:
                    self.results[key] = by
                    with self.results_file.open("a") as file:
                        print(json.dumps({"place": key, "by": by}), file=file)
                if by is False:
                    self.slots.append(slot)
                    continue
                self.done.append((place, by))
                shown = f"found by {by}" if by else "explained" if self.reason(place) else "NOT FOUND"
                print(f"{len(self.done)} of {self.wanted}  {shown}  {place}", flush=True)

    def try_all(self, jobs):
        self.folder.mkdir(parents=True, exist_ok=True)
        trees = [Tree(self.source, self.folder / f"copy{i}") for i in range(jobs)]
        self.cover(trees[0])
        threads = [threading.Thread(target=self.work, args=[tree]) for tree in trees]
        for number in (signal.SIGINT, signal.SIGTERM):
            signal.signal(number, self.end)
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()

    def end(self, *_):
        print("ending after the faults that are being tried", flush=True)
        self.is_ended = True

    def reason(self, place):
        return self.explained.get(self.key(place))

    def report(self):
        """Prints the share that was found, by kind and floor; the least of the shares."""
        print(f"\n{len(self.done)} of {self.wanted} faults tried")
        least = 100.0
        for title, group in (("kind", lambda p: p.kind), ("floor", lambda p: p.floor()), ("all", lambda p: "all")):
            counts = collections.defaultdict(lambda: [0, 0, 0])
            for place, by in self.done:
                count = counts[group(place)]
                count[0 if by else 1 if self.reason(place) else 2] += 1
            for name, (hits, reasons, missed) in sorted(counts.items()):
                share = 100 * hits / max(1, hits + missed)
                print(f"{title:6}{name:12}{hits:5} found{reasons:4} explained{missed:4} not found  {share:5.1f} %")
                least = min(least, share) if title != "kind" else least
        print()
        for place, by in sorted(self.done, key=lambda d: (d[0].path, d[0].line)):
            if not by and not self.reason(place):
                path, before, after = self.key(place)
                print(f"{path}\n- {before}\n+ {after}\n" + ("" if self.is_run(place) else "no test is known to run the line\n"))
        return least


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("source", type=pathlib.Path, help="root of the project")
    parser.add_argument("folder", type=pathlib.Path, help="for copies, builds and results; remove it to begin anew")
    parser.add_argument("--places", type=int, default=400, help="faults, about (400); more where a floor would have few")
    parser.add_argument("--seed", type=int, default=1, help="of the choice of places (1)")
    parser.add_argument("--jobs", type=int, default=1, help="copies that are worked on at once (1)")
    parser.add_argument("--least", type=float, default=75, help="share of each floor below which the run fails (75)")
    parser.add_argument("--report", action="store_true", help="show the results that are kept, and try no more")
    options = parser.parse_args()
    run = Run(options)
    if options.report:
        run.read()
        run.work(None)
    else:
        run.try_all(options.jobs)
    sys.exit(run.report() < options.least)


if __name__ == "__main__":
    main()

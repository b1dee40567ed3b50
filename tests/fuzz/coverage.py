#!/usr/bin/env python3
"""Reads what llvm-cov exports as lcov and prints the share of lines that are reached, by folder of the sources; writes
the functions that are not reached.  coverage.py ROOT FILE <lcov"""

import collections
import os
import subprocess
import sys


def folder_of(path):
    """Two steps below the floor: quor/deck/internal/read."""
    return "/".join(os.path.dirname(path).split("/")[:4])


def main():
    root, not_reached = sys.argv[1:]
    lines = collections.defaultdict(lambda: [0, 0])
    functions = {}  # (path, line) -> [name, count]
    path = ""
    at = {}
    for row in sys.stdin:
        key, _, value = row.rstrip("\n").partition(":")
        if key == "SF":
            path = os.path.relpath(value, root)
            at = {}
        elif key == "FN":
            line, name = value.split(",", 1)
            at[name] = (path, int(line))
            functions.setdefault(at[name], [name, 0])
        elif key == "FNDA":
            count, name = value.split(",", 1)
            functions[at[name]][1] += int(count)
        elif key == "DA":
            count = lines[folder_of(path)]
            count[0] += int(value.split(",")[1]) > 0
            count[1] += 1
    for folder, (reached, all_lines) in sorted(lines.items()):
        print(f"{folder:36}{all_lines:7} lines {100 * reached / all_lines:6.1f} %")
    reached, all_lines = map(sum, zip(*lines.values()))
    print(f"{'all':36}{all_lines:7} lines {100 * reached / all_lines:6.1f} %")
    missed = sorted((place, name) for place, (name, count) in functions.items() if count == 0)
    names = subprocess.run(["c++filt"], input="\n".join(name.split(":")[-1] for _, name in missed), check=True,
        capture_output=True, text=True).stdout.splitlines()
    with open(not_reached, "w", encoding="utf-8") as file:
        for ((source, line), _), name in zip(missed, names):
            print(f"{source}:{line}: {name}", file=file)
    print(f"{len(missed)} of {len(functions)} functions are not reached: {not_reached}")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Whether the sources are as docs/architecture.md says: no file includes one of a floor or step above it, faces include
nothing internal, no files include each other in a circle, and each large folder is in the table.  sources.py ROOT"""
import os
import re
import sys
from pathlib import Path

root = Path(sys.argv[1])
document = (root / "docs/architecture.md").read_text()
floors = re.findall(r"^\| \w+ \| `((?:quor|tools|python)/\w*/?)` \|", document, re.M)[::-1]
steps = ["quor/deck/internal/read/" + step for step in re.findall(r"^\d\. `(\w+/)`", document, re.M)]
large_folders = re.findall(r"^\| `([\w/-]+)/` \|", document.partition("## Large folders")[2], re.M)
wrong = [] if len(floors) == 9 and len(steps) == 6 else ["the tables of floors and steps are not where they were"]

includes, sizes = {}, {}
for top in ("quor", "tools", "python", "language", "tests", "benchmarks", "examples"):
    for folder, below, names in os.walk(root / top):
        below[:] = [name for name in below if name not in ("__pycache__", "node_modules", "build")]
        here = Path(folder).relative_to(root).as_posix()
        sizes[here] = len(names)
        for name in names:
            if name.endswith((".h", ".cpp")):
                text = (Path(folder) / name).read_text()
                includes[f"{here}/{name}"] = re.findall(r'^#include "([^"]+)"', text, re.M)


def level(path, levels):
    """How high the folder of a file is; -1: in none of them."""
    return next((i for i, folder in enumerate(levels) if path.startswith(folder)), -1)


for path, others in includes.items():
    for other in others:
        for levels in (floors, steps):
            if level(other, levels) > level(path, levels) >= 0:
                wrong.append(f"{path} includes {other}, which is above it")
        if path.startswith(("tools/", "python/")) and "/internal/" in other:
            wrong.append(f"{path} includes {other}, which is internal")

finished = set()


def follow(path, way):
    if path in way:
        wrong.append("a circle of includes: " + " ".join(way[way.index(path):] + [path]))
    elif path not in finished:
        for other in includes.get(path, []):
            follow(other, way + [path])
        finished.add(path)


for each in includes:
    follow(each, [])
wrong += [f"{folder} has {size} files; add its rule to the table of large folders in docs/architecture.md"
          for folder, size in sizes.items() if size > 25 and folder not in large_folders]
print("\n".join(wrong) or f"{len(includes)} files as described")
sys.exit(bool(wrong))

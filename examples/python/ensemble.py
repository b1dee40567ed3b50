"""Writes 50 members of a deck, each with another multiplier of the porosity, and checks them:  ensemble.py DECK FOLDER"""

import sys
from pathlib import Path

import numpy as np
import quor


def main(path: str, folder: str) -> None:
    base = quor.read(path)
    porosity = base["PORO"].array
    members = []
    for number, factor in enumerate(np.linspace(0.8, 1.2, 50), start=1):
        member = base.copy()  # shares the data of the base
        member.set("PORO", np.minimum(porosity * factor, 1.0).round(4))
        members.append(member.write_tree(Path(folder) / f"member-{number:02}"))
    errors = sum(len(findings) for _, findings in quor.check_many(members))
    first, last = quor.read(members[0]), quor.read(members[-1])
    print(f"{len(members)} members, {errors} findings; {len(quor.diff(first, last))} change from the first to the last")


if __name__ == "__main__":
    main(*sys.argv[1:])

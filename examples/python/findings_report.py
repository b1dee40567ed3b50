"""Counts the findings of all decks below a folder by code:  findings_report.py FOLDER"""

import sys
from collections import Counter
from pathlib import Path

import quor


def main(folder: str) -> None:
    codes: Counter[str] = Counter()
    clean = 0
    paths = sorted(Path(folder).rglob("*.data"))
    for path, findings in quor.check_many(paths):
        codes.update(finding.code for finding in findings)
        clean += not findings
        for finding in findings[:1]:
            print(f"{Path(path).name}:{finding.line}: {finding.message}")
    print(f"{len(paths)} decks, {clean} without findings")
    for code, count in codes.most_common(3):
        print(f"{count:6} {code}")


if __name__ == "__main__":
    main(*sys.argv[1:])

#!/usr/bin/env python3
"""latency.py QUOR [LINES...]: how long the language server takes on decks of so many lines, as a table in
Markdown: milliseconds of its own, the most of 20, and in brackets those that the client waited.

The deck has a grid of a million cells in one included file and its history in another; the lines are those of the
history. Changes are made in its middle, and what an editor asks after a change is asked at once, before the deck has
been read again."""

import pathlib
import sys
import tempfile
import time

from client import Client, position

WELLS = 24
HEAD = """RUNSPEC
TITLE
  Latency
DIMENS
  100 100 100 /
OIL
WATER
METRIC
START
  1 JAN 2000 /
TABDIMS
  1 1 20 20 /
WELLDIMS
  40 10 5 40 /
GRID
INCLUDE
  'cells.inc' /
SCHEDULE
WELSPECS
%s/
COMPDAT
%s/
INCLUDE
  'history.inc' /
END
"""
MONTHS = "JAN FEB MAR APR MAY JUN JUL AUG SEP OCT NOV DEC".split()


def history(lines):
    text, count, month = [], 0, 0
    while count < lines:
        text.append("WCONHIST")
        for well in range(WELLS):
            text.append(f"  W{well + 1:<3} OPEN ORAT {500 + (month * 7 + well) % 90}.5 {10 + well} {60000 + month}"
                " 2* 44.7 /")
        month += 1
        text += ["/", "DATES", f"  1 {MONTHS[month % 12]} {2000 + month // 12} /", "/"]
        count += WELLS + 5
    return "\n".join(text) + "\n"


def make_deck(folder, lines):
    specs = "".join(f"  W{i + 1} G {i + 1} {i + 1} 1* OIL /\n" for i in range(WELLS))
    cells = "".join(f"  W{i + 1} 2* 1 3 OPEN 2* 0.2 /\n" for i in range(WELLS))
    (folder / "main.data").write_text(HEAD % (specs, cells))
    rows = "\n".join(" ".join(f"0.{(i + j) % 30 + 10}" for j in range(20)) for i in range(50000))
    (folder / "cells.inc").write_text(f"PORO\n{rows} /\n")
    (folder / "history.inc").write_text(history(lines))


def own_time(client, all_threads=False):
    """Seconds that the thread which answers has run, or all threads: on a busy machine it waits as long again."""
    tasks = pathlib.Path(f"/proc/{client.process.pid}/task")
    threads = tasks.iterdir() if all_threads else [tasks / str(client.process.pid)]
    return sum(int((thread / "schedstat").read_text().split()[0]) for thread in threads) / 1e9


def cell(times):
    return f"{sorted(own for own, _ in times)[-1] * 1000:.1f} ({sorted(whole for _, whole in times)[-1] * 1000:.0f})"


def measure(quor, lines):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        make_deck(folder, lines)
        client = Client(quor, folder=folder)
        start, busy = time.monotonic(), own_time(client, True)
        uri = client.open(folder / "history.inc")
        client.diagnostics(uri)
        reads = {"first diagnostics": [(own_time(client, True) - busy, time.monotonic() - start)]}
        text = client.texts[uri]
        middle = text.index("ORAT", len(text) // 2)
        place = {"textDocument": {"uri": uri}, "position": position(text, text.rindex("W", 0, middle) + 1)}
        line = place["position"]["line"]
        near = {"textDocument": {"uri": uri}, "range":
            {"start": {"line": line, "character": 0}, "end": {"line": line + 60, "character": 0}}}
        requests = [("hover", place), ("completion", place), ("signatureHelp", place), ("definition", place),
            ("documentHighlight", place), ("documentSymbol", near), ("foldingRange", near), ("semanticTokens/range", near),
            ("semanticTokens/full", near), ("inlayHint", near), ("codeLens", near), ("documentLink", near),
            ("references", {**place, "context": {"includeDeclaration": True}})]
        times = {}
        for i in range(20):
            digit = {"line": line, "character": 20}
            client.change(uri, [{"range": {"start": digit, "end": {**digit, "character": 21}}, "text": str(i % 10)}])
            for method, params in requests:
                start, busy = time.monotonic(), own_time(client)
                client.request("textDocument/" + method, params)
                times.setdefault(method, []).append((own_time(client) - busy, time.monotonic() - start))
        client.diagnostics(uri)
        start, busy = time.monotonic(), own_time(client, True)
        client.change(uri, [{"range": {"start": digit, "end": digit}, "text": "OILL "}])
        client.diagnostics(uri)
        reads["diagnostics after a change"] = [(own_time(client, True) - busy, time.monotonic() - start)]
        client.close()
        return {**reads, **times}


def main():
    sizes = [int(word) for word in sys.argv[2:]] or [1000, 20000, 200000]
    columns = [measure(sys.argv[1], lines) for lines in sizes]
    print("| | " + " | ".join(f"{lines:,} lines" for lines in sizes) + " |")
    print("|---|" + "---|" * len(sizes))
    for method in columns[0]:
        print(f"| {method} | " + " | ".join(cell(column[method]) for column in columns) + " |")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""random_edits.py QUOR [COUNT [SEED]]: edits an included file at random in one server, and opens the text that comes out
in another one: both must report the same. Positions beyond the text, and requests at random ones, are among them."""

import pathlib
import random
import sys
import tempfile

import decks
from client import Client, position

PIECES = ["\n", "\r\n", "/", "'", "P1", " ", "--", "2*", "\u00f8", "\U0001f6e2", "WELSPECS\n", "COMPDAT\n  P1 1 1 1 1 /\n",
    "900", "SKIP\n", "ENDSKIP\n", "INCLUDE\n", "'wells.inc' /\n", "OPEN", "$X", "\t", "WCONPROD\n  P1 OPEN ORAT 5 /\n/\n", "\x00",
    "999999999*", "END\n", "\r", "GRUPTREE\n  NORTH FIELD /\n/\n", "  P2 NORTH 1 1 1* OIL /\n"]
REQUESTS = ["hover", "completion", "signatureHelp", "definition", "documentHighlight", "documentSymbol", "foldingRange",
    "documentLink", "semanticTokens/full", "codeLens", "inlayHint", "formatting", "prepareRename", "rename", "references"]


def edit(client, uri, chance):
    """One change, of a span or of all, which the client keeps too."""
    text = client.texts[uri]
    begin = chance.randrange(len(text) + 1)
    end = min(len(text), begin + chance.choice([0, 0, 0, 1, 2, 5, 30]))
    if text[max(0, begin - 1):begin + 1] == "\r\n" or text[max(0, end - 1):end + 1] == "\r\n":
        return None  # a position within a line end is at its start: another text
    piece = chance.choice(PIECES) if chance.random() < 0.8 else ""
    client.texts[uri] = text[:begin] + piece + text[end:]
    if chance.random() < 0.05:
        return {"text": client.texts[uri]}
    return {"range": {"start": position(text, begin), "end": position(text, end)}, "text": piece}


def ask(client, uri, chance):
    place = {"line": chance.choice([-1, 0, 3, 10, 10**9]), "character": chance.choice([-5, 0, 2, 7, 10**12])}
    params = {"textDocument": {"uri": uri}, "position": place, "newName": "N1", "range": {"start": place, "end": place}}
    client.request("textDocument/" + chance.choice(REQUESTS), params)


def main():
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 300
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(10**6)
    chance = random.Random(seed)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name).resolve()
        (folder / "main.data").write_text(decks.MAIN, encoding="utf-8")
        (folder / "wells.inc").write_text(decks.WELLS, encoding="utf-8")
        edited, model = Client(sys.argv[1], folder=folder), Client(sys.argv[1], folder=folder)
        for client in (edited, model):
            main_uri = client.open(folder / "main.data")
            uri = client.open(folder / "wells.inc")
        for i in range(count):
            if i % 50 == 0:
                edited.change(uri, [{"text": decks.WELLS}])
                edited.texts[uri] = decks.WELLS
            changes = [change for change in (edit(edited, uri, chance) for _ in range(chance.choice([1, 1, 1, 2, 5]))) if change]
            edited.change(uri, changes)
            ask(edited, uri, chance)
            if chance.random() < 0.5:
                continue
            model.notify("textDocument/didClose", {"textDocument": {"uri": uri}})
            model.open(folder / "wells.inc", edited.texts[uri])
            for one in (uri, main_uri):
                got, expected = edited.diagnostics(one), model.diagnostics(one)
                for diagnostics in (got, expected):
                    for diagnostic in diagnostics:
                        diagnostic.pop("codeDescription", None)
                if got != expected:
                    print(f"seed {seed}, edit {i}: {edited.texts[uri]!r}\n  edited {got}\n  model  {expected}")
                    sys.exit(1)
        statuses = edited.close(), model.close()
    print(f"{count} edits, seed {seed}")
    sys.exit(0 if statuses == (0, 0) else 1)


if __name__ == "__main__":
    main()

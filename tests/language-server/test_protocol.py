#!/usr/bin/env python3
"""test_protocol.py QUOR: what the language server answers, request by request."""

import pathlib
import sys
import tempfile

import decks
from client import Client, position

PLACE = "\u00a6"  # where the cursor is, in the text of a row


def words_of(span):
    begin, end = span["start"], span["end"]
    same = begin["line"] == end["line"]
    return f"{begin['line']}:{begin['character']}-{'' if same else str(end['line']) + ':'}{end['character']}"


def file_of(uri):
    return uri.rsplit("/", 1)[1]


def edits_of(changes):
    return "; ".join(f"{file_of(uri)} " + ", ".join(f"{words_of(edit['range'])} '{edit['newText']}'" for edit in edits)
        for uri, edits in sorted(changes.items()))


def short(method, result):
    """An answer in a line, as the rows have it."""
    if result is None:
        return "null"
    if "error" in result:
        return result["error"]
    if method == "hover":
        return result["contents"]["value"]
    if method == "completion":
        return " ".join(item["textEdit"]["newText"] for item in result["items"])
    if method == "signatureHelp":
        signature = result["signatures"][0]
        begin, end = signature["parameters"][result["activeParameter"]]["label"]
        return f"{signature['label']}: {signature['label'][begin:end]}"
    if method in ("definition", "references"):
        found = result if isinstance(result, list) else [result]
        return " ".join(f"{file_of(one['uri'])}:{words_of(one['range'])}" for one in found)
    if method == "rename":
        return edits_of(result["changes"])
    if method in ("formatting", "rangeFormatting", "onTypeFormatting"):
        return ", ".join(f"{words_of(edit['range'])} '{edit['newText']}'" for edit in result)
    raise KeyError(method)


def diagnostic_of(one):
    related = "".join(f" [{file_of(other['location']['uri'])}:{words_of(other['location']['range'])} {other['message']}]"
        for other in one.get("relatedInformation", []))
    return f"{words_of(one['range'])} {one['severity']} {one['code']}: " + one["message"].replace("\n", "; ") + related


# What is asked at a place of a file: the file, a part of its text with the place in it, the method, more parameters,
# the answer. A text that isn't in the file replaces the line that begins like it, for the request alone.
AT = [
    ("HoverOfItem", "main.data", "P1'   OPEN   ORAT     9\u00a600", "hover", {}, "?"),
    ("HoverOfName", "main.data", "\u00a6'P1'   OPEN", "hover", {}, "?"),
    ("HoverOfArray", "main.data", "PO\u00a6RO", "hover", {}, "?"),
    ("HoverOfNothing", "main.data", "-- we\u00a6ll", "hover", {}, "null"),
    ("Definition", "main.data", "'P\u00a61'   OPEN", "definition", {}, "?"),
    ("DefinitionOfFile", "main.data", "'wells\u00a6.inc'", "definition", {}, "?"),
    ("DefinitionOfArray", "main.data", "  PER\u00a6MX PERMY", "definition", {}, "?"),
    ("DefinitionOfNothing", "main.data", "OI\u00a6L", "definition", {}, "?"),
    ("References", "wells.inc", "  P\u00a61 NORTH", "references", {"context": {"includeDeclaration": True}}, "?"),
    ("ReferencesWithoutDefinitions", "wells.inc", "  P\u00a61 NORTH", "references",
        {"context": {"includeDeclaration": False}}, "?"),
    ("Rename", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "PROD-1"}, "?"),
    ("RenameToNameInUse", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "p2"}, "?"),
    ("RenameToNoName", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "P 1"}, "?"),
    ("RenameToLongName", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "PRODUCER-1"}, "?"),
    ("RenameOfNumber", "main.data", "ORAT     9\u00a600", "rename", {"newName": "X"}, "?"),
    ("ChoicesOfItem", "main.data", "P2     S\u00a6HUT", "completion", {}, "?"),
    ("NamesOfItem", "main.data", "  P\u00a62     SHUT", "completion", {}, "?"),
    ("NamesInQuotes", "main.data", "  '\u00a6P1'   OPEN", "completion", {}, "?"),
    ("PathsOfFiles", "main.data", "'wel\u00a6ls.inc'", "completion", {}, "?"),
    ("NothingInComment", "main.data", "-- well  st\u00a6ate", "completion", {}, ""),
    ("ItemOfRecord", "main.data", "P2     SHUT   LR\u00a6AT", "signatureHelp", {}, "?"),
    ("ItemAfterRepeat", "main.data", "2*   8\u00a600 /", "signatureHelp", {}, "?"),
    ("NoItemAfterSlash", "main.data", "2*   800 / \u00a6", "signatureHelp", {}, "null"),
]


class Failures:
    def __init__(self):
        self.count = 0
        self.rows = 0

    def check(self, name, actual, expected):
        self.rows += 1
        if actual != expected:
            self.count += 1
            print(f"{name}:\n  expected {expected!r}\n  actual   {actual!r}")


def main():
    failures = Failures()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "main.data").write_text(decks.MAIN, encoding="utf-8")
        (folder / "wells.inc").write_text(decks.WELLS, encoding="utf-8")
        client = Client(sys.argv[1])
        uris = {file: client.open(folder / file) for file in ("wells.inc", "main.data")}
        print([diagnostic_of(one) for one in client.diagnostics(uris["main.data"])], [diagnostic_of(one) for one in client.diagnostics(uris["wells.inc"])])
        for row, file, marked, method, more, expected in AT:
            text = client.texts[uris[file]]
            offset = text.index(marked.replace(PLACE, "")) + marked.index(PLACE)
            params = {"textDocument": {"uri": uris[file]}, "position": position(text, offset), **more}
            failures.check(row, short(method, client.request("textDocument/" + method, params)), expected)
        failures.check("Status", client.close(), 0)
    print(f"{failures.rows} rows, {failures.count} failed")
    sys.exit(1 if failures.count else 0)


if __name__ == "__main__":
    main()

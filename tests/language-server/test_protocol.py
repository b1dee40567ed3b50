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
    return "; ".join(file_of(uri) + "".join(f" {words_of(edit['range'])} {edit['newText']!r}" for edit in edits)
        for uri, edits in sorted(changes.items()))


def symbols_of(symbols):
    return " ".join(one["name"].replace(" ", "_") + (f" ({symbols_of(one['children'])})" if "children" in one else "")
        for one in symbols)


def tokens_of(result):
    """A letter each: what the word is; a capital for a definition."""
    return "".join("skcntm"[kind].upper() if marks else "skcntm"[kind]
        for kind, marks in zip(result["data"][3::5], result["data"][4::5]))


def diagnostic_of(one):
    related = "".join(f" [{file_of(other['location']['uri'])}:{words_of(other['location']['range'])} {other['message']}]"
        for other in one.get("relatedInformation", []))
    code = one.get("code", "")
    return f"{words_of(one['range'])} {one['severity']} {code}: " + one["message"].replace("\n", "; ") + related


def signature_of(result):
    signature = result["signatures"][0]
    begin, end = signature["parameters"][result["activeParameter"]]["label"]
    return f"{signature['label'][:24]}: {signature['label'][begin:end]}"


def locations_of(result):
    found = result if isinstance(result, list) else [result]
    return " ".join(f"{file_of(one['uri'])}:{words_of(one['range'])}" for one in found)


# An answer in a line, as the rows have it.
SHORT = {
    "codeAction": lambda result: " | ".join(f"{one['title']}: {edits_of(one['edit']['changes'])}" for one in result),
    "completion": lambda result: " ".join(one["textEdit"]["newText"] for one in result["items"]),
    "definition": locations_of,
    "documentHighlight": lambda result: " ".join(words_of(one["range"]) for one in result),
    "documentLink": lambda result: " ".join(f"{words_of(one['range'])} {file_of(one['target'])}" for one in result),
    "documentSymbol": symbols_of,
    "foldingRange": lambda result: " ".join(f"{one['startLine']}-{one['endLine']}" for one in result),
    "formatting": lambda result: " ".join(f"{words_of(one['range'])} {one['newText']!r}" for one in result),
    "hover": lambda result: result["contents"]["value"],
    "inlayHint": lambda result: " ".join(f"{one['position']['character']} {one['label']}" for one in result),
    "prepareRename": lambda result: f"{words_of(result['range'])} {result['placeholder']}",
    "rangeFormatting": lambda result: SHORT["formatting"](result),
    "onTypeFormatting": lambda result: SHORT["formatting"](result),
    "references": locations_of,
    "rename": lambda result: edits_of(result["changes"]),
    "semanticTokens/full": tokens_of,
    "semanticTokens/range": tokens_of,
    "signatureHelp": signature_of,
}


def short(method, result):
    if result is None:
        return "null"
    return result["error"] if "error" in result else SHORT[method](result)


class Checks:
    def __init__(self):
        self.rows = 0
        self.failed = 0

    def equal(self, name, actual, expected):
        self.rows += 1
        if actual != expected:
            self.failed += 1
            print(f"{name}:\n  expected {expected!r}\n  actual   {actual!r}")


def params_at(client, uri, marked):
    """The parameters for the place that `marked` has in the document; for the whole document without one."""
    params = {"textDocument": {"uri": uri}}
    if marked:
        text = client.texts[uri]
        params["position"] = position(text, text.index(marked.replace(PLACE, "")) + marked.index(PLACE))
    return params


def check_requests(checks, client, uris, rows):
    for name, file, marked, method, more, expected in rows:
        params = {**params_at(client, uris[file], marked), **more}
        checks.equal(name, short(method, client.request("textDocument/" + method, params)), expected)


def check_changes(checks, client, uris):
    """Each change is made, its diagnostics are compared, and it is reverted."""
    for name, file, old, new, expected in decks.CHANGES:
        uri = uris[file]
        text = client.texts[uri]
        begin, end = text.index(old), text.index(old) + len(old)
        changed = text[:begin] + new + text[end:]
        client.change(uri, [{"range": {"start": position(text, begin), "end": position(text, end)}, "text": new}])
        checks.equal(name, " | ".join(map(diagnostic_of, client.diagnostics(uri))), expected)
        client.texts[uri] = changed
        check_requests(checks, client, uris, decks.AFTER.get(name, []))
        back = {"start": position(changed, begin), "end": position(changed, begin + len(new))}
        client.change(uri, [{"range": back, "text": old}])
        checks.equal(name + "Reverted", client.diagnostics(uri), [])
        client.texts[uri] = text


def check_others(checks, client, uris):
    """What is no request about a document."""
    found = client.request("workspace/symbol", {"query": "p1"})
    checks.equal("Symbols", [(one["name"], one["containerName"], file_of(one["location"]["uri"])) for one in found],
        [("P1", "well", "wells.inc")])
    lenses = client.request("textDocument/codeLens", {"textDocument": {"uri": uris["main.data"]}})
    titles = [client.request("codeLens/resolve", lens)["command"]["title"] for lens in lenses]
    checks.equal("Lenses", titles, ["1 record", "1 record", "2 records", "1 record",
        "1 record; against 2024-02-01: 1 changed, 0 added"])
    items = client.request("textDocument/completion", params_at(client, uris["main.data"], "DIM" + PLACE + "ENS"))
    item = client.request("completionItem/resolve", [one for one in items["items"] if one["label"] == "DIMENS"][0])
    checks.equal("Documentation", item["documentation"]["value"].split("\n")[0], "**DIMENS**")
    checks.equal("Snippet", item["textEdit"]["newText"], "DIMENS\n-- NX NY NZ\n  ${1:NX} ${2:NY} ${3:NZ} /\n")


def check_bad_messages(checks, client):
    for content, expected in decks.BAD_MESSAGES:
        client.send_text(content)
        checks.equal(content, client.receive().get("error"), expected)


def check_lifecycle(checks, quor):
    client = Client(quor)
    client.process.stdin.write(b"Content-Length: none\r\n\r\n")
    client.process.stdin.close()
    checks.equal("StatusWithoutShutdown", client.process.wait(timeout=30), 1)


def check_cancellation(checks, client, uri):
    """A request that waits for the deck is cancelled; either answer may come first."""
    start = {"line": 0, "character": 0}
    client.change(uri, [{"range": {"start": start, "end": start}, "text": "-- more\n"}])
    number = client.start("textDocument/formatting", {"textDocument": {"uri": uri}})
    client.notify("$/cancelRequest", {"id": number})
    answer = client.finish(number)
    checks.equal("Cancelled", answer.get("result", answer.get("error")) in (
        [], {"code": -32800, "message": "the request was cancelled"}), True)


def check_folder(checks, quor, folder):
    client = Client(quor, folder=folder)
    client.notify("workspace/didChangeConfiguration", {"settings": decks.BAD_SETTINGS})
    for message in decks.SETTING_ERRORS:
        checks.equal("Setting", client.receive()["params"]["message"], message)
    uris = {file: client.open(folder / file) for file in ("wells.inc", "main.data")}
    checks.equal("Clean", client.diagnostics(uris["wells.inc"]), [])
    checks.equal("CleanRoot", client.diagnostics(uris["main.data"]), [])
    check_requests(checks, client, uris, decks.REQUESTS)
    check_changes(checks, client, uris)
    check_others(checks, client, uris)
    check_bad_messages(checks, client)
    check_cancellation(checks, client, uris["main.data"])
    alone = client.open(folder / "alone.inc", "WELSPECS\n  P1 \n")
    checks.equal("Fragment", [diagnostic_of(one) for one in client.diagnostics(alone)], [decks.FRAGMENT])
    (folder / "wells.inc").unlink()
    client.notify("textDocument/didClose", {"textDocument": {"uri": uris["wells.inc"]}})
    missing = " | ".join(diagnostic_of(one) for one in client.diagnostics(uris["main.data"]))
    checks.equal("FileIsGone", missing.replace(str(folder), "FOLDER"), decks.MISSING)
    checks.equal("Status", client.close(), 0)


def write(folder, files):
    for file, text in files.items():
        (folder / file).parent.mkdir(exist_ok=True)
        (folder / file).write_text(text, encoding="utf-8")


def check_project(checks, quor, folder):
    """Settings and decks change on disk, while one included file is open."""
    write(folder, decks.PROJECT)
    share = folder / "share"
    client = Client(quor, folder=share, abilities={"didChangeWatchedFiles": {"dynamicRegistration": True}})
    uri = client.open(share / "wells.inc")
    for name, file, text, diagnostics, messages in decks.ON_DISK:
        path = folder / file
        change = 1 if not path.exists() else 2 if text else 3
        path.write_text(text) if text else path.unlink()
        client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": path.as_uri(), "type": change}]})
        found = " | ".join(map(diagnostic_of, client.diagnostics(uri)))
        checks.equal(name, found, diagnostics)
        checks.equal(name + "Told", [text.replace(str(folder), "FOLDER") for text in client.messages], messages)
        client.messages.clear()
    watched = [one["globPattern"].replace(str(folder), "FOLDER") for asked in client.asked
        for registration in asked["registrations"] for one in registration["registerOptions"]["watchers"]]
    checks.equal("Watched", sorted(watched), decks.WATCHED)
    checks.equal("ProjectStatus", client.close(), 0)


def main():
    checks = Checks()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name).resolve()
        write(folder, {"main.data": decks.MAIN, "wells.inc": decks.WELLS, "wel's.inc": ""})
        check_folder(checks, sys.argv[1], folder)
        (folder / "project").mkdir()
        check_project(checks, sys.argv[1], folder / "project")
    check_lifecycle(checks, sys.argv[1])
    print(f"{checks.rows} checks, {checks.failed} failed")
    sys.exit(1 if checks.failed else 0)


if __name__ == "__main__":
    main()

"""A client of the language server: starts the program, and speaks the protocol over its pipes."""

import json
import pathlib
import queue
import re
import subprocess
import threading


class Client:
    """`quor`: the program; `abilities` of the workspace. Requests wait for their answer, at most 60 seconds."""

    def __init__(self, quor, options=None, folder=None, abilities=None):
        self.process = subprocess.Popen([quor, "language-server"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.answers = queue.Queue()
        self.published = {}
        self.asked = []
        self.messages = []
        self.texts = {}
        self.versions = {}
        self.last = 0
        threading.Thread(target=self._read, daemon=True).start()
        folders = [{"uri": pathlib.Path(folder).as_uri(), "name": "decks"}] if folder else None
        snippets = {"textDocument": {"completion": {"completionItem": {"snippetSupport": True}}}}
        self.abilities = self.request("initialize", {"processId": None, "rootUri": None, "workspaceFolders": folders,
            "capabilities": {**snippets, "workspace": abilities or {}}, "initializationOptions": options or {}})["capabilities"]
        self.notify("initialized", {})

    def _read(self):
        stream = self.process.stdout
        while True:
            length = None
            while True:
                line = stream.readline()
                if not line:
                    self.answers.put(None)
                    return
                if line == b"\r\n":
                    break
                name, value = line.decode("ascii").split(":", 1)
                if name.lower() == "content-length":
                    length = int(value)
            self.answers.put(json.loads(stream.read(length).decode("utf-8")))

    def send_text(self, content):
        data = content if isinstance(content, bytes) else content.encode("utf-8")
        self.process.stdin.write(b"Content-Length: %d\r\n\r\n" % len(data) + data)
        self.process.stdin.flush()

    def send(self, message):
        self.send_text(json.dumps({"jsonrpc": "2.0", **message}))

    def notify(self, method, params):
        self.send({"method": method, "params": params})

    def start(self, method, params):
        """Sends a request; returns its number."""
        self.last += 1
        self.send({"id": self.last, "method": method, "params": params})
        return self.last

    def receive(self, timeout=60):
        """The next message; diagnostics and messages to the user are kept, requests of the server answered."""
        message = self.answers.get(timeout=timeout)
        if message is None:
            raise EOFError("the server is gone")
        if message.get("method") == "textDocument/publishDiagnostics":
            self.published[message["params"]["uri"]] = message["params"]["diagnostics"]
        elif message.get("method") == "window/showMessage":
            self.messages.append(message["params"]["message"])
        elif "method" in message and "id" in message:
            self.asked.append(message["params"])
            self.send({"id": message["id"], "result": None})
        return message

    def finish(self, number):
        while True:
            message = self.receive()
            if "method" not in message and message.get("id") == number:
                return message

    def request(self, method, params):
        """The result; an error as {"error": text}."""
        answer = self.finish(self.start(method, params))
        return {"error": answer["error"]["message"]} if "error" in answer else answer["result"]

    # Documents.

    def open(self, path, text=None):
        uri = pathlib.Path(path).as_uri()
        self.texts[uri] = pathlib.Path(path).read_text(encoding="utf-8") if text is None else text
        self.versions[uri] = 1
        self.notify("textDocument/didOpen", {"textDocument":
            {"uri": uri, "languageId": "deck", "version": 1, "text": self.texts[uri]}})
        return uri

    def change(self, uri, changes):
        self.versions[uri] += 1
        self.notify("textDocument/didChange", {"textDocument": {"uri": uri, "version": self.versions[uri]},
            "contentChanges": changes})

    def diagnostics(self, uri):
        """Those of the document as it is now: a request that waits for the deck to be read comes before."""
        start = {"line": 0, "character": 0}
        self.request("textDocument/codeAction", {"textDocument": {"uri": uri}, "range": {"start": start, "end": start},
            "context": {"diagnostics": []}})
        return self.published.get(uri, [])

    def close(self):
        self.request("shutdown", None)
        self.notify("exit", None)
        return self.process.wait(timeout=30)


def position(text, offset):
    """Of a character of a text, in units of UTF-16."""
    lines = re.split("\r\n|\n|\r", text[:offset])
    return {"line": len(lines) - 1, "character": len(lines[-1].encode("utf-16-le")) // 2}

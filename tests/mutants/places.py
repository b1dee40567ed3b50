"""Where a source can get a small fault, and what it is changed into."""

import dataclasses
import pathlib
import re


@dataclasses.dataclass(frozen=True)
class Place:
    """A change of the bytes [start, end) of a source, whose path is relative to the root of the project."""

    path: str
    line: int
    start: int
    end: int
    kind: str
    before: str
    after: str

    def floor(self):
        return pathlib.PurePath(self.path).parts[1]

    def __str__(self):
        return f"{self.path}:{self.line}: {self.kind}: {self.before.strip()} -> {self.after.strip()}"


KINDS = ["condition", "logic", "boundary", "equality", "constant", "statement", "enumerator", "arguments"]

_NO_CODE = re.compile(
    r"//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|^[ \t]*static_assert[^\n]*|\[\[[^\n\]]*\]\]"
    r"|R\"([^() ]{0,16})\(.*?\)\1\"|\"(?:\\.|[^\"\\\n])*\"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'", re.S | re.M)
_BOUNDARIES = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
_STATEMENT = re.compile(
    r"(?<=[;{}:)\n])(\s*\n +)((?:[\w:.>\[\]-]+\([^;{}]*\)|[\w.>\[\]-]+ [-+|&*]?= [^;{}]*|\+\+[\w.>-]+|--[\w.>-]+"
    r"|break|continue|return);)(?=\n)")
_ENUMERATION = re.compile(r"\benum class (\w+)[^{;]*\{([^}]*)\}")


def code_of(text):
    """The text with comments, literals of texts, directives and attributes blanked out, byte for byte."""
    return _NO_CODE.sub(lambda m: re.sub(r"[^\n]", "_" if m[0][0] in "\"'R" else " ", m[0]), text)


def enumerations(texts):
    """Enumerators by the name of their enumeration, where that is unique."""
    found = {}
    for text in texts:
        for name, body in _ENUMERATION.findall(code_of(text)):
            words = [w.split("=")[0].strip() for w in body.split(",")]
            found.setdefault(name, []).append([w for w in words if w])
    return {name: lists[0] for name, lists in found.items() if len(lists) == 1}


def _closing(code, opening):
    depth = 0
    for i in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[i], 0)
        if depth == 0:
            return i
    return -1


def _changes(code, enums):
    """(kind, start, end, text): the bytes [start, end) replaced by a text."""
    for m in re.finditer(r"\bif \(", code):
        end = _closing(code, m.end() - 1)
        inside = code[m.end():end]
        if ";" not in inside and not re.search(r"[^=!<>]=[^=]", inside):
            yield "condition", m.end(), end, "!({})"
    for m in re.finditer(r"(?<= )(&&|\|\|)(?= )", code):
        yield "logic", m.start(), m.end(), "||" if m[0] == "&&" else "&&"
    for m in re.finditer(r"(?<= )[<>]=?(?= )", code):
        yield "boundary", m.start(), m.end(), _BOUNDARIES[m[0]]
    for m in re.finditer(r"(?<= )[=!]=(?= )", code):
        yield "equality", m.start(), m.end(), "!=" if m[0] == "==" else "=="
    for m in re.finditer(r"(?<![\w.'])\d+(?![\w.'])|\b(?:true|false)\b|(?<= )[+-](?= \d)", code):
        swapped = {"true": "false", "false": "true", "+": "-", "-": "+"}.get(m[0])
        yield "constant", m.start(), m.end(), swapped or str(int(m[0]) + 1)
    for m in _STATEMENT.finditer(code):
        if m[2].count("(") == m[2].count(")"):
            yield "statement", m.start(2), m.end(2), ";"
    for m in re.finditer(r"\b(\w+)::(\w+)\b", code):
        words = enums.get(m[1], [])
        if len(words) > 1 and m[2] in words:
            yield "enumerator", m.start(2), m.end(2), words[(words.index(m[2]) + 1) % len(words)]
    for m in re.finditer(r"(?<=[\w>]\()([\w.>-]+), ([\w.>-]+)(?=\))", code):
        if m[1] != m[2] and all(word.strip("_") for word in m.groups()):  # no text, which is blanked out
            yield "arguments", m.start(), m.end(), f"{m[2]}, {m[1]}"


def places(path, text, enums):
    """All places of a source. `condition` negates, `statement` drops, `boundary` is off by one; the others swap."""
    code = code_of(text)
    for kind, start, end, after in _changes(code, enums):
        before = text[start:end]
        yield Place(path, text.count("\n", 0, start) + 1, start, end, kind, before, after.format(before))

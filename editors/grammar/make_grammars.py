"""Makes the files by which editors colour decks, from the language itself.

usage: make_grammars.py QUOR FOLDER

FOLDER gets quor-deck.tmLanguage.json (VS Code and others), quor-deck.vim and quor-deck.xml (Kate).
"""

import json
import pathlib
import re
import subprocess
import sys
from xml.sax.saxutils import quoteattr

SKIPPED = ("SKIP", "SKIPALL")


class Language:
    """The names that a deck may have at the start of a line."""

    def __init__(self, quor):
        text = subprocess.run([quor, "list", "--format", "json"], check=True, capture_output=True, text=True).stdout
        keywords = json.loads(text)["keywords"]
        names = {name for keyword in keywords for name in [keyword["name"], *keyword["aliases"]]}
        self.sections = sorted({section for keyword in keywords for section in keyword["sections"]})
        self.plain = sorted(name for name in names if not name.endswith("*") and name not in self.sections)
        self.beginnings = sorted(name[:-1] for name in names if name.endswith("*"))

    def pattern(self, names):
        """Longest first, so that a name isn't taken for the start of another."""
        return "|".join(re.escape(name) for name in sorted(names, key=lambda name: (-len(name), name)))


def textmate(language):
    end = r"(?![A-Za-z0-9_+\-*])"
    begins = language.pattern(language.beginnings)
    return json.dumps({
        "name": "Reservoir deck",
        "scopeName": "source.quor-deck",
        "patterns": [
            {"name": "comment.line.double-dash.quor-deck", "match": "--.*$"},
            {"name": "comment.block.quor-deck", "begin": rf"^(?:{'|'.join(SKIPPED)}){end}", "end": r"^ENDSKIP\b"},
            {"name": "keyword.control.section.quor-deck", "match": rf"^(?:{'|'.join(language.sections)}){end}"},
            {"name": "entity.name.function.quor-deck", "match": rf"^(?:{language.pattern(language.plain)}){end}"},
            {"name": "entity.name.function.quor-deck", "match": rf"^(?:{begins})[A-Za-z0-9_+\-]*{end}"},
            {"name": "string.quoted.single.quor-deck", "match": r"'[^'\n]*'"},
            {"name": "variable.other.quor-deck", "match": r"\$[A-Za-z_][A-Za-z0-9_]*"},
            {"match": r"(?<![^\s])(\d+\*)",
             "captures": {"1": {"name": "keyword.operator.repeat.quor-deck"}}},
            {"name": "constant.numeric.quor-deck",
             "match": r"(?<![^\s*])[+-]?(?:\d+\.?\d*|\.\d+)(?:[eEdD][+-]?\d+)?(?![^\s/])"},
            {"match": "(/)(.*)$",
             "captures": {"1": {"name": "punctuation.terminator.quor-deck"}, "2": {"name": "comment.line.quor-deck"}}},
        ],
    }, indent=1) + "\n"


def vim(language):
    names = "\n".join(
        "syn keyword quorKeyword contained " + " ".join(language.plain[i:i + 12])
        for i in range(0, len(language.plain), 12))
    begins = r"\|".join(language.beginnings)
    skipped = r"\|".join(SKIPPED)
    return rf"""" Vim syntax file for decks of reservoir simulators. Made from the language: see make_grammars.py.
if exists("b:current_syntax")
  finish
endif
syn case match
syn iskeyword @,48-57,_,-,+
syn match quorName /^[A-Z][A-Z0-9_+-]*/ contains=quorSection,quorKeyword,quorVector
{names}
syn match quorVector /^\%({begins}\)[A-Z0-9_+-]*/ contained
syn keyword quorSection contained {" ".join(language.sections)}
syn match quorNumber /\%(^\|[ \t*]\)\@1<=[+-]\?\%(\d\+\.\?\d*\|\.\d\+\)\%([eEdD][+-]\?\d\+\)\?\ze\%($\|[ \t/]\)/
syn match quorRepeat /\%(^\|[ \t]\)\@1<=\d\+\*/
syn match quorVariable /\$[A-Za-z_][A-Za-z0-9_]*/
syn region quorString start=/'/ end=/'/ oneline
syn match quorAfterSlash "/.*$"hs=s+1 contains=quorSlash
syn match quorSlash "/" contained
syn match quorComment /--.*$/
syn region quorSkipped start=/^\%({skipped}\)\>/ end=/^ENDSKIP\>/
hi def link quorSection Statement
hi def link quorKeyword Function
hi def link quorVector Function
hi def link quorNumber Number
hi def link quorRepeat Operator
hi def link quorVariable Identifier
hi def link quorString String
hi def link quorSlash Delimiter
hi def link quorAfterSlash Comment
hi def link quorComment Comment
hi def link quorSkipped Comment
let b:current_syntax = "quor-deck"
"""


def kate(language):
    def items(names):
        return "".join(f"<item>{name}</item>" for name in names)

    def rule(kind, style, text, extra=""):
        return f'<RegExpr attribute="{style}" context="{kind}" String={quoteattr(text)}{extra}/>'

    end = r"(?![A-Za-z0-9_+\-*])"
    begins = language.pattern(language.beginnings)
    at_start = ' column="0"'
    skipped = "|".join(SKIPPED)
    number = r"(?<![^\s*])[+-]?(?:\d+\.?\d*|\.\d+)(?:[eEdD][+-]?\d+)?(?![^\s/])"
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE language>
<language name="Reservoir deck" version="1" kateversion="5.0" section="Scientific" priority="20" extensions="*.data;*.DATA;*.inc;*.INC;*.grdecl;*.GRDECL;*.sch;*.SCH">
<highlighting>
<list name="sections">{items(language.sections)}</list>
<list name="keywords">{items(language.plain)}</list>
<contexts>
<context name="Deck" attribute="Normal" lineEndContext="#stay">
{rule("#stay", "Comment", "--.*$")}
{rule("Skipped", "Comment", f"^(?:{skipped}){end}", at_start)}
<keyword attribute="Section" context="#stay" String="sections" column="0"/>
<keyword attribute="Keyword" context="#stay" String="keywords" column="0"/>
{rule("#stay", "Keyword", f"^(?:{begins})[A-Za-z0-9_+-]*{end}", at_start)}
{rule("#stay", "String", "'[^']*'")}
{rule("#stay", "Variable", "[$][A-Za-z_][A-Za-z0-9_]*")}
{rule("#stay", "Number", number)}
{rule("#stay", "Comment", "/.*$")}
</context>
<context name="Skipped" attribute="Comment" lineEndContext="#stay">
{rule("#pop", "Comment", "^ENDSKIP", at_start)}
</context>
</contexts>
<itemDatas>
<itemData name="Normal" defStyleNum="dsNormal"/>
<itemData name="Comment" defStyleNum="dsComment"/>
<itemData name="Section" defStyleNum="dsControlFlow"/>
<itemData name="Keyword" defStyleNum="dsFunction"/>
<itemData name="String" defStyleNum="dsString"/>
<itemData name="Variable" defStyleNum="dsVariable"/>
<itemData name="Number" defStyleNum="dsDecVal"/>
</itemDatas>
</highlighting>
<general>
<comments><comment name="singleLine" start="--"/></comments>
<keywords casesensitive="1" weakDeliminator="+-"/>
</general>
</language>
"""


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    language = Language(sys.argv[1])
    folder = pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for name, make in (("tmLanguage.json", textmate), ("vim", vim), ("xml", kate)):
        (folder / f"quor-deck.{name}").write_text(make(language), encoding="utf-8")


if __name__ == "__main__":
    main()

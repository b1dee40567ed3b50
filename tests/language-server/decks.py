"""The deck that the tests of the language server open: two files, and a table that is no part of them."""

MAIN = """RUNSPEC
TITLE
  A small deck
DIMENS
  3 3 2 /
OIL
WATER
METRIC
START
  1 JAN 2024 /
WELLDIMS
  5 5 2 5 /
GRID
DX
  18*100 /
DY
  18*100 /
DZ
  18*10 /
TOPS
  9*2000 /
PORO
  9*0.2 9*0.25 /
PERMX
  18*100 /
COPY
  PERMX PERMY /
/
SOLUTION
SUMMARY
SCHEDULE
INCLUDE
  'wells.inc' /
DATES
  1 FEB 2024 /
/
WCONPROD
-- well  state  control  oil
  'P1'   OPEN   ORAT     900  4*  120 /
  P2     SHUT   LRAT      2*  800 /
/
DATES
  1 MAR 2024 /
/
WCONPROD
  P1 OPEN ORAT 800 4* 120 /
/
END
"""

WELLS = """-- Wells: \u00f8\U0001f6e2 is no name
WELSPECS
  P1 NORTH 1 1 2000 OIL /
  P2 NORTH 3 3 2000 OIL /
/
COMPDAT
  'P1' 2* 1 2 OPEN 2* 0.2 /
  'P2' 2* 1 2 OPEN 2* 0.2 /
/
"""

# Name, file, a part of its text with the place of the cursor in it, method, more parameters, the answer in short.
ALL = {"range": {"start": {"line": 0, "character": 0}, "end": {"line": 99, "character": 0}}}
ROW = {"range": {"start": {"line": 38, "character": 0}, "end": {"line": 39, "character": 0}}}
WITH = {"context": {"includeDeclaration": True}}
WITHOUT = {"context": {"includeDeclaration": False}}
REQUESTS = [
    ("HoverOfItem", "main.data", "ORAT     9\u00a600", "hover", {},
        "**ORAT**, item 4 of WCONPROD\n\nRate of oil at surface conditions, target or upper limit; no limit "
        "when left out.\n\n- type: real\n- unit: sm3/day\n- default: calculated\n- limits: >= 0\n"),
    ("HoverOfName", "main.data", "\u00a6'P1'   OPEN", "hover", {},
        "well **P1**: 4 uses, defined by WELSPECS at wells.inc:3\n\n**WELL**, item 1 of WCONPROD\n\nName of "
        "the well; a trailing asterisk stands for every well with that beginning.\n\n- type: string\n- "
        "default: none\n- limits: <= 8 chars\n"),
    ("HoverOfRepeat", "main.data", "18*1\u00a600 /", "hover", {},
        "**DX**\n\nLength of each cell in the x direction. A layer that is left out has the lengths of the "
        "layer above.\n\nLength of the cell in x.\n\n- type: real\n- unit: m\n- default: calculated\n- "
        "limits: >= 0\n- values 1 to 18\n"),
    ("HoverOfNothing", "main.data", "-- we\u00a6ll", "hover", {}, "null"),
    ("Definition", "main.data", "'P\u00a61'   OPEN", "definition", {}, "wells.inc:2:2-4"),
    ("DefinitionOfFile", "main.data", "'wells\u00a6.inc'", "definition", {}, "wells.inc:0:0-0"),
    ("DefinitionOfArray", "main.data", "  PER\u00a6MX PERMY", "definition", {}, "main.data:23:0-5"),
    ("DefinitionOfNothing", "main.data", "OI\u00a6L", "definition", {}, ""),
    ("References", "wells.inc", "  P\u00a61 NORTH", "references", WITH,
        "wells.inc:2:2-4 wells.inc:6:2-6 main.data:38:2-6 main.data:45:2-4"),
    ("ReferencesWithoutDefinitions", "wells.inc", "  P\u00a61 NORTH", "references", WITHOUT,
        "wells.inc:6:2-6 main.data:38:2-6 main.data:45:2-4"),
    ("ReferencesOfArray", "main.data", "PERM\u00a6X\n", "references", WITH, "main.data:23:0-5 main.data:26:2-7"),
    ("Highlights", "main.data", "  P\u00a61 OPEN", "documentHighlight", {}, "38:2-6 45:2-4"),
    ("PrepareRename", "main.data", "'P\u00a61'   OPEN", "prepareRename", {}, "38:3-5 P1"),
    ("PrepareRenameOfNumber", "main.data", "ORAT     9\u00a600", "prepareRename", {}, "null"),
    ("Rename", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "PROD1"},
        "main.data 38:2-6 \"'PROD1'\" 45:2-4 'PROD1'; wells.inc 2:2-4 'PROD1' 6:2-6 \"'PROD1'\""),
    ("RenameToNameInUse", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "p2"},
        "the deck has the well 'p2' already"),
    ("RenameToNoName", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "P 1"},
        "'P 1' is no name: expected letters, digits and marks, without blanks, quotes, '*', '?' and '/'"),
    ("RenameToLongName", "main.data", "'P\u00a61'   OPEN", "rename", {"newName": "PRODUCER-1"},
        "'PRODUCER-1' has 10 characters; WELSPECS accepts at most 8"),
    ("RenameOfNumber", "main.data", "ORAT     9\u00a600", "rename", {"newName": "X"},
        "the deck defines no name that is at the cursor"),
    ("ChoicesOfItem", "main.data", "P2     S\u00a6HUT", "completion", {}, "STOP SHUT"),
    ("NamesOfItem", "main.data", "  P\u00a62     SHUT", "completion", {}, "P1 P2"),
    ("NamesInQuotes", "main.data", "  '\u00a6P1'   OPEN", "completion", {}, "'P1' 'P2'"),
    ("NamesOfArrays", "main.data", "  PERM\u00a6X PERMY", "completion", {}, "PERMY PERMX"),
    ("PathsOfFiles", "main.data", "'wel\u00a6ls.inc'", "completion", {}, "\"wel's.inc\" 'wells.inc'"),
    ("NothingInArray", "main.data", "  18*1\u00a600 /", "completion", {}, ""),
    ("NothingInComment", "main.data", "-- well  st\u00a6ate", "completion", {}, ""),
    ("NothingAfterSlash", "main.data", "800 /\u00a6", "completion", {}, ""),
    ("ItemOfRecord", "main.data", "P2     SHUT   LR\u00a6AT", "signatureHelp", {}, "WCONPROD WELL STATUS CON: CONTROL"),
    ("ItemAfterRepeat", "main.data", "2*  8\u00a600 /", "signatureHelp", {}, "WCONPROD WELL STATUS CON: GRAT"),
    ("NoItemAfterSlash", "main.data", "800 /\u00a6", "signatureHelp", {}, "null"),
    ("Links", "main.data", "", "documentLink", {}, "32:3-12 wells.inc"),
    ("Outline", "main.data", "", "documentSymbol", {},
        "RUNSPEC (TITLE DIMENS OIL WATER METRIC START WELLDIMS) GRID (DX DY DZ TOPS PORO PERMX COPY) "
        "SOLUTION SUMMARY SCHEDULE (DATES_2024-02-01 (WCONPROD) DATES_2024-03-01 (WCONPROD))"),
    ("OutlineOfInclusion", "wells.inc", "", "documentSymbol", {}, "WELSPECS COMPDAT"),
    ("Folding", "wells.inc", "", "foldingRange", {}, "1-4 5-8"),
    ("Colours", "wells.inc", "", "semanticTokens/full", {}, "mkNNcNNckncnc"),
    ("ColoursInRange", "main.data", "", "semanticTokens/range", ROW, "ncc"),
    ("Hints", "main.data", "", "inlayHint", ROW, "2 WELL: 9 STATUS: 16 CONTROL: 25 ORAT: 30 WRAT to RESV: 34 BHP:"),
    ("NothingToFormat", "main.data", "", "formatting", {}, ""),
    ("NoActions", "main.data", "", "codeAction", {**ALL, "context": {"diagnostics": []}}, ""),
]

# Name, file, a part of its text, what replaces it, the diagnostics of the file.
CHANGES = [
    ("MissingSlash", "wells.inc", "2000 OIL /\n  P2", "2000 OIL\n  P2",
        "2:23-23 1 unclosed-data: WELSPECS: missing slash at the end of the record; add a slash after the "
        "last value"),
    ("AfterLettersBeyondAscii", "wells.inc", "NORTH 3", "'\u00f8\U0001f6e2' x",
        "3:11-12 1 wrong-type: WELSPECS, I: invalid value 'x'; expected a whole number"),
    ("UnknownName", "main.data", "  P2     SHUT", "  P3     SHUT",
        "39:2-4 1 undefined-name: WCONPROD: undefined well 'P3'; did you mean P1, P2?"),
    ("UnknownChoice", "main.data", "SHUT", "SHUTT",
        "39:9-14 1 not-a-choice: WCONPROD, STATUS: unknown value 'SHUTT'; did you mean SHUT?"),
    ("Ragged", "main.data", "P2     SHUT", "P2 SHUT", ""),
    ("KeywordInLowerCase", "main.data", "PORO", "poro",
        "21:0-4 1 lower-case: keyword 'poro' is not in upper case; write PORO"),
    ("ErrorsHideNames", "main.data", "2*  800", "2*  P1",
        "39:30-32 1 wrong-type: WCONPROD, GRAT: invalid value 'P1'; expected a number"),
    ("Pattern", "main.data", "  P2     SHUT", "  'P*'   SHUT", ""),
    ("AliasOfPath", "main.data", "INCLUDE\n  'wells", "PATHS\n  HERE '.' /\n/\nINCLUDE\n  '$HERE/wells", ""),
    ("NumberAsName", "main.data", "SOLUTION\n", "SOLUTION\nAQUFLUX\n  1 0.5 /\n/\n", ""),
    ("RepeatedName", "main.data", "END\n", "QDRILL\n  2*P1 /\nEND\n", ""),
    ("NameWithoutDefinition", "wells.inc", "  P2 NORTH", "  P3 NORTH",
        "7:2-6 1 undefined-name: COMPDAT: undefined well 'P2'; did you mean P1, P3?"),
    ("SizeOfArray", "main.data", "9*0.2 9*0.25", "9*0.2 8*0.25",
        "22:15-16 1 wrong-size: PORO: too few values (expected 18, found 17); the size is NX*NY*NZ"),
]

# What is asked after a change.
AFTER = {
    "KeywordInLowerCase": [
        ("Fix", "main.data", "", "codeAction", {**ALL, "context": {"only": ["quickfix"]}},
            "Write PORO: main.data 21:0-4 'PORO' | Hide 'lower-case' on this line with a comment: main.data "
            "21:0-0 '-- quor: off lower-case\\n'"),
        ("FixAll", "main.data", "", "codeAction", {**ALL, "context": {"only": ["source"]}},
            "Fix all findings of this file that have a certain fix: main.data 21:0-4 'PORO'"),
    ],
    "Pattern": [
        ("RenameBesidePattern", "wells.inc", "  P\u00a61 NORTH", "rename", {"newName": "Q1"},
            "the pattern 'P*' at main.data:40 stands for only one of 'P1' and 'Q1'; change it first"),
    ],
    "AliasOfPath": [
        ("PathsBelowAlias", "main.data", "'$HERE/we\u00a6lls", "completion", {}, "\"$HERE/wel's.inc\" '$HERE/wells.inc'"),
        ("Aliases", "main.data", "'$\u00a6HERE/wells", "completion", {}, "'$HERE/'"),
    ],
    "NumberAsName": [
        ("RenameOfNumberedThing", "main.data", "  \u00a61 0.5", "rename", {"newName": "2"},
            "'1' is a number in AQUFLUX; only names can be changed"),
    ],
    "RepeatedName": [
        ("RenameOfRepeatedName", "wells.inc", "  P\u00a61 NORTH", "rename", {"newName": "Q1"},
            "the name at main.data:49 is repeated by a count; write it out first"),
    ],
    "NameWithoutDefinition": [
        ("HoverWithoutDefinition", "main.data", "  P\u00a62     SHUT", "hover", {},
            "well **P2**: 2 uses, no definition\n\n**WELL**, item 1 of WCONPROD\n\nName of the well; a trailing "
            "asterisk stands for every well with that beginning.\n\n- type: string\n- default: none\n- limits: "
            "<= 8 chars\n"),
    ],
    "ErrorsHideNames": [
        ("HiddenNames", "wells.inc", "  P\u00a61 NORTH", "rename", {"newName": "PROD1"},
            "WCONPROD at main.data:37 has errors, which hide whether 'P1' is a name; fix them first"),
    ],
    "MissingSlash": [
        ("NextRecord", "wells.inc", "  P2 NO\u00a6RTH", "signatureHelp", {}, "WELSPECS WELL GROUP I J : INFLOW"),
    ],
    "Ragged": [
        ("Format", "main.data", "", "formatting", {}, "39:0-40:0 '  P2     SHUT   LRAT      2* 800 /\\n'"),
        ("FormatRange", "main.data", "", "rangeFormatting", ROW, ""),
        ("FormatKeyword", "main.data", "800 /\u00a6", "onTypeFormatting", {"ch": "/"},
            "39:0-40:0 '  P2     SHUT   LRAT      2* 800 /\\n'"),
    ],
}

BAD_SETTINGS = {"simulator": "Carow", "mode": [], "root": None, "strict": 1, "variables": {"A B": "1", "C": 2, "D": 0.5}}
SETTING_ERRORS = ["the setting 'simulator' has an unknown name 'Carow', and is not used",
    "the setting 'mode' has an invalid value, and is not used; expected a text",
    "the setting 'strict' has an invalid value, and is not used; expected true or false",
    "invalid variable name 'A B' in the setting 'variables'; it is not used",
    "the setting 'variables.D' has an invalid value, and is not used; expected a text or a whole number"]

BAD_MESSAGES = [
    ("{", {"code": -32700, "message": "the message is no JSON"}),
    (b"\"\xff\"", {"code": -32700, "message": "the message is no JSON"}),
    ("[]", {"code": -32600, "message": "the message has no method"}),
    ('{"id": "a", "method": "textDocument/hover"}',
        {"code": -32602, "message": "the parameters are not those of the protocol"}),
    ('{"id": 1000, "method": "textDocument/hover", "params": {"textDocument": {"uri": "file:///none"}}}',
        {"code": -32602, "message": "the document 'file:///none' is not open"}),
    ('{"id": 1001, "method": "none"}', {"code": -32601, "message": "unknown method 'none'"}),
    ('{"id": 1002, "method": "initialize", "params": {}}', {"code": -32600, "message": "'initialize' came twice"}),
]

FRAGMENT = ("0:0-0 3 : the deck that includes this file was not found, so the file isn't checked; "
    "open the deck, or set its path in the setting 'root'")
MISSING = "33:2-13 1 include-missing: can't read 'FOLDER/wells.inc': No such file or directory; a relative name starts from the folder of the deck"

# A project: its deck is in a folder that the editor doesn't have open.
PROJECT = {
    **{f"cases/a{i}.data": "RUNSPEC\nINCLUDE\n  '../share/other.inc' /\n" for i in range(120)},
    "own.xml": """<keywords><keyword name="WNOTE"><validSections> <section name="SCHEDULE"/> </validSections><data>
<list termination="SLASH"><record termination="SLASH"><item name="WELL"><string/></item></record></list></data></keyword></keywords>
""",
    "rules.xml": '<rules><exclusive keywords="WNOTE WECON" what="kind of note"/></rules>\n',
    "quor.toml": 'syntax = ["own.xml"]\ndecks = ["cases/*.data"]\n',
    "cases/case.data": MAIN.replace("wells.inc", "../share/wells.inc"),
    "share/wells.inc": WELLS + "WNOTE\n  P3 /\n/\nWECON\n  P1 $RATE /\n/\n",
}
SETTINGS = PROJECT["quor.toml"]
RULES = SETTINGS + 'rules = ["rules.xml"]\n[variables]\nRATE = 5\n'
IGNORE = '[check]\nignore = ["undefined-name"]\n'
NAME = "10:2-4 1 undefined-name: WNOTE: undefined well 'P3'; did you mean P1, P2?"
VARIABLE = "13:5-10 1 unknown-variable: variable '$RATE' has no value; set the variable $RATE"
RULE = ("12:0-5 1 conflicting-keywords: WECON contradicts WNOTE; expected one kind of note; remove one of them "
    "[wells.inc:9:0-5 WNOTE is here]")
CASE = PROJECT["cases/case.data"]

# Name, file, its new text (None: it is gone), the diagnostics of share/wells.inc then, what the user is told.
ON_DISK = [
    ("Project", "quor.toml", SETTINGS, NAME + " | " + VARIABLE, []),
    ("VariablesAndRules", "quor.toml", RULES, NAME + " | " + RULE, []),
    ("ErrorInSettings", "quor.toml", "mood = 1\n" + RULES, NAME + " | " + RULE,
        ["FOLDER/quor.toml:1: unknown setting 'mood'; the settings before this error apply"]),
    ("Codes", "quor.toml", RULES + IGNORE, RULE, []),
    ("ChangedDocument", "own.xml", PROJECT["own.xml"].replace("string", "integer"),
        "10:2-4 1 wrong-type: WNOTE, WELL: invalid value 'P3'; expected a whole number | " + RULE, []),
    ("ErrorInDocument", "own.xml", "<a/>",
        "10:2-4 1 wrong-type: WNOTE, WELL: invalid value 'P3'; expected a whole number | " + RULE,
        ["can't load the language: 'FOLDER/own.xml' has no keyword; the documents before this error apply"]),
    ("DocumentIsBack", "own.xml", PROJECT["own.xml"], RULE, []),
    ("ErrorInRules", "rules.xml", "<rules><x/></rules>", RULE,
        ["FOLDER/rules.xml: element 1, <x>: unknown rule; the settings before this error apply"]),
    ("NoDocuments", "quor.toml", 'decks = ["cases"]\n[variables]\nRATE = 5\n',
        "9:0-5 1 unknown-keyword: unknown keyword 'WNOTE'; did you mean NOTES, WNIT, WNPT?", []),
    ("DocumentsAgain", "quor.toml", 'syntax = ["own.xml"]\ndecks = ["cases"]\n', NAME + " | " + VARIABLE, []),
    ("OtherDocuments", "cases/quor.toml", '[variables]\nRATE = 5\n', NAME,
        ["FOLDER/cases/quor.toml: the documents of keywords that it names are not loaded; correct the one with an error, "
            "or if none has one, restart the server in the folder of this file"]),
    ("OpenFile", "share/wells.inc", "WELSPEC\n", NAME, []),
    ("Deck", "cases/case.data", CASE.replace("SCHEDULE\n", "SCHEDULE\nWELSPECS\n  P3 NORTH 1 1 2000 OIL /\n/\n"), "", []),
    ("DeckIsGone", "cases/case.data", None, FRAGMENT, ["can't read 'FOLDER/cases/case.data': No such file or directory"]),
    ("DeckIsBack", "cases/case.data", CASE, NAME, []),
]
WATCHED = ["**/quor.toml", "FOLDER/cases/*", "FOLDER/own.xml", "FOLDER/quor.toml", "FOLDER/rules.xml", "FOLDER/share/*"]

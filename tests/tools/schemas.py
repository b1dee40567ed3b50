"""Whether what the program prints for programs is as its schemas say:  schemas.py QUOR SOURCES"""
import json
import subprocess
import sys
from pathlib import Path

import jsonschema

quor, sources = sys.argv[1], Path(sys.argv[2])
schema = json.loads((sources / "tools/quor/schemas/output.schema.json").read_text())
jsonschema.Draft202012Validator.check_schema(schema)
decks = sorted(str(deck) for deck in (sources / "examples/decks").rglob("*.data"))
first, field = [next(deck for deck in decks if name in deck) for name in ("/first-comparative.data", "/field.data")]
failures = 0


def validate(document, arguments, *output):
    """Fails unless each text is what the schema has under the name of the document."""
    global failures
    validator = jsonschema.Draft202012Validator({"$ref": f"#/$defs/{document}", "$defs": schema["$defs"]})
    for text in output:
        for error in validator.iter_errors(json.loads(text)):
            failures += 1
            print(f"quor {' '.join(arguments)[:200]}: {error.json_path}: {error.message[:300]}")


def run(*arguments):
    return subprocess.run([quor, *arguments], capture_output=True).stdout.decode()


for document, arguments in [
    ("check", ["check", *decks, "/none.data", "--strict"]),
    ("statistics", ["check", *decks, "--statistics"]),
    ("lint", ["lint", str(sources / "tests/lint/full.xml")]),
    ("settings", ["settings", "--set", "A=1"]),
    ("get", ["get", first, "DIMENS", "PORO[1]"]),
    ("diff", ["diff", first, field]),
    ("port", ["port", first, "--to", "Carrow", "--all"]),
    ("list", ["list", "--section", "SUMMARY", "--text", "well"]),
    ("measurements", ["list", "--measurements"]),
    ("explain", ["explain"]),
    ("show", ["show", "WCONPROD", "PORO", "WOPR", "OIL", "PVTO"]),
    ("syntaxDiff", ["syntax", "diff", "builtin", str(sources / "tests/lint/full.xml"), "--addition"]),
    ("failure", ["info", "/none.data"]),
] + [("info", ["info", deck]) for deck in decks if "faulty" not in deck]:
    validate(document, arguments, run(*arguments, "--format", "json"))
for deck in [deck for deck in decks if "faulty" not in deck]:
    dump = run("dump", deck)
    validate("dump", ["dump", deck], dump)
    made = subprocess.run([quor, "dump", "--load", "-"], input=dump.encode(), capture_output=True)
    again = subprocess.run([quor, "dump", "-"], input=made.stdout, capture_output=True)
    changes = subprocess.run([quor, "diff", deck, "-"], input=made.stdout, capture_output=True)
    if json.loads(again.stdout)["keywords"] != json.loads(dump)["keywords"] or changes.returncode != 0:
        failures += 1
        print(f"quor dump --load: another deck than {deck}: {made.stderr.decode()}{changes.stdout.decode()}")
lines = run("check", *decks, "/none.data", "--format", "jsonl").splitlines()
assert len(lines) == len(decks) + 1
validate("checkLine", ["check", "--format", "jsonl"], *lines)
sys.exit(failures > 0)

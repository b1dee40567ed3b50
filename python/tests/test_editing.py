"""Changes of decks: what they do to the text, and what is refused."""

import difflib
from datetime import date

import numpy as np
import pytest
import quor
from support import DECKS, FIELD, SMALL


def changes(before, after):
    """The lines that differ, "-" before them or "+"."""
    lines = difflib.unified_diff(before.splitlines(), after.splitlines(), n=0, lineterm="")
    return [line for line in lines if not line.startswith(("---", "+++", "@@"))]


@pytest.mark.parametrize(
    ("change", "lines"),
    [
        (lambda d: d.set("WCONPROD[P1].ORAT@2024-04-01", 900), ["-  P1 OPEN ORAT 750 2* 900 /", "+  P1 OPEN ORAT 900 2* 900 /"]),
        (lambda d: d.set("WCONPROD[P1].LRAT@2024-04-01", None), ["-  P1 OPEN ORAT 750 2* 900 /", "+  P1 OPEN ORAT 750 2* 1* /"]),
        (lambda d: d.set("DIMENS.NX", np.int64(2)), []),
        (lambda d: d.set("WCONPROD[P1].ORAT@2024-04-01", np.float32(0.1)), ["-  P1 OPEN ORAT 750 2* 900 /", "+  P1 OPEN ORAT 0.1 2* 900 /"]),
        (lambda d: d.set("PORO", np.full(12, 0.1, np.float32)), ["-  6*0.25 6*0.3 /", "+  12*0.1 /"]),
        (lambda d: d.set("PORO", np.full(12, 0.5)), ["-  6*0.25 6*0.3 /", "+  12*0.5 /"]),
        (lambda d: [d.set("PORO", np.full(n, 0.5)) for n in (11, 13, 12)], ["-  6*0.25 6*0.3 /", "+  12*0.5 /"]),
        (lambda d: d.set(d["ACTNUM"], [1] * 6 + [0] * 6), ["-  12*1 /", "+  6*1 6*0 /"]),
        (lambda d: d.remove("WELSPECS[I1]"), ["-  I1 FIELD 2 3 1* WATER /"]),
        (lambda d: d.remove("WCONPROD@2024-04-01"), ["-WCONPROD", "-  P1 OPEN ORAT 750 2* 900 /", "-/"]),
        (lambda d: d.remove(d["ACTNUM"]), ["-ACTNUM", "-  12*1 /"]),
        (lambda d: d.add("WCONPROD", {"WELL": "I1", "CONTROL": "BHP", "BHP": 90}, date=date(2024, 7, 1)), ["+WCONPROD", "+  I1 1* BHP 5* 90 /", "+/"]),
        (lambda d: d.add("WCONPROD", " I1 SHUT /\n/", date="2024-01-01"), ["+WCONPROD", "+ I1 SHUT /", "+/"]),
        (lambda d: d.add("PERMX", np.full(12, 50.0)), ["+PERMX", "+  12*50 /"]),
        (lambda d: d.add("WATER"), ["+WATER"]),
        (lambda d: d.add("QMOBIL", [np.bool_(True)] * 12), ["+QMOBIL", "+  12*YES /"]),
        (lambda d: d.add("RPTSCHED", {"WELLS": np.int64(2)}, date="2024-07-01"), ["+RPTSCHED", "+  WELLS=2 /"]),
        (lambda d: d.set("PORO", (0.5 for _ in range(12))), ["-  6*0.25 6*0.3 /", "+  12*0.5 /"]),
        (lambda d: d.format(normalize=np.bool_(True)), ["-  6*0.25 6*0.3 /", "+  6*0.25  6*0.3 /", "-  P1 FIELD 1 1 1* OIL /", "+  P1 FIELD 1 1 1* OIL   /"]),
    ],
)
def test_a_change_touches_nothing_else(change, lines):
    deck = quor.loads(SMALL, simulator="Carrow")
    change(deck)
    assert changes(SMALL, deck.text()) == lines
    assert not [f for f in deck.findings if f.severity == "error"]


@pytest.mark.parametrize(
    ("change", "error", "text"),
    [
        (lambda d: d.set("WCONPROD[P1].ORAT", 900), quor.QuorError, "WCONPROD[P1].ORAT matches 2 values; add a date: 2024-01-01, 2024-04-01"),
        (lambda d: d.set("DIMENS.NX", 2.5), quor.QuorError, "deck.data:3: DIMENS: item 'NX' is Integer, not Real"),
        (lambda d: d.set("DIMENS.NX", 2**40), ValueError, "the number 1099511627776 is too large for an integer"),
        (lambda d: d.set("DIMENS.NX", 2**70), ValueError, "the number 1180591620717411303424 is too large for an integer"),
        (lambda d: d.add("RPTSCHED", {"WELLS": 2**40}), ValueError, "the number 1099511627776 is too large for an integer"),
        (lambda d: d.add("RPTSCHED", {"WELLS": np.array(2.5)}), TypeError, "expected a whole number for each word of RPTSCHED, not ndarray"),
        (lambda d: d.set("DIMENS.NX", [1]), KeyError, "the deck has no keyword 'DIMENS.NX'; did you mean DIMENS?"),
        (lambda d: d.set("ACTNUM", [0.5] * 12), TypeError, "ACTNUM has integers: convert the array with astype(int)"),
        (lambda d: d.set("WCONPROD", [1.0]), quor.QuorError, "the deck has 2 keywords WCONPROD (deck.data:18, deck.data:24); choose one of deck.all('WCONPROD')"),
        (lambda d: d.remove("DIMENS.NX"), ValueError, "'DIMENS.NX' is the address of a value: set it to None to leave it to its default"),
        (lambda d: d.remove("WCONPROD[P1]"), ValueError, "'WCONPROD[P1]' matches 2 records, expected one"),
        (lambda d: d.remove("WCONPROD@2024-05-01"), quor.QuorError, "the deck has no report step at 2024-05-01; WCONPROD is given at 2024-01-01, 2024-04-01"),
        (lambda d: d.add("WCONPROD", {"WELL": "P1"}, date="2024-05-01"), quor.QuorError, "the deck has no report step at 2024-05-01 (it has 2024-04-01, 2024-07-01)"),
        (lambda d: d.add("WCONPROD", {"WEL": "P1"}), quor.QuorError, "WCONPROD: no item 'WEL'; did you mean 'WELL'?"),
        (lambda d: d.add("WCONPRDO", {}), KeyError, "unknown keyword 'WCONPRDO'; did you mean 'WCONPROD'?"),
        (lambda d: d.add("WCONPROD"), TypeError, "expected a dict of items and values, or a list of them, for WCONPROD, not NoneType"),
        (lambda d: d.add("WCONPROD", [["P1"]]), TypeError, "expected a dict of items and values for a record of WCONPROD, not list"),
        (lambda d: d.add("WCONPROD", {1: "P1"}), TypeError, "expected the name of an item of WCONPROD, not int"),
        (lambda d: d.add("WCONPROD", {"WELL": "P1", "CONTROL": 1}), TypeError, "expected a word for item 'CONTROL', not int"),
        (lambda d: d.add("WCONPROD", " P1 /\n/", date="2024-04-01", section="GRID"), ValueError, "a keyword with a date is in SCHEDULE, not in GRID: give a date or a section"),
        (lambda d: d.undo(-1), ValueError, "count is -1, expected 0 or more"),
        (lambda d: d.set("DIMENS.NX", b"2"), TypeError, "expected a number, a text or a bool, not bytes"),
        (lambda d: d.set(None, 1), TypeError, "expected an address, or a keyword of the deck, not NoneType"),
        (lambda d: d.remove(d["DIMENS"].records[0]), TypeError, "expected a keyword of the deck, its name, or the address of a record, not Record"),
        (lambda d: (d.remove(k := d["ACTNUM"]), d.remove(k)), ValueError, "ACTNUM is of another deck, or of this one before it was changed: ask for it again"),
    ],
)
def test_what_can_not_be_done_changes_nothing(change, error, text):
    deck = quor.loads(SMALL, simulator="Carrow")
    with pytest.raises(error) as raised:
        change(deck)
    assert str(raised.value) == text


def test_a_thousand_edits_and_their_undo_leave_the_bytes():
    deck = quor.read(FIELD)
    frame = deck.frame("WCONHIST")
    before = {name: deck.text(name) for name in deck.files}
    edits = [(f"WCONHIST[{row.WELL}].ORAT@{row.date.date()}", row.ORAT) for row in frame.itertuples()][:1000]
    for address, value in edits:
        deck.set(address, value + 1)
    assert sum(frame["ORAT"][: len(edits)]) + len(edits) == pytest.approx(sum(deck.frame("WCONHIST")["ORAT"][: len(edits)]))
    deck.remove(deck["WCONHIST"])
    deck.format(normalize=True).undo()
    assert len(deck.all("WCONHIST")) < len(set(frame["date"]))
    deck.undo(len(edits) + 1)
    assert {name: deck.text(name) for name in deck.files} == before
    with pytest.raises(quor.QuorError, match="the deck has no change to undo"):
        deck.undo()


def test_a_copy_is_changed_for_itself():
    deck = quor.loads(SMALL)
    other = deck.copy()
    other.set("DIMENS.NZ", 4)
    assert (deck["DIMENS"]["NZ"], other["DIMENS"]["NZ"]) == (2, 4)
    assert [str(change) for change in quor.diff(deck, other)] == ["RUNSPEC: DIMENS NZ: 2 -> 4"]


def test_a_tree_is_written_with_its_inclusions(tmp_path):
    deck = quor.read(FIELD)
    deck.set("DIMENS.NZ", deck["DIMENS"]["NZ"] + 1)
    copy = quor.read(deck.write_tree(tmp_path / "new"))
    assert len(copy.files) == len(deck.files) and quor.diff(copy, deck) == []
    (tmp_path / "main").mkdir()
    (tmp_path / "shared.inc").write_text("OIL\n")
    outside = quor.loads("RUNSPEC\nINCLUDE\n '../shared.inc' /\n", name=tmp_path / "main" / "a.data")
    with pytest.raises(quor.QuorError, match="is outside the folder of the deck"):
        outside.write_tree(tmp_path / "other")
    assert not (tmp_path / "other").exists()


def test_writing_keeps_links_and_permissions(tmp_path):
    target = tmp_path / "a.data"
    target.write_text("old")
    target.chmod(0o640)
    (tmp_path / "link.data").symlink_to(target)
    quor.loads(SMALL).write(tmp_path / "link.data")
    assert target.read_text() == SMALL and target.stat().st_mode & 0o777 == 0o640
    assert (tmp_path / "link.data").is_symlink() and len(list(tmp_path.iterdir())) == 2
    with pytest.raises(quor.QuorError, match=r"can't write '.*': No such file or directory"):
        quor.loads(SMALL).write(tmp_path / "no" / "a.data")


def test_what_is_lost_on_another_simulator_is_listed():
    deck = quor.read(DECKS / "steam-injection.data", simulator="Dunmere", mode="Thermal")
    losses = quor.port(deck, to="Carrow")
    assert losses and all(loss.count >= 1 and loss.line > 0 for loss in losses)
    assert {loss.kind for loss in losses} <= {"keyword-not-valid", "item-not-valid", "item-unsupported", "choice-not-valid", "choice-unsupported", "no-default", "other-default"}

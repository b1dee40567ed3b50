"""What a deck has, as Python shows it."""

import copy
import gc
import pickle
from concurrent.futures import ThreadPoolExecutor
from datetime import datetime
from pathlib import Path

import numpy as np
import pytest
import quor
from support import DECKS, FIELD, SMALL


@pytest.fixture
def deck():
    return quor.loads(SMALL, simulator="Carrow", name="small.data")


@pytest.mark.parametrize(
    ("question", "answer"),
    [
        (lambda d: len(d.findings), 0),
        (lambda d: d.start, datetime(2024, 1, 1)),
        (lambda d: [(s.number, s.date, s.line) for s in d.steps], [(1, datetime(2024, 4, 1), 22), (2, datetime(2024, 7, 1), 28)]),
        (lambda d: d.sections, ["RUNSPEC", "GRID", "SCHEDULE"]),
        (lambda d: d.sizes["DIMENS"], {"NX": 2, "NY": 3, "NZ": 2}),
        (lambda d: [(w.name, w.group, w.since) for w in d.wells], [("P1", "FIELD", datetime(2024, 1, 1)), ("I1", "FIELD", datetime(2024, 1, 1))]),
        (lambda d: [g.name for g in d.groups], ["FIELD"]),
        (lambda d: d.files, ["small.data"]),
        (lambda d: d.units.system, "METRIC"),
        (lambda d: d["DIMENS"]["NY"], 3),
        (lambda d: [k.date for k in d.all("wconprod")], [datetime(2024, 1, 1), datetime(2024, 4, 1)]),
        (lambda d: [k.name for k in d.after(d.steps[0])], ["WCONPROD", "DATES"]),
        (lambda d: ((a := quor.loads("RUNSPEC\nDIMENS\n 2 1 1 /\nGRID\nQMOBIL\n NO /\n")["QMOBIL"].array).dtype, a.tolist(), a.flags.owndata, a.flags.writeable), (np.dtype(bool), [False], False, False)),
        (lambda d: [info.sections for info in quor.language().all("save")], [["RUNSPEC"], ["SCHEDULE"]]),
        (lambda d: d.all("NOSUCH"), []),
        (lambda d: [len(quor.loads("RUNSPEC\n OIL\n", strict=np.bool_(strict), max_findings=np.int64(9)).findings) for strict in (0, 1)], [0, 1]),
        (lambda d: [k.name for k in d.section("grid")], ["GRID", "PORO", "ACTNUM"]),
        (lambda d: ("PORO" in d, "PERMX" in d), (True, False)),
        (lambda d: d["WCONPROD"].records[0]["orat"], 750.0),
        (lambda d: d["WCONPROD"].records[0].get("GRAT"), None),
        (lambda d: d["WCONPROD"].records[0].get("GRAT", 0.0), 0.0),
        (lambda d: d["WCONPROD"].records[0].is_default("GRAT"), True),
        (lambda d: d["WCONPROD"].records[0].quantity("ORAT"), (750.0, "sm3/day")),
        (lambda d: (d["WCONPROD"].records[0].file, d["WCONPROD"].records[0].line), ("small.data", 25)),
        (lambda d: repr(d["WCONPROD"]), "<WCONPROD at small.data:24, records: 1>"),
        (lambda d: repr(d["WELSPECS"].records[0]), "<WELSPECS at small.data:15: WELL='P1', GROUP='FIELD', I=1, J=1, PHASE='OIL'>"),
        (lambda d: repr(d), "<Deck small.data: 14 keywords, 2 report steps, 0 findings>"),
        (lambda d: d.text(), SMALL),
        (lambda d: pickle.loads(pickle.dumps(d)).text(), SMALL),
        (lambda d: quor.diff(copy.copy(d), pickle.loads(pickle.dumps(d))), []),
    ],
)
def test_a_deck_answers(deck, question, answer):
    assert question(deck) == answer


@pytest.mark.parametrize(
    ("question", "error", "text"),
    [
        (lambda d: d["PORRO"], KeyError, "the deck has no keyword 'PORRO'; did you mean PORO?"),
        (lambda d: d["WCONPROD"].records[0]["ORTA"], KeyError, "small.data:25: WCONPROD: no item 'ORTA'; did you mean 'ORAT'?"),
        (lambda d: d["WCONPROD"].array, quor.QuorError, "small.data:24: WCONPROD has records, and no array"),
        (lambda d: d["PORO"].records, quor.QuorError, "small.data:9: PORO has no records"),
        (lambda d: d["WELSPECS"]["WELL"], quor.QuorError, "small.data:14: WELSPECS has 2 records: ask one of its records for 'WELL'"),
        (lambda d: quor.read("no/such.data"), quor.QuorError, "can't read 'no/such.data': No such file or directory"),
        (lambda d: quor.loads("", simulator="Carow"), ValueError, "unknown simulator 'Carow' (expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE, Wend_CLASSIC)"),
        (lambda d: quor.language()["WCONPRDO"], KeyError, "unknown keyword 'WCONPRDO'; did you mean 'WCONPROD'?"),
        (lambda d: d.units["presure"], KeyError, "unknown measurement 'presure'; did you mean 'pressure'?"),
        (lambda d: d.section("GRDI"), ValueError, "unknown section 'GRDI' (expected RUNSPEC, GRID, EDIT, PROPS, REGIONS, SOLUTION, SUMMARY, SCHEDULE, OPTIMIZE)"),
        (lambda d: d[0], TypeError, "expected the name of a keyword, not int"),
        (lambda d: d.after(1), TypeError, "expected one of the steps of the deck, not int"),
        (lambda d: quor.diff(d, "b.data"), TypeError, "expected a deck, as quor.read returns it, not str"),
        (lambda d: quor.loads(None), TypeError, "expected the text of a deck, not NoneType"),
        (lambda d: quor.loads("", variables="A=1"), TypeError, "expected a dict of variables and their values, not str"),
        (lambda d: quor.loads("", variables={1: 2}), TypeError, "expected the name of a variable, not int"),
        (lambda d: quor.loads("", simulator=3), TypeError, "expected the name of a simulator, not int"),
        (lambda d: quor.loads("", strict="yes"), TypeError, "expected True or False as strict, not str"),
        (lambda d: quor.port(d, to=None), TypeError, "expected the name of a simulator, not NoneType"),
        (lambda d: d.frame("WCONPROD", section=3), TypeError, "expected the name of a section, not int"),
        (lambda d: quor.language().search(3), TypeError, "expected words to search for, not int"),
        (lambda d: d.units.convert("1", "pressure", to="FIELD"), TypeError, "expected a number, not str"),
        (lambda d: d.units.convert(1, "pressure", to=None), TypeError, "expected the name of a system of units, not NoneType"),
        (lambda d: d.undo("1"), TypeError, "expected a whole number of changes, not str"),
        (lambda d: quor.check_many([], jobs="2"), TypeError, "expected a number of jobs, not str"),
        (lambda d: quor.check_many([], executor=2), TypeError, "expected an executor, as concurrent.futures has them, not int"),
        (lambda d: quor.map_decks("title", []), TypeError, "expected a function of a deck, not str"),
        (lambda d: quor.loads("", max_findings=-1), ValueError, "max_findings is -1, expected 0 or more"),
        (lambda d: quor.loads("RUNSPEC\nDIMENS\n 2 1 1 /\nGRID\nQMOBIL\n $Q /\n")["QMOBIL"].array, quor.QuorError, "deck.data:5: QMOBIL: element index 0 has no value: a variable that isn't set is in its place"),
        (lambda d: d.frame("PORO"), quor.QuorError, "small.data:9: PORO has no records"),
        (lambda d: d.text("other.inc"), KeyError, "the deck has no file 'other.inc'"),
    ],
)
def test_what_is_not_there_is_an_error(deck, question, error, text):
    with pytest.raises(error) as raised:
        question(deck)
    assert str(raised.value) == text


def test_findings_say_where():
    (finding,) = quor.loads("RUNSPEC\nDIMENS\n 2 2 /\nDIMENS\n  1 1 1 x/\n", name="a.data").findings[:1]
    assert (finding.file, finding.severity, finding.line) == ("a.data", "error", 3)
    assert str(finding).startswith("a.data:3:") and str(finding).endswith(f"[{finding.code}]")


@pytest.mark.parametrize(("name", "kind"), [("PORO", np.float64), ("ACTNUM", np.int32)])
def test_an_array_is_a_view_that_holds_its_deck(name, kind):
    deck = quor.loads(SMALL)
    array = deck[name].array
    before = array.copy()
    assert array.dtype == kind and array.size == 12 and not array.flags.owndata
    assert np.shares_memory(array, deck[name].array)
    with pytest.raises(ValueError):
        array[0] = 1
    with pytest.raises(ValueError):
        array.setflags(write=True)
    deck.set(name, before * 2)
    del deck
    gc.collect()
    assert (array == before).all()


def test_a_frame_has_a_row_for_each_record():
    frame = quor.loads(SMALL).frame("WCONPROD")
    assert list(frame["WELL"]) == ["P1", "P1"] and list(frame["ORAT"]) == [800.0, 750.0]
    assert frame["CONTROL"].dtype == "category" and list(frame["CONTROL"]) == ["ORAT", "ORAT"]
    assert list(frame["date"]) == [datetime(2024, 1, 1), datetime(2024, 4, 1)]
    assert list(frame["line"]) == [19, 25] and set(frame["file"]) == {"deck.data"}
    given = quor.loads(SMALL).frame("WELSPECS", defaults=False)
    assert given["REFDEPTH"].isna().all() and given["I"].sum() == 3
    assert list(quor.loads(SMALL).frame("WELSPECS", section="SCHEDULE")["WELL"]) == ["P1", "I1"]


def test_each_keyword_of_the_example_decks_can_be_shown():
    for path in sorted(DECKS.glob("*.data")) + [FIELD]:
        deck = quor.read(path)
        for keyword in deck:
            assert keyword.name in keyword._repr_html_() and repr(keyword)
            if "<th>" in keyword._repr_html_():
                assert len(deck.frame(keyword.name, section=keyword.section)) >= len(keyword.records)
        assert str(len(deck)) in deck._repr_html_()
        assert quor.diff(deck, quor.loads(deck.text(), name=path.with_name("whole.data"))) == []


def test_variables_hold_for_a_block():
    text = "RUNSPEC\nTITLE\n of $CASE\nDIMENS\n $NX 1 1 /\n"
    with quor.variables(CASE="a", NX=2):
        assert quor.loads(text).sizes["DIMENS"]["NX"] == 2
        assert quor.loads(text, variables={"NX": 3}).sizes["DIMENS"]["NX"] == 3
        assert not quor.loads(text).findings
    assert quor.loads(text).findings


def test_bytes_that_are_no_text_are_kept(tmp_path):
    path = tmp_path / "latin.data"
    path.write_bytes(b"RUNSPEC\n-- 20 \xb0C\nOIL\n")
    deck = quor.read(path)
    deck.write(tmp_path / "copy.data")
    assert (tmp_path / "copy.data").read_bytes() == path.read_bytes()
    deck = quor.loads(SMALL.replace("I1", "\udce91"))
    deck.set("WELSPECS[\udce91].I", 1)
    deck.add("WCONPROD", " '\udce91' SHUT /\n/", date="2024-04-01")
    deck.remove("WELSPECS[\udce91]")
    assert [deck.text().count("\udce91"), len(deck.wells)] == [1, 1]


def test_threads_read_at_once():
    with ThreadPoolExecutor(4) as threads:
        decks = list(threads.map(quor.read, [FIELD] * 8))
    assert {repr(deck) for deck in decks} == {repr(decks[0])}


def test_the_language_is_described():
    language = quor.language()
    items = {item.name: item for item in language["wconprod"].items}
    assert (items["BHP"].type, items["BHP"].measurement, items["ORAT"].minimum) == ("Real", "pressure", 0.0)
    assert items["WELL"].is_identifier and items["CONTROL"].choices[:1] == ["ORAT"]
    assert items["STATUS"].default("Carrow") == "OPEN" and items["WELL"].default() is None
    assert "GCONPROD" in [info.name for info in language.search("group rate")]
    assert "SCHEDULE" in language["WCONPROD"].sections and len(language) == len(list(language))


def test_each_item_of_the_language_has_its_facts():
    def facts(item):
        nested = sum(facts(other) for other in item.items)
        defaults = [item.default(simulator) for simulator in language.simulators]
        known = item.minimum is not None, item.maximum is not None, bool(item.choices), any(defaults)
        return nested + sum(known) + bool(item.description) + bool(repr(item))

    language = quor.language()
    assert all(facts(item) > 0 for name in language for item in language[name].items)


def test_units_are_a_table():
    units = quor.loads(SMALL).units
    assert (units["pressure"]["METRIC"], units["pressure"]["FIELD"]) == ("bar", "psi")
    assert round(units.convert(100, "pressure", to="FIELD"), 1) == 1450.4
    assert units.frame().loc["pressure", "LAB"] == "atm"


def resident():
    """Of this process, in MB."""
    lines = Path("/proc/self/status").read_text().splitlines()
    return next(int(line.split()[1]) for line in lines if line.startswith("VmRSS")) / 1024


def test_a_thousand_reads_leave_no_memory_behind():
    def use(changes):
        deck = quor.read(DECKS / "first-comparative.data")
        kept = deck["PERMX"].array, deck.all("WELSPECS"), deck.findings
        if changes:
            kept += deck.frame("WELSPECS"), deck.wells
            deck.set("DIMENS.NX", 11)
            deck.undo()
            with pytest.raises(KeyError):
                deck["NOSUCH"]
        return kept

    for number in range(1200):
        if number == 200:
            before = resident()
        use(changes=number % 10 == 0)
    assert resident() - before < 4

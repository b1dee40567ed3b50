"""Many decks, on threads, processes and a cluster."""

import multiprocessing
import os
from concurrent.futures import ProcessPoolExecutor, ThreadPoolExecutor
from concurrent.futures.process import BrokenProcessPool
from functools import partial
from types import FunctionType

import pytest
import quor
from support import DECKS

PATHS = sorted((DECKS / "faulty").glob("*.data"))[:12] + [DECKS / "no-such.data"]


def counts(results):
    return [(path, [finding.code for finding in findings]) for path, findings in results]


def title(deck):
    return deck.title, os.getpid()


def itself(deck):
    return deck


def dies(deck):
    if "gas-network" in deck.files[0]:
        os.kill(os.getpid(), 9)
    return deck.title


def test_each_executor_finds_the_same():
    alone = counts(quor.check_many(PATHS, jobs=1))
    assert [path for path, _ in alone] == PATHS and alone[-1][1] == ["include-missing"]
    assert counts(quor.check_many(PATHS, jobs=4)) == alone
    with ProcessPoolExecutor(2, multiprocessing.get_context("spawn")) as processes:
        assert counts(quor.check_many(PATHS, executor=processes)) == alone


def test_variables_of_a_block_reach_the_threads(tmp_path):
    path = tmp_path / "a.data"
    path.write_text("RUNSPEC\nDIMENS\n $NX 1 1 /\n")
    with quor.variables(NX=2):
        results = quor.check_many([path])
    assert list(results) == [(path, [])]


def test_what_a_function_returns_comes_in_order():
    assert [path for path, _ in quor.map_decks(title, PATHS[:5])] == PATHS[:5]
    with pytest.raises(quor.QuorError):
        list(quor.map_decks(title, PATHS[-1:]))
    with pytest.raises(TypeError, match="the function returned a deck"):
        list(quor.map_decks(itself, PATHS[:1]))


def test_a_deck_is_compared_on_threads_and_never_sent():
    base = quor.read(PATHS[0])

    def with_base(deck, other=None):
        return len(quor.diff(base if other is None else other, deck))

    assert [count for _, count in quor.map_decks(with_base, PATHS[:1], jobs=2)] == [0]
    script = FunctionType((lambda deck: quor.diff(kept, deck)).__code__, {"__name__": "__main__", "kept": base})
    for function in with_base, partial(len, base), partial(with_base, other={base}), base.frame, script:
        with pytest.raises(TypeError, match="the function holds a deck, which would be sent: let it read the deck, or give it values"):
            quor.map_decks(function, PATHS[:1], executor=object())


@pytest.mark.parametrize("call", [quor.check_many, lambda paths: quor.map_decks(title, paths)])
def test_a_single_path_is_no_list_of_them(call):
    with pytest.raises(TypeError, match=r"expected the paths of decks, not a single one: write \['a.data'\]"):
        call("a.data")


def test_what_an_executor_loses_is_asked_for_again_and_what_a_function_raises_is_not():
    class Losing(ThreadPoolExecutor):
        losses, calls = 2, 0

        def submit(self, function, *arguments):
            self.calls += 1
            if self.losses and self.calls > 1:
                self.losses -= 1
                return super().submit(lambda: {}["lost"])
            return super().submit(function, *arguments)

    with Losing(1) as executor:
        assert len(list(quor.check_many(PATHS[:3], executor=executor))) == 3
        assert executor.calls == 5
        executor.losses = 3
        with pytest.raises(KeyError, match="lost"):
            list(quor.check_many(PATHS[:1], executor=executor))
        executor.losses, executor.calls = 0, 0
        with pytest.raises(ZeroDivisionError):
            list(quor.map_decks(lambda deck: 1 / 0, PATHS[:1], executor=executor))
        assert executor.calls == 1


def test_a_pool_with_a_killed_worker_raises_after_its_results():
    paths = PATHS[:3] + [DECKS / "gas-network.data"] + PATHS[3:6]
    with ProcessPoolExecutor(1) as pool:
        done = []
        with pytest.raises(BrokenProcessPool) as raised:
            done.extend(path for path, _ in quor.map_decks(dies, paths, executor=pool))
        notes = [f"'{paths[3]}' is the first deck without a result: it, or one after it, ended a worker"]
        assert (done, raised.value.__notes__) == (paths[:3], notes)


def test_a_cluster_survives_the_loss_of_a_worker():
    distributed = pytest.importorskip("distributed")
    with distributed.LocalCluster(2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster:
        with distributed.Client(cluster) as client:
            results = quor.map_decks(title, PATHS[:-1] * 10, executor=client.get_executor(pure=False))
            first = next(results)
            os.kill(first[1][1], 9)
            rest = list(results)
    assert [path for path, _ in [first, *rest]] == PATHS[:-1] * 10
